#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/ListView.h"

#include <QTreeWidget>

#include <utility>
#include <vector>

namespace quellbrook::testing {
namespace {

// A column without width and a narrow one before the icon's.
class IconColumnTest : public ControlsTest {
protected:
    IconColumnTest() {
        m_list.SetIconSize(24, 1.4);
        m_list.AddColumn("select_field", "", 0);
        m_list.AddColumn("padding_left", "", 300);
        m_list.AddColumn("icon", "", 510);
        m_list.AddColumn("display_id", "ID", 3000);
        m_list.SetIconColumn(2);
        m_list.Move(0, 0, 9000, 6000);
        for (const char* key : {"1", "2", "3"}) m_list.AddRow(key, "unselected", {{}, {}, {QString("2026-") + key}});
        QObject::connect(&m_list, &ListView::RowToggled,
                         [this](int row, bool checked) { m_toggles.emplace_back(row, checked); });
        ShowActive(m_window);
    }

    QPoint BoxOf(int row) { return QPoint(20 + 17, row * m_list.RowHeight() + m_list.RowHeight() / 2); }
    QPoint NameOf(int row) { return QPoint(100, BoxOf(row).y()); }
    QRect IconCell(int row) { return QRect(20, row * m_list.RowHeight(), 34, m_list.RowHeight() - 1); }

    using Toggles = std::vector<std::pair<int, bool>>;

