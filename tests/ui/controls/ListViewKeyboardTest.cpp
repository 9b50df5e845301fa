#include "tests/support/ui/Tooltip.h"
#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/ListView.h"
#include "ui/platform/Strings.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTreeWidget>

#include <functional>

namespace quellbrook::testing {
namespace {

// Calls a function for each event of a widget.
class EventWatch : public QObject {
public:
    EventWatch(QWidget* widget, std::function<void(QEvent&)> look) : m_look(std::move(look)) {
        widget->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        m_look(*event);
        return false;
    }

private:
    std::function<void(QEvent&)> m_look;
};

// A list of names that is wider than its columns, below a widget that can take the focus.
class ListViewKeyboardTest : public ControlsTest {
protected:
    ListViewKeyboardTest() {
        m_before.setFocusPolicy(Qt::StrongFocus);
        m_before.setGeometry(0, 0, 100, 30);
        m_list.SetIconSize(30, 1.2);
        m_list.AddColumn("icon", "", ToTwips(41));
        m_list.AddColumn("name", "Name", ToTwips(160));
        m_list.AddColumn("type", "Type", ToTwips(100));
        m_list.Move(0, ToTwips(100), ToTwips(700), ToTwips(300));
        for (const char* name : {"Aisle 1", "Bin 1", "Bin 2", "Cage"}) AddRow(name);
        m_list.ClearSelection();
        ShowActive(m_window);
    }

