#include "ui/shell/Toast.h"

#include "tests/support/ManualTimer.h"
#include "tests/support/ui/IconContrast.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/View.h"

#include <QGraphicsDropShadowEffect>
#include <QPushButton>

namespace quellbrook {

namespace {

// Counts the presses that the watched widgets get.
class PressCounter : public QObject {
public:
    int presses = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        presses += event->type() == QEvent::MouseButtonPress;
        return false;
    }
};

class ToastTest : public ::testing::Test {
protected:
    ToastTest() {
        m_parent.resize(800, 600);
        m_toast = new Toast(&m_parent);
        testing::ShowActive(m_parent);
    }

    void SlideToTheEnd() {
        for (int tick = 0; tick < 1000 && m_timers.Tick(10) > 0; ++tick) continue;
    }
    bool Waits() const {
        for (const testing::ManualTimer* timer : m_timers.Running())
            if (timer->Interval() == 5000) return true;
        return false;
    }
    std::string Text() { return testing::Find<Label>(*m_toast, "lblMessage")->Caption().toStdString(); }

    EnvironmentScope m_environment;
    testing::ManualTimers m_timers{m_environment};
    GroupBox m_parent;
    Toast* m_toast;
};

}  // namespace

TEST_F(ToastTest, AtFirstItIsHidden) {
    EXPECT_FALSE(m_toast->isVisible());
    EXPECT_TRUE(m_timers.Running().empty());
}

TEST_F(ToastTest, ATextSlidesUpThirtyTwipsATick) {
    m_toast->Popup("Done");
    EXPECT_TRUE(m_toast->isVisible());
    EXPECT_EQ(Text(), "Done");
    EXPECT_FLOAT_EQ(m_toast->Height(), 2);
    m_timers.Tick(10);
    EXPECT_FLOAT_EQ(m_toast->Height(), 32);
    m_timers.Tick(10);
    EXPECT_FLOAT_EQ(m_toast->Height(), 62);
    SlideToTheEnd();
    EXPECT_FLOAT_EQ(m_toast->Height(), 720);
}

TEST_F(ToastTest, ItGrowsUpwardsFromTheBottomEdgeOverItsSiblings) {
    auto* sibling = new GroupBox(&m_parent);
    sibling->SetAlign(Alignment::Bottom);
    sibling->SetHeight(600);
    sibling->show();
    m_toast->Popup("Done");
    for (int tick = 0; tick < 10; ++tick) {
        m_timers.Tick(10);
        EXPECT_EQ(m_toast->geometry().bottom(), 599);
        EXPECT_EQ(m_toast->width(), 800);
        EXPECT_EQ(sibling->geometry(), QRect(0, 560, 800, 40));
    }
    SlideToTheEnd();
    EXPECT_EQ(m_parent.childAt(10, 590)->window(), &m_parent);
    EXPECT_EQ(m_toast->geometry(), QRect(0, 552, 800, 48));
    EXPECT_EQ(m_parent.children().last(), m_toast);
}

TEST_F(ToastTest, ItStaysFiveSecondsAndSlidesAway) {
    m_toast->Popup("Done");
    SlideToTheEnd();
    EXPECT_TRUE(Waits());
    EXPECT_EQ(m_timers.Tick(5000), 1);
    EXPECT_FALSE(Waits());
    EXPECT_TRUE(m_toast->isVisible());
    SlideToTheEnd();
    EXPECT_FALSE(m_toast->isVisible());
    EXPECT_TRUE(m_timers.Running().empty());
}

TEST_F(ToastTest, ASecondTextStaysForAllFiveSeconds) {
    m_toast->Popup("First");
    SlideToTheEnd();
    ASSERT_TRUE(Waits());
    m_toast->Popup("Second");
    EXPECT_FALSE(Waits());
    EXPECT_EQ(Text(), "Second");
    EXPECT_FLOAT_EQ(m_toast->Height(), 2);
    SlideToTheEnd();
    EXPECT_TRUE(Waits());
    EXPECT_FLOAT_EQ(m_toast->Height(), 720);
}

TEST_F(ToastTest, ATextDuringTheSlideDownNeverLeavesItStuck) {
    m_toast->Popup("First");
    SlideToTheEnd();
    m_timers.Tick(5000);
    m_timers.Tick(10);
    m_toast->Popup("Second");
    SlideToTheEnd();
    EXPECT_TRUE(Waits());
    EXPECT_TRUE(m_toast->isVisible());
    m_timers.Tick(5000);
    SlideToTheEnd();
    EXPECT_FALSE(m_toast->isVisible());
    EXPECT_TRUE(m_timers.Running().empty());
}

TEST_F(ToastTest, AResizeDuringASlideDoesNotResetTheHeight) {
    m_toast->Popup("Done");
    m_timers.Tick(10);
    m_timers.Tick(10);
    m_parent.resize(900, 700);
    EXPECT_FLOAT_EQ(m_toast->Height(), 62);
    EXPECT_EQ(m_toast->width(), 900);
    EXPECT_EQ(m_toast->geometry().bottom(), 699);
}

TEST_F(ToastTest, AResizeWithoutAnAnimationCollapsesIt) {
    m_toast->Popup("Done");
    SlideToTheEnd();
    m_parent.resize(900, 700);
    EXPECT_FLOAT_EQ(m_toast->Height(), 2);
}

