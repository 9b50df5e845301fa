#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/MouseEvents.h"

#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>

namespace quellbrook::testing {
namespace {

class FlatScrollBarTest : public ControlsTest {
protected:
    FlatScrollBarTest() {
        QObject::connect(&m_bar, &FlatScrollBar::Changed, [this] { ++m_changes; });
        m_bar.Move(0, 0, 240, 3000);
    }

    static int NumberOf(const std::function<void()>& act) {
        try {
            act();
        } catch (const Error& error) {
            return error.Number();
        }
        return 0;
    }

    FlatScrollBar m_bar{&m_window};
    int m_changes = 0;
};

TEST_F(FlatScrollBarTest, StartsWithTheSixteenBitRange) {
    EXPECT_EQ(m_bar.Min(), 0);
    EXPECT_EQ(m_bar.Max(), 32767);
    EXPECT_EQ(m_bar.Value(), 0);
}

TEST_F(FlatScrollBarTest, HasNoThumbWhileDisabled) {
    const auto hasThumb = [this] {
        return HasColor(Grab(m_bar), QRect(0, 16, 16, 160), Theme::Get(Theme::Color::Thumb));
    };
    EXPECT_TRUE(hasThumb());
    m_bar.setEnabled(false);
    EXPECT_FALSE(hasThumb());
}

TEST_F(FlatScrollBarTest, ValuesBeyondSixteenBitsOverflow) {
    const std::vector<std::function<void(int)>> setters = {
        [this](int v) { m_bar.SetMin(v); }, [this](int v) { m_bar.SetMax(v); }, [this](int v) { m_bar.SetValue(v); },
        [this](int v) { m_bar.SetSmallChange(v); }, [this](int v) { m_bar.SetLargeChange(v); }};
    for (const auto& set : setters) {
        EXPECT_EQ(NumberOf([&] { set(32768); }), ErrorNumber::Overflow);
        EXPECT_EQ(NumberOf([&] { set(-32769); }), ErrorNumber::Overflow);
    }
    EXPECT_EQ(m_bar.Max(), 32767);
    EXPECT_EQ(NumberOf([this] { m_bar.SetMax(32767); }), 0);
    EXPECT_EQ(NumberOf([this] { m_bar.SetMin(-32768); }), 0);
}

TEST_F(FlatScrollBarTest, AValueOutOfRangeIsInvalid) {
    m_bar.SetMax(10);
    EXPECT_EQ(NumberOf([this] { m_bar.SetValue(11); }), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(NumberOf([this] { m_bar.SetValue(-1); }), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(m_bar.Value(), 0);
    m_bar.SetValue(10);
    EXPECT_EQ(m_bar.Value(), 10);
}

TEST_F(FlatScrollBarTest, EachChangeOfTheValueIsRaisedOnce) {
    m_bar.SetValue(5);
    m_bar.SetValue(5);
    EXPECT_EQ(m_changes, 1);
}

TEST_F(FlatScrollBarTest, ChangesAreRaisedWhileTheThumbMoves) {
    m_bar.SetMax(100);
    ShowActive(m_window);
    QStyleOptionSlider option;
    option.initFrom(m_bar.Bar());
    option.orientation = Qt::Vertical;
    option.maximum = 100;
    option.pageStep = 1;
    const QPoint thumb = m_bar.Bar()
                             ->style()
                             ->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, m_bar.Bar())
                             .center();
    QTest::mousePress(m_bar.Bar(), Qt::LeftButton, Qt::NoModifier, thumb);
    QTest::mouseMove(m_bar.Bar(), thumb + QPoint(0, 30));
    const int halfway = m_changes;
    EXPECT_GT(halfway, 0);
    EXPECT_GT(m_bar.Value(), 0);
    QTest::mouseMove(m_bar.Bar(), thumb + QPoint(0, 60));
    EXPECT_GT(m_changes, halfway);
    QTest::mouseRelease(m_bar.Bar(), Qt::LeftButton, Qt::NoModifier, thumb + QPoint(0, 60));
}

TEST_F(FlatScrollBarTest, TheFilterClearsBitZeroIfBitTwoIsSet) {
    const std::vector<std::pair<int, int>> codes = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4},
                                                    {5, 4}, {6, 6}, {7, 6}, {8, 8}};
    for (const auto& [code, filtered] : codes) EXPECT_EQ(FlatScrollBar::FilterScrollCode(code), filtered);
    EXPECT_EQ(FlatScrollBar::FilterScrollCode(0x1230005), 0x1230004);
}

TEST_F(FlatScrollBarTest, WithTheFilterBottomScrollsToTheTop) {
    m_bar.SetMax(100);
    m_bar.SetValue(40);
    m_bar.Bar()->triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(m_bar.Value(), 100);
    m_bar.SetThumbFilter(true);
    m_bar.SetValue(40);
    m_bar.Bar()->triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(m_bar.Value(), 0);
    m_bar.Bar()->triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(m_bar.Value(), 1);
}

TEST_F(FlatScrollBarTest, OnlyTheUsableArrowsAreDrawn) {
    m_bar.SetMax(10);
    const QColor background = Theme::Get(Theme::Color::Panel);
    const auto drawn = [&](const QRect& place) {
        const QImage image = Grab(m_bar);
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left(); x <= place.right(); ++x)
                if (PixelAt(image, QPoint(x, y)) != background) return true;
        return false;
    };
    const QRect up(0, 0, 16, 16);
    const QRect down(0, 184, 16, 16);
    for (const int value : {0, 5, 10}) {
        m_bar.SetValue(value);
        const int arrows = value == 0 ? FlatScrollBar::Down : value == 10 ? FlatScrollBar::Up : FlatScrollBar::Both;
        m_bar.SetArrows(arrows);
        EXPECT_EQ(m_bar.GetArrows(), arrows);
        EXPECT_EQ(drawn(up), value > 0);
        EXPECT_EQ(drawn(down), value < 10);
    }
}

