#include "tests/support/ui/OpenMenu.h"
#include "tests/ui/explorer/SearchResultListTest.h"

#include "ui/common/ViewHelpers.h"
#include "ui/style/Theme.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

namespace quellbrook::testing {
namespace {

TEST_F(SearchResultListTest, APixelOnARowsEdgeHitsNoRow) {
    m_list->SetItems(MakeItems(3));
    EXPECT_EQ(m_list->HitTestRow(ToTwips(300), ToTwips(99)), 0);
    EXPECT_EQ(m_list->HitTestRow(ToTwips(300), ToTwips(100)), -1);
    EXPECT_EQ(m_list->HitTestRow(ToTwips(300), ToTwips(101)), 1);
    EXPECT_EQ(m_list->HitTestRow(0, ToTwips(50)), -1);
    EXPECT_EQ(m_list->HitTestRow(Row(0).Right(), ToTwips(50)), -1);
}

TEST_F(SearchResultListTest, AClickSelectsAndOneBetweenRowsDoesNot) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    TrySetFocus(m_other);
    Click(Container(), CenterOfRow(2));
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(2));
    EXPECT_TRUE(m_list->hasFocus());
    EXPECT_EQ(HighlightedRow(), 2);
    Click(Container(), QPoint(300, RowPixels));
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(2));
}

TEST_F(SearchResultListTest, TheMiddleButtonSelectsNothing) {
    const auto items = MakeItems(3);
    m_list->SetItems(items);
    QTest::mouseClick(Container(), Qt::MiddleButton, Qt::NoModifier, CenterOfRow(2));
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(0));
}

TEST_F(SearchResultListTest, AKeyAtTheEndShowsAClippedSelectionInFull) {
    const auto items = MakeItems(4);
    m_list->SetItems(items);
    m_list->setFocus();
    Press(m_list, Qt::Key_End);
    SetHeightInRows(3.6);
    Container()->SetTop(0);
    Press(m_list, Qt::Key_Down);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(3));
    EXPECT_EQ(Container()->geometry().top() + Row(3).geometry().bottom() + 1, m_list->height());
}

TEST_F(SearchResultListTest, TheMouseOpensTheMenuAtThePointer) {
    m_list->SetItems(MakeItems(3));
    QMenu menu;
    menu.addAction("Open");
    QObject::connect(m_list, &SearchResultList::ItemContextMenu, m_list,
                     [&](QMenu*& shown, QAction*&) { shown = &menu; });
    const QPoint at = Container()->mapToGlobal(CenterOfRow(2));
    QCursor::setPos(at);
    WhileMenuOpen([&](QMenu& open) { EXPECT_EQ(open.pos(), at); });
    RightClick(Container(), CenterOfRow(2));
}

TEST_F(SearchResultListTest, AClickOnAFieldSelectsItsRow) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    Click(Find<Label>(Row(1), "lblID"));
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(1));
}

TEST_F(SearchResultListTest, ARightClickSelectsTheRowBeforeTheMenuOpens) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    StoredItemRef selected;
    int raised = 0;
    QObject::connect(m_list, &SearchResultList::ItemContextMenu, m_list, [&](QMenu*& menu, QAction*& defaultItem) {
        ++raised;
        EXPECT_EQ(menu, nullptr);
        EXPECT_EQ(defaultItem, nullptr);
        selected = m_list->SelectedItem();
    });
    RightClick(Container(), CenterOfRow(2));
    EXPECT_EQ(raised, 1);
    EXPECT_EQ(selected, items->ItemAt(2));
    Click(Container(), CenterOfRow(1));
    EXPECT_EQ(raised, 1);
    RightClick(Container(), QPoint(300, RowPixels));
    EXPECT_EQ(raised, 1);
}

