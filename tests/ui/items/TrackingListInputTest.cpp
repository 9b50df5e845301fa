#include "tests/ui/items/TrackingListTest.h"

namespace quellbrook::testing {
namespace {

TEST_F(TrackingListTest, TheFocusedRowIsTheSelectedOne) {
    const auto records = Records(3);
    m_list->SetRecords(records);
    TrySetFocus(m_other);
    EXPECT_EQ(m_list->SelectedItem(), nullptr);
    Row(1).setFocus();
    EXPECT_EQ(m_list->SelectedItem(), (*records)[1]);
    Click(&Row(2));
    EXPECT_EQ(m_list->SelectedItem(), (*records)[2]);
    EXPECT_EQ(Row(2).TabIndex(), 0);
}

TEST_F(TrackingListTest, TheFirstRowAndEachRowThatIsUsedGetTheFirstTabIndex) {
    Row(0).SetTabIndex(7);
    m_list->SetRecords(Records(3));
    EXPECT_EQ(Row(0).TabIndex(), 0);
    Row(1).SetTabIndex(7);
    Row(1).setFocus();
    EXPECT_EQ(Row(1).TabIndex(), 0);
    Row(2).SetTabIndex(7);
    MouseRelease(&Row(2), QPoint(20, 20));
    EXPECT_EQ(Row(2).TabIndex(), 0);
}

TEST_F(TrackingListTest, ARowIsSelectedInAnInactiveWindowToo) {
    const auto records = Records(3);
    m_list->SetRecords(records);
    Row(1).setFocus();
    QWidget front;
    ShowActive(front);
    EXPECT_EQ(m_list->SelectedItem(), (*records)[1]);
}

TEST_F(TrackingListTest, TheListIsOneStopInTheTabOrder) {
    m_list->SetRecords(Records(4));
    EXPECT_EQ(TabOrder(m_window), (std::vector<std::string>{"searchResult", "other"}));
    Row(2).setFocus();
    EXPECT_EQ(TabOrder(m_window), (std::vector<std::string>{"searchResult", "other"}));
    Press(&Row(2), Qt::Key_Tab);
    EXPECT_EQ(m_list->SelectedItem(), nullptr);
    Press(Qt::Key_Backtab);
    EXPECT_TRUE(Row(2).hasFocus());
}

TEST_F(TrackingListTest, ArrowKeysMoveThroughTheRowsButNotOutOfTheList) {
    m_list->SetRecords(Records(3));
    Row(0).setFocus();
    Press(Qt::Key_Down);
    EXPECT_TRUE(Row(1).hasFocus());
    Press(Qt::Key_Right);
    EXPECT_TRUE(Row(2).hasFocus());
    Press(Qt::Key_Down);
    EXPECT_TRUE(Row(2).hasFocus());
    Press(Qt::Key_Up, Qt::KeypadModifier);
    Press(Qt::Key_Left);
    EXPECT_TRUE(Row(0).hasFocus());
    Press(Qt::Key_Up);
    EXPECT_TRUE(Row(0).hasFocus());
}

TEST_F(TrackingListTest, HundredsOfArrowKeysAreNotAFocusLoop) {
    m_list->SetRecords(Records(2));
    Row(0).setFocus();
    for (int i = 0; i < 150; ++i) {
        Press(Qt::Key_Down);
        Press(Qt::Key_Up);
    }
    EXPECT_TRUE(Row(0).hasFocus());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(TrackingListTest, ValidationRefusesArrowsAtTheEnds) {
    m_list->SetRecords(Records(3));
    for (const int key : {37, 38}) {
        Hold(key);
        EXPECT_TRUE(m_list->ValidateRow(0));
        EXPECT_FALSE(m_list->ValidateRow(1));
        EXPECT_FALSE(m_list->ValidateRow(2));
    }
    for (const int key : {39, 40}) {
        Hold(key);
        EXPECT_FALSE(m_list->ValidateRow(0));
        EXPECT_FALSE(m_list->ValidateRow(1));
        EXPECT_TRUE(m_list->ValidateRow(2));
    }
}

TEST_F(TrackingListTest, TabIsRefusedWhileAnArrowIsHeldAtTheEnd) {
    m_list->SetRecords(Records(3));
    Row(2).setFocus();
    Hold(40);
    Press(Qt::Key_Tab);
    EXPECT_TRUE(Row(2).hasFocus());
    Hold(0);
    Press(Qt::Key_Tab);
    EXPECT_FALSE(Row(2).hasFocus());
}

TEST_F(TrackingListTest, AFocusedRowScrollsIntoViewByTheLeastMovement) {
    Show(Records(12));
    Row(4).setFocus();
    EXPECT_EQ(Bar()->Value(), 0);
    Row(5).setFocus();
    EXPECT_EQ(Bar()->Value(), 6 * 1140 - 400 * 15);
    Row(11).setFocus();
    EXPECT_EQ(Bar()->Value(), Bar()->Max());
    Row(8).setFocus();
    EXPECT_EQ(Bar()->Value(), Bar()->Max());
    Row(2).setFocus();
    EXPECT_EQ(Bar()->Value(), 2 * 1140);
    EXPECT_EQ(Container()->Top(), -2 * 1140);
}

TEST_F(TrackingListTest, ARowBeyondTheRangeBringsTheListToItsEnd) {
    Show(Records(60));
    Row(59).setFocus();
    EXPECT_EQ(Bar()->Value(), 32767);
}

TEST_F(TrackingListTest, APointOnAnEdgeHitsNoRow) {
    m_list->SetRecords(Records(3));
    EXPECT_EQ(m_list->RowAt(300, RowPixels - 1), 0);
    EXPECT_EQ(m_list->RowAt(300, RowPixels), -1);
    EXPECT_EQ(m_list->RowAt(300, RowPixels + 1), 1);
    EXPECT_EQ(m_list->RowAt(0, 10), -1);
    EXPECT_EQ(m_list->RowAt(Row(0).width(), 10), -1);
    EXPECT_EQ(m_list->RowAt(300, 3 * RowPixels + 5), -1);
}

TEST_F(TrackingListTest, TheRightButtonOverTheFocusedRowRequestsAMenu) {
    m_list->SetRecords(Records(3));
    QMenu menu;
    QAction* open = menu.addAction("Open");
    int raised = 0;
    QObject::connect(m_list, &TrackingList::ItemContextMenu, m_list, [&](QMenu*& shown, QAction*& defaultItem) {
        EXPECT_EQ(shown, nullptr);
        EXPECT_EQ(defaultItem, nullptr);
        ++raised;
        shown = &menu;
        defaultItem = open;
    });
    bool opened = false;
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&] {
        QTimer::singleShot(0, &menu, [&] {
            opened = menu.isVisible();
            EXPECT_EQ(menu.defaultAction(), open);
            menu.close();
        });
    });
    RightClick(Container(), QPoint(300, RowPixels));
    EXPECT_EQ(raised, 0);
    Row(1).setFocus();
    QTest::mouseRelease(Container(), Qt::RightButton, Qt::NoModifier, CenterOfRow(2));
    EXPECT_EQ(raised, 0);
    RightClick(Container(), CenterOfRow(1));
    EXPECT_EQ(raised, 1);
    EXPECT_TRUE(opened);
    RightClick(Find<Label>(Row(1), "lblTo"));
    EXPECT_EQ(raised, 2);
}

TEST_F(TrackingListTest, ADoubleClickRequestsToOpenTheRecord) {
    const auto records = Records(3);
    m_list->SetRecords(records);
    std::vector<std::shared_ptr<TrackingRecord>> opened;
    QObject::connect(m_list, &TrackingList::ItemOpenRequest, m_list,
                     [&](const std::shared_ptr<TrackingRecord>& record) { opened.push_back(record); });
    DoubleClick(Container(), CenterOfRow(1));
    DoubleClick(Container(), QPoint(300, RowPixels));
    DoubleClick(Find<Label>(Row(2), "lblTo"), QPoint(2, 2));
    EXPECT_EQ(opened, (std::vector{(*records)[1], (*records)[2]}));
}

TEST_F(TrackingListTest, TheWheelScrolls) {
    Show(Records(12));
    Turn(Container(), -120);
    EXPECT_EQ(Bar()->Value(), QApplication::wheelScrollLines() * 1140);
}

TEST_F(TrackingListTest, ShowsItsNameInADesigner) {
    SetInsideDesigner(true);
    TrackingList list;
    list.setObjectName("tracking");
    EXPECT_TRUE(Find<GroupBox>(list, "picPlaceholder")->IsShown());
    EXPECT_EQ(Find<Label>(list, "lblPlaceholder")->Caption(), "tracking");
    SetInsideDesigner(false);
    EXPECT_FALSE(Find<GroupBox>(*m_list, "picPlaceholder")->IsShown());
}

}  // namespace
}  // namespace quellbrook::testing