    void AddRow(const QString& name) { m_list.AddRow("L" + name, "location", {{name}, {"Location", true}}); }
    QRect RectOf(int row) { return Tree()->visualItemRect(Tree()->topLevelItem(row)); }
    QTreeWidget* Tree() { return m_list.Tree(); }
    QWidget* Viewport() { return Tree()->viewport(); }
    void ClickRow(int row) { Click(Viewport(), RectOf(row).center()); }
    QColor Ground(int row, int x) { return PixelAt(Grab(*Viewport()), QPoint(x, RectOf(row).top() + 4)); }
    void EnterByTab() {
        m_before.setFocus();
        Press(Qt::Key_Tab);
        ASSERT_TRUE(Tree()->hasFocus());
    }
    QWidget m_before{&m_window};
    ListView m_list{&m_window};
};

TEST_F(ListViewKeyboardTest, ASelectionIsRepaintedToTheRightOfTheLastColumn) {
    ClickRow(0);
    ServeEvents();
    QRegion painted;
    const EventWatch watch(Viewport(), [&](QEvent& event) {
        if (event.type() == QEvent::Paint) painted += static_cast<QPaintEvent&>(event).region();
    });
    const int right = Viewport()->width() - 1;
    ASSERT_GT(right, 320) << "the columns end before the viewport";
    // Row 1 is neither the current row nor the one before, which Qt repaints anyway.
    const auto wasPainted = [&] { return painted.contains(QPoint(right, RectOf(1).center().y())); };
    Click(Viewport(), RectOf(2).center(), Qt::ShiftModifier);
    ServeEvents();
    ASSERT_TRUE(m_list.RowSelected(1));
    EXPECT_TRUE(wasPainted()) << "selected";
    painted = QRegion();
    ClickRow(3);
    ServeEvents();
    ASSERT_FALSE(m_list.RowSelected(1));
    EXPECT_TRUE(wasPainted()) << "no longer selected";
}

TEST_F(ListViewKeyboardTest, AListThatTabEntersHasARingUntilARowHasIt) {
    const QColor ring = Theme::Get(Theme::Color::Link);
    const auto ringAround = [&] { return PixelAt(Grab(*Viewport()), QPoint(300, Viewport()->height() - 1)) == ring; };
    EXPECT_FALSE(ringAround());
    EnterByTab();
    EXPECT_TRUE(ringAround());
    Press(Qt::Key_Down);
    EXPECT_FALSE(ringAround());
    EXPECT_EQ(m_list.CurrentRow(), 0);
    m_list.ClearSelection();
    EXPECT_TRUE(ringAround()) << "a list that is filled again";
    m_before.setFocus();
    EXPECT_FALSE(ringAround());
    Tree()->setFocus(Qt::MouseFocusReason);
    EXPECT_FALSE(ringAround());
}

TEST_F(ListViewKeyboardTest, TypingGoesToTheRowWithThatName) {
    std::vector<int> reached;
    QObject::connect(&m_list, &ListView::CurrentRowMovedByKeyboard, [&](int row) { reached.push_back(row); });
    EnterByTab();
    Type(Tree(), "b");
    EXPECT_TRUE(m_list.RowSelected(1));
    Type(Tree(), "in 2");
    EXPECT_EQ(m_list.CurrentRow(), 2);
    EXPECT_TRUE(m_list.RowSelected(2));
    EXPECT_FALSE(m_list.RowSelected(1));
    EXPECT_EQ(reached, (std::vector<int>{1, 2}));
}

TEST_F(ListViewKeyboardTest, TypingTheNameOfTheFirstOrLastRowFindsItInAnUntouchedList) {
    for (const auto& [typed, row] : {std::pair("a", 0), {"c", 3}}) {
        ListView list(&m_window);
        list.AddColumn("icon", "", 600);
        list.AddColumn("name", "Name", 2400);
        for (const char* name : {"Aisle 1", "Bin 1", "Bin 2", "Cage"}) list.AddRow(name, "location", {{name}});
        Type(list.Tree(), typed);
        EXPECT_EQ(list.CurrentRow(), row);
        EXPECT_TRUE(list.RowSelected(row));
    }
}

TEST_F(ListViewKeyboardTest, TypingWhatNoRowBeginsWithSelectsNothing) {
    EnterByTab();
    Type(Tree(), "z");
    EXPECT_EQ(m_list.CurrentRow(), -1);
    m_list.ClearRows();
    Type(Tree(), "a");
    EXPECT_EQ(m_list.CurrentRow(), -1);
}

TEST_F(ListViewKeyboardTest, ATextThatIsCutOffIsATooltip) {
    const QString name = "Oversize evidence, long guns and bicycles <east>";
    AddRow(name);
    const auto tooltipOf = [&](int row) { return TooltipAt(Viewport(), QPoint(100, RectOf(row).center().y())); };
    EXPECT_EQ(tooltipOf(4), PlainTooltip(name));
    EXPECT_EQ(tooltipOf(0), "");
    EXPECT_EQ(TooltipAt(Viewport(), QPoint(100, 290)), "") << "below the rows";
    m_list.SetCellTooltip(0, 1, "where the aisle is");
    EXPECT_EQ(tooltipOf(0), PlainTooltip("where the aisle is"));
}

TEST_F(ListViewKeyboardTest, ShiftF10IsTheMenuKey) {
    int menus = 0;
    const EventWatch watch(Tree(), [&](QEvent& event) {
        if (event.type() != QEvent::ContextMenu) return;
        ++menus;
        EXPECT_EQ(static_cast<QContextMenuEvent&>(event).reason(), QContextMenuEvent::Keyboard);
    });
    EnterByTab();
    Press(Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(menus, 1);
    Press(Qt::Key_F10);
    Press(Qt::Key_F9, Qt::ShiftModifier);
    EXPECT_EQ(menus, 1);
}

TEST_F(ListViewKeyboardTest, AMenuBelongsToTheCurrentRowOrTheFirstSelectedOne) {
    const auto rectInList = [&](int row) { return RectOf(row).translated(Viewport()->mapTo(&m_list, QPoint())); };
    EXPECT_TRUE(m_list.MenuRow().isEmpty());
    ClickRow(2);
    Click(Viewport(), RectOf(1).center(), Qt::ControlModifier);
    EXPECT_EQ(m_list.MenuRow(), rectInList(1));
    Click(Viewport(), RectOf(3).center(), Qt::ControlModifier);
    Click(Viewport(), RectOf(3).center(), Qt::ControlModifier);
    ASSERT_EQ(m_list.CurrentRow(), 3);
    ASSERT_FALSE(m_list.RowSelected(3));
    EXPECT_EQ(m_list.MenuRow(), rectInList(1));
}

TEST_F(ListViewKeyboardTest, SelectedRowsKeepTheirColorWhileAMenuIsOpen) {
    ClickRow(0);
    Click(Viewport(), RectOf(1).center(), Qt::ControlModifier);
    const QColor highlight = Theme::Get(Theme::Color::Highlight);
    ASSERT_EQ(Ground(0, 500), highlight);
    QMenu menu;
    menu.addAction("Open");
    menu.popup(m_window.mapToGlobal(QPoint(10, 10)));
    Press(&menu, Qt::Key_Down);
    menu.setFocus();
    ServeEvents();
    EXPECT_FALSE(Tree()->hasFocus());
    EXPECT_EQ(Ground(0, 500), highlight);
    EXPECT_EQ(Ground(1, 500), highlight);
    menu.close();
    EXPECT_EQ(Ground(0, 500), highlight);
    m_before.setFocus();
    EXPECT_NE(Ground(0, 500), highlight);
}

TEST_F(ListViewKeyboardTest, SelectionAndScrollPositionCanBeRestored) {
    for (int i = 0; i < 20; ++i) AddRow("Shelf " + QString::number(i));
    ClickRow(1);
    Click(Viewport(), RectOf(3).center(), Qt::ControlModifier);
    Tree()->verticalScrollBar()->setValue(70);
    const ListView::Place place = m_list.CurrentPlace();
    m_list.ClearSelection();
    m_list.ClearRows();
    for (const char* name : {"Attic", "Aisle 1", "Bin 1", "Cage"}) AddRow(name);
    for (int i = 0; i < 20; ++i) AddRow("Shelf " + QString::number(i));
    m_list.Restore(place);
    EXPECT_EQ(Tree()->verticalScrollBar()->value(), 70);
    EXPECT_TRUE(m_list.RowSelected(2)) << "Bin 1";
    EXPECT_TRUE(m_list.RowSelected(3)) << "Cage";
    EXPECT_EQ(Tree()->selectedItems().size(), 2);
    EXPECT_EQ(m_list.CurrentRow(), 3);
}

}  // namespace
}  // namespace quellbrook::testing