TEST_F(SearchResultListTest, TheRowStaysHighlightedWhileItsMenuIsOpen) {
    m_list->SetItems(MakeItems(3));
    QMenu menu;
    QAction* open = menu.addAction("Open");
    QObject::connect(m_list, &SearchResultList::ItemContextMenu, m_list, [&](QMenu*& shown, QAction*& defaultItem) {
        shown = &menu;
        defaultItem = open;
    });
    int highlighted = -1;
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&] {
        QTimer::singleShot(0, &menu, [&] {
            highlighted = HighlightedRow();
            EXPECT_EQ(menu.defaultAction(), open);
            menu.close();
        });
    });
    RightClick(Container(), CenterOfRow(1));
    EXPECT_EQ(highlighted, 1);
    EXPECT_EQ(HighlightedRow(), 1);
}

TEST_F(SearchResultListTest, TheMenuKeysOpenTheMenuBelowTheSelectedRow) {
    m_list->SetItems(MakeItems(9));
    QMenu menu;
    menu.addAction("Open");
    QObject::connect(m_list, &SearchResultList::ItemContextMenu, m_list,
                     [&](QMenu*& shown, QAction*&) { shown = &menu; });
    std::vector<QPoint> positions;
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&] {
        QTimer::singleShot(0, &menu, [&] {
            positions.push_back(m_list->mapFromGlobal(menu.pos()));
            menu.close();
        });
    });
    QCursor::setPos(m_window.mapToGlobal(QPoint(700, 650)));
    Press(m_list, Qt::Key_Down);
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(10, 10), QPoint(10, 10));
    QCoreApplication::sendEvent(m_list, &key);
    Press(m_list, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(positions, (std::vector<QPoint>(2, QPoint(32, 2 * RowPixels))));
    QContextMenuEvent mouse(QContextMenuEvent::Mouse, QPoint(10, 10), QPoint(10, 10));
    QCoreApplication::sendEvent(m_list, &mouse);
    EXPECT_EQ(positions.size(), 2u);
}

TEST_F(SearchResultListTest, AScreenReaderFindsAListWithTheSelectedRow) {
    m_list->SetItems(MakeItems(9));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(m_list)->role(), QAccessible::List);
    QAccessibleInterface* row = QAccessible::queryAccessibleInterface(&Row(1));
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_TRUE(row->state().selectable);
    EXPECT_FALSE(row->state().selected);
    EXPECT_FALSE(row->state().focused);
    Press(m_list, Qt::Key_Down);
    EXPECT_TRUE(row->state().selected);
    EXPECT_TRUE(row->state().focused);
}

TEST_F(SearchResultListTest, WithoutTheFocusNoRowIsHighlightedButTheSelectionStays) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    Press(m_list, Qt::Key_Down);
    TrySetFocus(m_other);
    EXPECT_FALSE(m_list->hasFocus());
    EXPECT_EQ(HighlightedRow(), -1);
    m_list->setFocus();
    EXPECT_EQ(HighlightedRow(), 1);
    m_list->clearFocus();
    EXPECT_EQ(HighlightedRow(), -1);
    EXPECT_EQ(m_list->SelectedItem(), items->ItemAt(1));
}

TEST_F(SearchResultListTest, WithoutTheFocusTheSelectedRowIsGray) {
    const auto background = [this](int row) { return PixelAt(Grab(*Container()), {600, row * RowPixels + 50}); };
    m_list->SetItems(MakeItems(9));
    Press(m_list, Qt::Key_Down);
    TrySetFocus(m_other);
    EXPECT_EQ(background(0), Theme::Get(Theme::Color::Window));
    EXPECT_EQ(background(1), Theme::Get(Theme::Color::SelectedInactive));
    Bar()->SetValue(1);
    EXPECT_EQ(background(0), Theme::Get(Theme::Color::SelectedInactive));
    EXPECT_EQ(background(1), Theme::Get(Theme::Color::Window));
    m_list->setFocus();
    EXPECT_EQ(background(0), Theme::Get(Theme::Color::Highlight));
}

