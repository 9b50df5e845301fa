#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatTabs.h"

#include <QTabBar>

namespace quellbrook::testing {
namespace {

class FlatTabsTest : public ControlsTest {
protected:
    FlatTabsTest() {
        m_details = m_tabs.AddTab("Details");
        m_custody = m_tabs.AddTab("Chain of Custody & more");
        m_tabs.Move(0, 0, 9000, 6000);
    }

    void ClickAt(const QPoint& at) {
        QWidget* widget = m_tabs.childAt(at) ? m_tabs.childAt(at) : &m_tabs;
        Click(widget, widget->mapFrom(&m_tabs, at));
    }

    FlatTabs m_tabs{&m_window};
    FlatTabPage* m_details;
    FlatTabPage* m_custody;
};

TEST_F(FlatTabsTest, TheFirstIsSelectedAndOnlyItsPageShown) {
    EXPECT_EQ(m_tabs.Count(), 2);
    EXPECT_EQ(m_tabs.SelectedIndex(), 0);
    EXPECT_TRUE(m_details->IsShown());
    EXPECT_FALSE(m_custody->IsShown());
    EXPECT_EQ(m_tabs.Caption(1), "Chain of Custody & more");
}

TEST_F(FlatTabsTest, SelectingShowsTheOtherPage) {
    m_tabs.SetSelectedIndex(1);
    m_tabs.SetSelectedIndex(1);
    EXPECT_FALSE(m_details->IsShown());
    EXPECT_TRUE(m_custody->IsShown());
    EXPECT_TRUE(m_tabs.setProperty("SelectedIndex", 0));
    EXPECT_EQ(m_tabs.SelectedIndex(), 0);
}

TEST_F(FlatTabsTest, AnIndexOutOfRangeRaisesAnError) {
    EXPECT_THROW(m_tabs.SetSelectedIndex(2), Error);
    EXPECT_THROW(m_tabs.SetSelectedIndex(-1), Error);
    EXPECT_EQ(m_tabs.SelectedIndex(), 0);
}

TEST_F(FlatTabsTest, PagesAreBelowTheCaptionsAndALoneChildFillsItsPage) {
    PlainControl child(m_custody);
    m_tabs.Move(0, 0, 6000, 4500);
    EXPECT_EQ(m_custody->geometry(), QRect(0, 40, 400, 260));
    EXPECT_EQ(child.geometry(), QRect(0, 0, 400, 260));
}

TEST_F(FlatTabsTest, ClicksSelect) {
    ShowActive(m_window);
    ClickAt(m_tabs.TabRect(1).center());
    EXPECT_EQ(m_tabs.SelectedIndex(), 1);
    ClickAt(QPoint(m_tabs.TabRect(1).right() + 40, 20));
    EXPECT_EQ(m_tabs.SelectedIndex(), 1);
    RightClick(m_tabs.Bar(), m_tabs.Bar()->tabRect(0).center());
    EXPECT_EQ(m_tabs.SelectedIndex(), 1);
}

TEST_F(FlatTabsTest, ArrowsHomeAndEndSelect) {
    ShowActive(m_window);
    m_tabs.setFocus();
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    EXPECT_EQ(m_tabs.SelectedIndex(), 1);
    Press(Qt::Key_Left);
    Press(Qt::Key_Left);
    EXPECT_EQ(m_tabs.SelectedIndex(), 0);
    Press(Qt::Key_End);
    EXPECT_EQ(m_tabs.SelectedIndex(), 1);
    Press(Qt::Key_Home);
    EXPECT_EQ(m_tabs.SelectedIndex(), 0);
}

TEST_F(FlatTabsTest, TheWheelSelectsNothing) {
    ShowActive(m_window);
    Turn(m_tabs.Bar(), -120);
    EXPECT_EQ(m_tabs.SelectedIndex(), 0);
}

TEST_F(FlatTabsTest, TheIndentMovesTheFirstTab) {
    EXPECT_EQ(m_tabs.TabRect(0).left(), Theme::Margin);
    m_tabs.SetIndent(ToTwips(4));
    EXPECT_EQ(m_tabs.TabRect(0).left(), 4);
}

TEST_F(FlatTabsTest, TheSelectedOneIsUnderlined) {
    const QImage image = Grab(m_tabs);
    const QColor accent = Theme::Get(Theme::Color::Accent);
    EXPECT_EQ(PixelAt(image, QPoint(m_tabs.TabRect(0).center().x(), 38)), accent);
    EXPECT_NE(PixelAt(image, QPoint(m_tabs.TabRect(1).center().x(), 38)), accent);
    m_tabs.setEnabled(false);
    EXPECT_EQ(PixelAt(Grab(m_tabs), QPoint(m_tabs.TabRect(0).center().x(), 38)), Theme::Get(Theme::Color::FieldBorder));
}

TEST(FlatTabsEmpty, CanBeCreatedAndPaintedWithoutTabs) {
    FlatTabs tabs;
    EXPECT_EQ(tabs.Count(), 0);
    Grab(tabs);
    Press(tabs.Bar(), Qt::Key_Right);
    Press(tabs.Bar(), Qt::Key_End);
    EXPECT_EQ(tabs.SelectedIndex(), 0);
}

}  // namespace
}  // namespace quellbrook::testing