class WheelTest : public FlatScrollBarTest {
protected:
    WheelTest() {
        QApplication::setWheelScrollLines(3);
        m_bar.SetMax(100);
        m_bar.SetValue(50);
        m_changes = 0;
    }
};

TEST_F(WheelTest, OneNotchScrollsByTheSystemsWheelLines) {
    m_bar.TurnWheel(-120);
    EXPECT_EQ(m_bar.Value(), 53);
    EXPECT_EQ(m_changes, 1) << "a list fills its rows once";
    m_bar.TurnWheel(120);
    EXPECT_EQ(m_bar.Value(), 50);
    m_bar.SetSmallChange(10);
    m_bar.TurnWheel(120);
    EXPECT_EQ(m_bar.Value(), 20);
    QApplication::setWheelScrollLines(1);
    m_bar.TurnWheel(120);
    EXPECT_EQ(m_bar.Value(), 10);
    QApplication::setWheelScrollLines(3);
}

TEST_F(WheelTest, HalfNotchesAddUp) {
    m_bar.TurnWheel(-60);
    m_bar.TurnWheel(-60);
    EXPECT_EQ(m_bar.Value(), 53);
    for (int i = 0; i < 12; ++i) m_bar.TurnWheel(10);
    EXPECT_EQ(m_bar.Value(), 50);
    for (int i = 0; i < 120; ++i) m_bar.TurnWheel(-1);
    EXPECT_EQ(m_bar.Value(), 53);
}

TEST_F(WheelTest, StaysWithinTheRange) {
    m_bar.SetValue(98);
    m_bar.TurnWheel(-1200);
    EXPECT_EQ(m_bar.Value(), 100);
    m_bar.SetValue(1);
    m_bar.TurnWheel(120);
    EXPECT_EQ(m_bar.Value(), 0);
}

TEST_F(WheelTest, TheWheelOverTheContainerScrollsTheBar) {
    PlainControl container(&m_window);
    container.setGeometry(20, 0, 300, 300);
    PlainControl row(&container);
    ScrollWheelSupport support(&container, &m_bar);
    ShowActive(m_window);
    Turn(&container, -120);
    EXPECT_EQ(m_bar.Value(), 53);
    Turn(&row, -120);
    EXPECT_EQ(m_bar.Value(), 56);
    Turn(m_bar.Bar(), 120);
    EXPECT_EQ(m_bar.Value(), 53);
    m_bar.hide();
    Turn(&container, -120);
    EXPECT_EQ(m_bar.Value(), 53);
}

}  // namespace
}  // namespace quellbrook::testing
