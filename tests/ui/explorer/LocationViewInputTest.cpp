#include "tests/ui/explorer/LocationViewTest.h"

#include "ui/platform/MousePointer.h"

#include <QContextMenuEvent>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(LocationViewTest, SelectedItemsAreBothKindsInTheOrderOfTheRows) {
    Show(m_shelf);
    ClickRow("ABC 123 (OR)");
    ClickRow("Bin 1", Qt::ControlModifier);
    ClickRow("E-1", Qt::ControlModifier);
    EXPECT_THAT(SelectedNames(), ElementsAre("Bin 1", "E-1", "ABC 123 (OR)"));
    const auto selected = m_view->SelectedItems();
    EXPECT_NE(std::dynamic_pointer_cast<StorageLocation>(selected->At(0)), nullptr);
    EXPECT_EQ(std::dynamic_pointer_cast<StoredItem>(selected->At(2))->ItemType(), StoredItemTypes::vehicle);
}

TEST_F(LocationViewTest, SelectAllSelectsEveryRow) {
    Show(m_shelf);
    m_view->SelectAll();
    EXPECT_EQ(m_view->SelectedItems()->Count(), 5);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(LocationViewTest, ControlAInTheListSelectsEveryRow) {
    Show(m_shelf);
    Press(m_list->Tree(), Qt::Key_A);
    EXPECT_NE(m_view->SelectedItems()->Count(), 5);
    std::vector<int> pointers;
    QObject::connect(m_list->Tree(), &QTreeWidget::itemSelectionChanged, m_list,
                     [&] { pointers.push_back(GetMousePointer()); });
    Press(m_list->Tree(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(m_view->SelectedItems()->Count(), 5);
    EXPECT_THAT(pointers, ::testing::Each(MousePointer::Default));
}

TEST_F(LocationViewTest, ADoubleClickOpensTheRow) {
    Show(m_shelf);
    DoubleClick(Viewport(), CenterOf("E-1"));
    DoubleClick(Viewport(), CenterOf("Bin 1"));
    EXPECT_THAT(m_opened, ElementsAre("E-1", "Bin 1"));
}

TEST_F(LocationViewTest, ADoubleClickOnBlankSpaceOpensNothing) {
    Show(m_shelf);
    ClickRow("E-1");
    DoubleClick(Viewport(), blank);
    EXPECT_THAT(m_opened, IsEmpty());
}

TEST_F(LocationViewTest, ARightDoubleClickOpensNothing) {
    Show(m_shelf);
    QTest::mouseClick(Viewport(), Qt::RightButton, Qt::NoModifier, CenterOf("E-1"));
    QTest::mouseDClick(Viewport(), Qt::RightButton, Qt::NoModifier, CenterOf("E-1"));
    EXPECT_THAT(m_opened, IsEmpty());
}

TEST_F(LocationViewTest, EnterOpensTheRowThatTheKeysOrTheMouseHaveReached) {
    Show(m_shelf);
    ClickRow("E-1");
    Press(m_list->Tree(), Qt::Key_Return);
    EXPECT_THAT(m_opened, ElementsAre("E-1"));
    Press(m_list->Tree(), Qt::Key_Down);
    Press(m_list->Tree(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_THAT(m_opened, ElementsAre("E-1", "E-2"));
}

TEST_F(LocationViewTest, EnterAfterARightClickOpensOnlyWhatTheKeysReachNext) {
    Show(m_shelf);
    RightClick(Viewport(), CenterOf("E-1"));
    Press(m_list->Tree(), Qt::Key_Return);
    EXPECT_THAT(m_opened, IsEmpty());
    Press(m_list->Tree(), Qt::Key_Down);
    Press(m_list->Tree(), Qt::Key_Return);
    EXPECT_THAT(m_opened, ElementsAre("E-2"));
}

TEST_F(LocationViewTest, TheFirstRowCanBeOpenedByKeyboardAlone) {
    Show(m_shelf);
    m_list->Tree()->setFocus(Qt::TabFocusReason);
    Press(m_list->Tree(), Qt::Key_Down);
    EXPECT_THAT(SelectedNames(), ElementsAre("Bin 1"));
    Press(m_list->Tree(), Qt::Key_Return);
    EXPECT_THAT(m_opened, ElementsAre("Bin 1"));
}

TEST_F(LocationViewTest, EnterOpensNothingRightAfterAReload) {
    Show(m_shelf);
    ClickRow("Bin 1");
    m_view->Refresh();
    Press(m_list->Tree(), Qt::Key_Return);
    EXPECT_THAT(m_opened, IsEmpty());
}

TEST_F(LocationViewTest, AFailureToOpenIsShown) {
    Show(m_shelf);
    m_openError = Error(4711, "Owner.Open", "The record is locked.");
    DoubleClick(Viewport(), CenterOf("E-1"));
    EXPECT_THAT(m_screen.TakeMessages(), ElementsAre(RecordingScreen::Message{
                                             "Unexpected error loading item: The record is locked.", 16, "Error"}));
}

TEST_F(LocationViewTest, ARightClickOnASelectedRowKeepsTheSelection) {
    Show(m_shelf);
    ClickRow("E-1");
    ClickRow("E-2", Qt::ControlModifier);
    RightClick(Viewport(), CenterOf("E-1"));
    EXPECT_THAT(SelectedNames(), ElementsAre("E-1", "E-2"));
    EXPECT_EQ(m_menusAsked, 1);
}

TEST_F(LocationViewTest, ARightClickOnAnotherRowSelectsIt) {
    Show(m_shelf);
    ClickRow("E-1");
    ClickRow("E-2", Qt::ControlModifier);
    RightClick(Viewport(), CenterOf("Bin 1"));
    EXPECT_THAT(SelectedNames(), ElementsAre("Bin 1"));
    EXPECT_EQ(m_menusAsked, 1);
}

TEST_F(LocationViewTest, ARightClickOnBlankSpaceClearsTheSelectionAndRequestsAMenu) {
    Show(m_shelf);
    ClickRow("E-1");
    RightClick(Viewport(), blank);
    EXPECT_THAT(SelectedNames(), IsEmpty());
    EXPECT_EQ(m_list->CurrentRow(), -1);
    EXPECT_EQ(m_menusAsked, 1);
}

TEST_F(LocationViewTest, ALeftClickRequestsNoMenu) {
    Show(m_shelf);
    ClickRow("E-1");
    EXPECT_EQ(m_menusAsked, 0);
}

TEST_F(LocationViewTest, TheMenuOfTheParentOpensWithItsDefaultEntry) {
    Show(m_shelf);
    QMenu menu;
    m_menu = &menu;
    m_defaultItem = menu.addAction("Open");
    bool seen = false;
    WhileMenuOpen([&](QMenu& open) {
        seen = true;
        EXPECT_EQ(open.defaultAction(), m_defaultItem);
    });
    RightClick(Viewport(), CenterOf("E-1"));
    EXPECT_TRUE(seen);
}

TEST_F(LocationViewTest, TheMenuKeysOpenTheMenuBelowTheSelectedRow) {
    Show(m_shelf);
    QMenu menu;
    m_menu = &menu;
    menu.addAction("Open");
    const auto positionOf = [&](const std::function<void()>& press) {
        QPoint at;
        WhileMenuOpen([&](QMenu& open) { at = Viewport()->mapFromGlobal(open.pos()); });
        press();
        return at;
    };
    const auto menuKey = [&] {
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(10, 10), QPoint(10, 10));
        QCoreApplication::sendEvent(m_list->Tree(), &key);
    };
    QCursor::setPos(m_window->mapToGlobal(QPoint(900, 450)));
    EXPECT_EQ(positionOf(menuKey).x(), 32) << "nothing is selected";
    ClickRow("E-2");
    const QRect row = m_list->Tree()->visualItemRect(m_list->Tree()->topLevelItem(RowOf("E-2")));
    EXPECT_EQ(positionOf(menuKey), QPoint(32, row.bottom() + 1));
    EXPECT_EQ(positionOf([&] { Press(m_list->Tree(), Qt::Key_F10, Qt::ShiftModifier); }), QPoint(32, row.bottom() + 1));
}

TEST_F(LocationViewTest, TheMenuOfARowOutOfSightOpensAtTheEdgeOfTheList) {
    for (int i = 0; i < 40; ++i) AddItem("X-" + std::to_string(i), m_shelf);
    Show(m_shelf);
    QMenu menu;
    m_menu = &menu;
    menu.addAction("Open");
    const auto menuTop = [&] {
        int top = 0;
        WhileMenuOpen([&](QMenu& open) { top = m_list->mapFromGlobal(open.pos()).y(); });
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(10, 10), QPoint(10, 10));
        QCoreApplication::sendEvent(m_list->Tree(), &key);
        return top;
    };
    m_list->SetCurrentRow(m_list->RowCount() - 1);
    m_list->Tree()->scrollToTop();
    EXPECT_EQ(menuTop(), m_list->height());
    m_list->SetCurrentRow(0);
    m_list->Tree()->scrollToBottom();
    EXPECT_EQ(menuTop(), 0);
}

TEST_F(LocationViewTest, TheMouseOpensTheMenuAtThePointer) {
    Show(m_shelf);
    QMenu menu;
    m_menu = &menu;
    menu.addAction("Open");
    const QPoint at = Viewport()->mapToGlobal(CenterOf("E-2"));
    QCursor::setPos(at);
    WhileMenuOpen([&](QMenu& open) { EXPECT_EQ(open.pos(), at); });
    RightClick(Viewport(), CenterOf("E-2"));
}

TEST_F(LocationViewTest, TheMenuKeyRequestsAMenuOnce) {
    Show(m_shelf);
    ClickRow("E-1");
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(10, 10), QPoint(10, 10));
    QCoreApplication::sendEvent(m_list->Tree(), &key);
    EXPECT_EQ(m_menusAsked, 1);
    EXPECT_THAT(SelectedNames(), ElementsAre("E-1"));
    QContextMenuEvent mouse(QContextMenuEvent::Mouse, QPoint(10, 10), QPoint(10, 10));
    QCoreApplication::sendEvent(Viewport(), &mouse);
    EXPECT_EQ(m_menusAsked, 1);
    EXPECT_TRUE(mouse.isAccepted());
}

}  // namespace
}  // namespace quellbrook::testing