TEST_F(SearchResultListTest, AWindowInFrontDoesNotClearTheHighlight) {
    m_list->SetItems(MakeItems(3));
    QWidget front;
    QWidget field(&front);
    field.setFocusPolicy(Qt::StrongFocus);
    ShowActive(front);
    field.setFocus();
    EXPECT_FALSE(m_list->hasFocus());
    EXPECT_EQ(HighlightedRow(), 0);
    front.hide();
    ShowActive(m_window);
    EXPECT_EQ(HighlightedRow(), 0);
}

TEST_F(SearchResultListTest, DoubleClickAndBothEnterKeysRequestToOpen) {
    auto items = MakeItems(3);
    m_list->SetItems(items);
    std::vector<StoredItemRef> opened;
    QObject::connect(m_list, &SearchResultList::ItemOpenRequest, m_list,
                     [&](const StoredItemRef& item) { opened.push_back(item); });
    DoubleClick(Container(), CenterOfRow(2));
    Press(m_list, Qt::Key_Return);
    Press(m_list, Qt::Key_Enter, Qt::KeypadModifier);
    DoubleClick(Container(), QPoint(300, RowPixels));
    EXPECT_EQ(opened, std::vector<StoredItemRef>(3, items->ItemAt(2)));
}

TEST_F(SearchResultListTest, EnterInAnEmptyListOpensNothing) {
    m_list->SetItems(MakeItems(0));
    int raised = 0;
    QObject::connect(m_list, &SearchResultList::ItemOpenRequest, m_list, [&](const StoredItemRef&) { ++raised; });
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QCoreApplication::sendEvent(m_list, &enter);
    EXPECT_EQ(raised, 0);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(SearchResultListTest, TheListIsOneStopInTheTabOrder) {
    m_list->SetItems(MakeItems(9));
    EXPECT_EQ(TabOrder(m_window), (std::vector<std::string>{"list", "other"}));
    Press(m_list, Qt::Key_Tab);
    EXPECT_FALSE(m_list->hasFocus());
    EXPECT_EQ(HighlightedRow(), -1);
}

TEST_F(SearchResultListTest, ValidatingTheFirstRowRefusesLeftAndUpAndScrollsBack) {
    m_list->SetItems(MakeItems(9));
    Bar()->SetValue(2);
    for (const int key : {37, 38}) {
        Hold(key);
        EXPECT_TRUE(m_list->ValidateRow(0));
        EXPECT_FALSE(m_list->ValidateRow(1));
        EXPECT_FALSE(m_list->ValidateRow(3));
    }
    EXPECT_EQ(Bar()->Value(), 0);
    EXPECT_TRUE(m_list->ValidateRow(0));
    EXPECT_EQ(Bar()->Value(), 0);
}

TEST_F(SearchResultListTest, ValidatingTheLastRowRefusesRightAndDownAndScrollsOn) {
    m_list->SetItems(MakeItems(6));
    for (const int key : {39, 40}) {
        Hold(key);
        EXPECT_TRUE(m_list->ValidateRow(3));
        EXPECT_FALSE(m_list->ValidateRow(0));
    }
    EXPECT_EQ(Bar()->Value(), 2);
    EXPECT_TRUE(m_list->ValidateRow(3));
    EXPECT_EQ(Bar()->Value(), 2);
}

TEST_F(SearchResultListTest, WithoutAnArrowKeyTheFocusMayLeave) {
    m_list->SetItems(MakeItems(9));
    m_environment->isKeyDown = [](int) { return false; };
    EXPECT_FALSE(m_list->ValidateRow(0));
    EXPECT_FALSE(m_list->ValidateRow(3));
    EXPECT_EQ(Bar()->Value(), 0);
}

TEST_F(SearchResultListTest, TabIsRefusedWhileAnArrowWouldLeaveTheFirstRow) {
    m_list->SetItems(MakeItems(9));
    Hold(38);
    Press(m_list, Qt::Key_Tab);
    EXPECT_TRUE(m_list->hasFocus());
    Hold(0);
    Press(m_list, Qt::Key_Tab);
    EXPECT_FALSE(m_list->hasFocus());
}

}  // namespace
}  // namespace quellbrook::testing