    ListView m_list{&m_window};
    Toggles m_toggles;
};

TEST_F(IconColumnTest, TheIconIsInItsColumn) {
    const QImage before = Grab(*m_list.Tree()->viewport());
    m_list.SetRowIcon(1, "selected");
    ServeEvents();
    const QImage after = Grab(*m_list.Tree()->viewport());
    EXPECT_NE(after.copy(IconCell(1)), before.copy(IconCell(1)));
    EXPECT_EQ(after.copy(IconCell(0)), before.copy(IconCell(0)));
    EXPECT_EQ(after.copy(0, 0, 20, 200), before.copy(0, 0, 20, 200));
    EXPECT_EQ(after.copy(54, 0, 200, 200), before.copy(54, 0, 200, 200));
    EXPECT_EQ(m_list.RowIcon(1), "selected");
    EXPECT_EQ(m_list.RowKey(1), "2");
    EXPECT_EQ(m_list.Tree()->topLevelItem(1)->data(2, Qt::AccessibleTextRole), "2026-2, checked");
}

TEST_F(IconColumnTest, InANarrowColumnTheIconStaysClearOfTheFocusRing) {
    ListView list(&m_window);
    list.SetIconSize(15, 1.7, 20);
    list.AddColumn("box", "", 320);
    list.AddColumn("name", "", 3000);
    list.AddRow("1", "selected", {{}, {QString("Evidence Room")}});
    list.Move(0, 6000, 9000, 2000);
    list.show();
    const QImage picture = Grab(*list.Tree()->viewport());
    const int y = list.RowHeight() / 2;
    constexpr int ring = 2, gap = 2;
    for (int x = 0; x < ring + gap; ++x)
        EXPECT_EQ(PixelAt(picture, QPoint(x, y)), Theme::Get(Theme::Color::Window)) << x;
    EXPECT_EQ(PixelAt(picture, QPoint(ring + gap + 1, y)), Theme::Get(Theme::Color::Strong));
}

TEST_F(IconColumnTest, SettingACheckMarkChangesTheIconAndRaisesNothing) {
    m_list.SetCheckBoxes(true);
    EXPECT_FALSE(m_list.RowChecked(0));
    m_list.SetRowChecked(0, true);
    EXPECT_TRUE(m_list.RowChecked(0));
    EXPECT_EQ(m_list.RowIcon(0), "selected");
    m_list.SetRowChecked(0, false);
    EXPECT_FALSE(m_list.RowChecked(0));
    EXPECT_EQ(m_list.RowIcon(0), "unselected");
    EXPECT_EQ(m_toggles, Toggles());
}

TEST_F(IconColumnTest, APressOnABoxTogglesIt) {
    m_list.SetCheckBoxes(true);
    Click(m_list.Tree()->viewport(), BoxOf(1));
    EXPECT_TRUE(m_list.RowChecked(1));
    Click(m_list.Tree()->viewport(), NameOf(2));
    RightClick(m_list.Tree()->viewport(), BoxOf(2));
    Click(m_list.Tree()->viewport(), BoxOf(5));
    EXPECT_EQ(m_toggles, (Toggles{{1, true}}));
}

TEST_F(IconColumnTest, ADoubleClickOnABoxTogglesItOnce) {
    m_list.SetCheckBoxes(true);
    DoubleClick(m_list.Tree()->viewport(), BoxOf(0));
    EXPECT_EQ(m_toggles, (Toggles{{0, true}}));
}

TEST_F(IconColumnTest, TheBoxReachesFromTheEdgeOfTheColumnBeforeToItsOwn) {
    const int y = BoxOf(1).y();
    for (const int x : {20, 37, 54}) EXPECT_EQ(m_list.HitTestIcon(QPoint(x, y)), 1) << x;
    for (const int x : {19, 55}) EXPECT_EQ(m_list.HitTestIcon(QPoint(x, y)), -1) << x;
    EXPECT_EQ(m_list.HitTestIcon(BoxOf(3)), -1) << "below the rows";
    m_list.SetCheckBoxes(true);
    Click(m_list.Tree()->viewport(), QPoint(54, y));
    EXPECT_EQ(m_toggles, (Toggles{{1, true}}));
}

TEST_F(IconColumnTest, TypingSearchesTheColumnThatWasSet) {
    m_list.SetSearchColumn(3);
    m_list.setFocus();
    testing::Type(m_list.Tree(), "2026-3");
    EXPECT_EQ(m_list.CurrentRow(), 2);
}

TEST_F(IconColumnTest, BoldTextIsMeasuredInItsOwnWeight) {
    EXPECT_GT(m_list.TextWidth("2026-0431, 2026-0417", true), m_list.TextWidth("2026-0431, 2026-0417"));
}

TEST_F(IconColumnTest, SpaceTogglesTheCurrentRow) {
    m_list.SetCheckBoxes(true);
    m_list.setFocus();
    m_list.SetCurrentRow(2);
    Press(Qt::Key_Space);
    Press(Qt::Key_Up);
    Press(Qt::Key_Space);
    Press(Qt::Key_Space);
    EXPECT_EQ(m_toggles, (Toggles{{2, true}, {1, true}, {1, false}}));
}

// As on X11, where not every repetition of a held key is marked.
TEST_F(IconColumnTest, AHeldSpaceTogglesOnce) {
    m_list.SetCheckBoxes(true);
    m_list.SetCurrentRow(2);
    const auto send = [this](QEvent::Type type, quint64 time) {
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier);
        event.setTimestamp(time);
        QApplication::sendEvent(m_list.Tree(), &event);
    };
    send(QEvent::KeyPress, 4500);
    send(QEvent::KeyRelease, 5000);
    send(QEvent::KeyPress, 5000);
    EXPECT_EQ(m_toggles, (Toggles{{2, true}}));
    send(QEvent::KeyRelease, 5040);
    send(QEvent::KeyPress, 5200);
    EXPECT_EQ(m_toggles, (Toggles{{2, true}, {2, false}}));
}

TEST_F(IconColumnTest, WithoutBoxesNothingIsToggled) {
    m_list.setFocus();
    Click(m_list.Tree()->viewport(), BoxOf(1));
    Press(Qt::Key_Space);
    EXPECT_EQ(m_toggles, Toggles());
    EXPECT_FALSE(m_list.RowChecked(1));
}

}  // namespace
}  // namespace quellbrook::testing