TEST_F(ToastTest, ItDocksItselfAtTheBottomAgain) {
    m_toast->Popup("Done");
    m_toast->SetAlign(Alignment::None);
    m_parent.resize(900, 700);
    m_toast->SetWidth(13500);
    EXPECT_EQ(m_toast->Align(), Alignment::Bottom);
    EXPECT_EQ(m_toast->geometry().bottom(), 699);
}

TEST_F(ToastTest, ItStaysAboveWhatIsDockedBeforeIt) {
    GroupBox parent;
    parent.resize(800, 600);
    auto* bar = new GroupBox(&parent);
    bar->SetAlign(Alignment::Bottom);
    bar->SetHeight(630);
    auto* toast = new Toast(&parent);
    testing::ShowActive(parent);
    toast->Popup("Done");
    for (int tick = 0; tick < 10; ++tick) {
        m_timers.Tick(10);
        EXPECT_EQ(toast->geometry().bottom() + 1, bar->geometry().top());
        EXPECT_EQ(bar->geometry(), QRect(0, 558, 800, 42));
    }
    bar->hide();
    EXPECT_EQ(toast->geometry().bottom(), 599);
}

TEST_F(ToastTest, AClickHidesItAndReachesNothingBehind) {
    QPushButton behind(&m_parent);
    behind.setGeometry(m_parent.rect());
    behind.show();
    PressCounter counter;
    behind.installEventFilter(&counter);
    m_parent.installEventFilter(&counter);
    m_toast->Popup("First");
    SlideToTheEnd();
    ASSERT_TRUE(Waits());
    const auto* message = testing::Find<Label>(*m_toast, "lblMessage");
    const QPoint at = message->mapTo(&m_parent, message->rect().center());
    QTest::mouseClick(m_parent.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    EXPECT_FALSE(m_toast->isVisible());
    EXPECT_TRUE(m_timers.Running().empty());
    EXPECT_EQ(counter.presses, 0);
    QTest::mouseClick(m_parent.windowHandle(), Qt::LeftButton, Qt::NoModifier, at);
    EXPECT_EQ(counter.presses, 1) << "the next click is for the button";
    m_toast->Popup("Second");
    SlideToTheEnd();
    EXPECT_TRUE(m_toast->isVisible());
    EXPECT_TRUE(Waits());
}

TEST_F(ToastTest, AClickDuringASlideHidesItForGood) {
    m_toast->Popup("First");
    m_timers.Tick(10);
    testing::Click(m_toast);
    SlideToTheEnd();
    EXPECT_FALSE(m_toast->isVisible());
    EXPECT_FALSE(Waits());
    m_toast->Popup("Second");
    SlideToTheEnd();
    m_timers.Tick(5000);
    m_timers.Tick(10);
    testing::Click(m_toast);
    SlideToTheEnd();
    EXPECT_FALSE(m_toast->isVisible());
    EXPECT_TRUE(m_timers.Running().empty());
}

TEST_F(ToastTest, ItsMarkAndTextStandOutInBothPalettes) {
    for (const bool dark : {false, true}) {
        Theme::Install(dark);
        m_toast->Popup("Done");
        SlideToTheEnd();
        const QImage picture = testing::Grab(*m_toast);
        const auto* mark = testing::Find<Control>(*m_toast, "icoMessage");
        EXPECT_GE(testing::ContrastOfIcon(picture, mark->geometry()), testing::GraphicContrast) << dark;
        EXPECT_GE(testing::ContrastOfIcon(picture, QRect(48, 0, 100, 48)), 4.5) << dark;
    }
    Theme::Install(false);
}

TEST_F(ToastTest, ItsShadowIsBlackAndTranslucent) {
    const auto* shadow = qobject_cast<QGraphicsDropShadowEffect*>(m_toast->graphicsEffect());
    ASSERT_NE(shadow, nullptr);
    EXPECT_EQ(shadow->color().rgb(), QColor(Qt::black).rgb());
    EXPECT_LT(shadow->color().alphaF(), 0.5);
}

TEST_F(ToastTest, IsOpenInADesigner) {
    SetInsideDesigner(true);
    GroupBox parent;
    parent.resize(800, 600);
    auto* toast = new Toast(&parent);
    testing::ShowActive(parent);
    EXPECT_TRUE(toast->isVisible());
    EXPECT_FLOAT_EQ(toast->Height(), 720);
    EXPECT_EQ(toast->Align(), Alignment::Bottom);
    SetInsideDesigner(false);
}

TEST_F(ToastTest, ItsTextIsItsAccessibleName) {
    m_toast->Popup("Successfully transferred 2 items");
    EXPECT_EQ(m_toast->accessibleName(), "Successfully transferred 2 items");
}

TEST_F(ToastTest, ItEndsWithItsParentInTheMiddleOfASlide) {
    auto parent = std::make_unique<GroupBox>();
    parent->resize(800, 600);
    auto* toast = new Toast(parent.get());
    parent->show();
    toast->Popup("Done");
    m_timers.Tick(10);
    parent.reset();
    EXPECT_EQ(m_timers.TickAll(), 0);
}

}  // namespace quellbrook
