#include "tests/ui/explorer/ExplorerWindowTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Line.h"
#include "ui/style/Theme.h"

#include <QScrollBar>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;

class EvidenceExplorerTest : public ExplorerWindowTest {};

TEST_F(EvidenceExplorerTest, IsCoveredAndWaitsUntilItsFirstDisplay) {
    Make();
    auto* cover = Find<GroupBox>(*m_explorer, "grpLoading");
    EXPECT_TRUE(cover->IsShown());
    EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
    std::vector<QString> captions;
    for (const auto* label : Find<GroupBox>(*cover, "grpMessage")->findChildren<Label*>())
        captions.push_back(label->Caption());
    EXPECT_THAT(captions,
                ElementsAre(QString("Starting up..."), QString("Please wait. This may take a few moments. ")));
    ShowActive(*m_window);
    EXPECT_FALSE(cover->IsShown());
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(EvidenceExplorerTest, BeginsWithTheFirstRoot) {
    Show();
    EXPECT_EQ(Title(), "Sign-In Locations");
    EXPECT_EQ(Subtitle(), "2 storage units, 0 items");
    EXPECT_EQ(m_list->RowCount(), 2);
    EXPECT_EQ(m_explorer->SelectedLocation()->LocationType(), StorageLocationTypes::Internal);
}

TEST_F(EvidenceExplorerTest, ANodeShowsItsLocation) {
    Show();
    ClickNode("Shelf A");
    EXPECT_EQ(Title(), "Shelf A");
    EXPECT_EQ(Subtitle(), "1 storage unit, 2 items");
    EXPECT_EQ(m_list->RowCount(), 3);
}

TEST_F(EvidenceExplorerTest, TheListAndCountsAreRefreshedWhenShownAgain) {
    Show(m_shelf);
    m_explorer->hide();
    m_database.AddCustodyRow(StoredItemTypes::Property, m_first, m_empty);
    m_explorer->show();
    EXPECT_EQ(m_list->RowCount(), 2);
    EXPECT_EQ(Subtitle(), "1 storage unit, 1 item");
}

TEST_F(EvidenceExplorerTest, TheSelectionIsKeptWhenTheExplorerIsShownAgain) {
    Show(m_shelf);
    ClickRow("E-2");
    m_explorer->hide();
    AddItem("E-3", m_shelf);
    m_explorer->show();
    EXPECT_EQ(m_list->RowCount(), 4);
    EXPECT_EQ(SelectedObjects(), std::vector<std::string>{"E-2"});
}

TEST_F(EvidenceExplorerTest, ALocationThatSomebodyElseHasDeletedGivesWayToItsContainer) {
    const std::function<void()> notices[] = {[] { GetStorageLocationStatic().Refresh(); },
                                             [this] { m_explorer->SelectedLocation()->Refresh(); }};
    for (const auto& notice : notices) {
        const int32_t crate = AddLocation("Crate", m_empty);
        Show(crate);
        m_explorer->hide();
        m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {crate});
        notice();
        m_explorer->show();
        EXPECT_TRUE(m_screen.TakeMessages().empty());
        EXPECT_TRUE(TakeUnexpected().empty());
        EXPECT_EQ(Title(), "Empty Shelf");
        EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_empty);
        EXPECT_EQ(m_view->Location()->ID(), m_empty);
    }
}

TEST_F(EvidenceExplorerTest, OneOfEachHasTheSingularOfBothWords) {
    const int32_t room = AddLocation("Room");
    AddLocation("Locker", room);
    AddItem("E-9", room);
    Show(room);
    EXPECT_EQ(Subtitle(), "1 storage unit, 1 item");
}

TEST_F(EvidenceExplorerTest, DisabledUnitsCountButAreNotListed) {
    const int32_t room = AddLocation("Room");
    AddLocation("Closed Locker", room, false);
    AddLocation("Locker", room);
    Show(room);
    EXPECT_EQ(Subtitle(), "2 storage units, 0 items");
    EXPECT_EQ(m_list->RowCount(), 1);
}

TEST_F(EvidenceExplorerTest, ThousandsAreSeparated) {
    const int32_t room = AddLocation("Room");
    m_database.Execute("BEGIN");
    for (int i = 0; i < 1204; ++i) AddItem("N-" + std::to_string(i), room);
    m_database.Execute("COMMIT");
    Show(room);
    EXPECT_EQ(Subtitle(), "0 storage units, 1,204 items");
}

TEST_F(EvidenceExplorerTest, TheHeadingShowsThatNothingIsSelected) {
    Show(m_shelf);
    m_explorer->SetSelectedLocation(nullptr);
    EXPECT_EQ(Title(), "Evidence Locations");
    EXPECT_EQ(Subtitle(), "Select a location on the left.");
    EXPECT_EQ(m_view->Location(), nullptr);
    EXPECT_TRUE(m_view->IsShown());
    EXPECT_EQ(m_list->RowCount(), 0);
    EXPECT_EQ(m_explorer->SelectedLocation(), nullptr);
}

TEST_F(EvidenceExplorerTest, ComingBackOnShowReadsTheContentsAgain) {
    Show(m_shelf);
    AddItem("E-9", m_shelf);
    m_explorer->hide();
    EXPECT_EQ(m_list->RowCount(), 3);
    m_explorer->show();
    EXPECT_EQ(m_list->RowCount(), 4);
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_shelf);
}

TEST_F(EvidenceExplorerTest, ASubLocationIsEnteredByDoubleClick) {
    Show(m_shelf);
    DoubleClick(m_list->Tree()->viewport(), RowCenter("Bin 1"));
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_bin);
    EXPECT_EQ(m_view->Location()->ID(), m_bin);
    EXPECT_EQ(Title(), "Bin 1");
    EXPECT_EQ(m_widget->currentItem()->text(0), "Bin 1");
    EXPECT_TRUE(m_widget->hasFocus());
}

TEST_F(EvidenceExplorerTest, AnItemOpensInItsView) {
    Show(m_shelf);
    DoubleClick(m_list->Tree()->viewport(), RowCenter("E-2"));
    const auto stores = GetStores();
    EXPECT_EQ(stores.View->ViewName(), ViewNames::ItemView);
    const auto item = ToObject<StoredItem>(stores.View->ViewParameters()->Value("Item"));
    EXPECT_EQ(item->ID(), m_second);
}

TEST_F(EvidenceExplorerTest, OpeningAnythingElseIsIgnored) {
    Show(m_shelf);
    m_explorer->OpenItemRequest(std::make_shared<ObjectVector>());
    m_explorer->OpenItemRequest(nullptr);
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_shelf);
    EXPECT_EQ(GetStores().View->ViewName(), "");
}

TEST_F(EvidenceExplorerTest, ControlsAreLaidOut) {
    Show(m_shelf);
    for (const QSize size : {QSize(1280, 760), QSize(1920, 1040)}) {
        m_window->resize(size);
        m_explorer->resize(size);
        const int width = size.width(), height = size.height();
        const auto rectOf = [this](const char* name) {
            const QWidget* control = m_explorer->findChild<QWidget*>(name, Qt::FindDirectChildrenOnly);
            if (!control) control = Find(*m_explorer, name);
            return QRect(control->mapTo(m_explorer, QPoint(0, 0)), control->size());
        };
        EXPECT_EQ(rectOf("grpSearch"), QRect(16, 8, 280, 64));
        EXPECT_EQ(rectOf("search"), QRect(16, 16, 264, 36));
        EXPECT_EQ(rectOf("LocationPane"), QRect(16, 72, 280, height - 72));
        EXPECT_EQ(rectOf("picLeftPanel"), QRect(0, 0, 296, height + 16));
        EXPECT_EQ(rectOf("lnDivider"), QRect(296, 8, 1, height - 8));
        EXPECT_EQ(rectOf("picInfobar"), QRect(312, 0, width - 312, 72));
        EXPECT_EQ(rectOf("lnSeparator"), QRect(312, 71, width - 312 - 8, 1));
        EXPECT_EQ(rectOf("ItemPane"), QRect(312, 72, width - 312, height - 72));
        EXPECT_EQ(rectOf("SearchResultPane"), rectOf("ItemPane"));
        EXPECT_EQ(rectOf("grpLoading"), QRect(QPoint(0, 0), size));
        QWidget* cover = Find(*m_explorer, "grpLoading");
        const QRect message = Find(*cover, "grpMessage")->geometry();
        EXPECT_NEAR(message.center().x(), width / 2.0, 1.0);
        EXPECT_NEAR(message.center().y(), height / 2.0, 1.0);
    }
}

TEST_F(EvidenceExplorerTest, ALongTitleEndsWithinTheHeading) {
    const int32_t room = AddLocation(std::string(300, 'W'));
    Show(room);
    const auto* title = Find<Label>(*m_explorer, "lblTitle");
    const QWidget* print = Find(*m_explorer, "grpPrintLocationBarcode");
    const QWidget* deletion = Find(*m_explorer, "grpDeleteLocation");
    EXPECT_GT(title->width(), 400);
    EXPECT_LT(title->geometry().right(), Find(*m_explorer, "grpEditLocation")->geometry().left());
    EXPECT_LT(deletion->geometry().right(), print->geometry().left());
    m_explorer->SetSelectedLocation(LocationOf(m_shelf));
    EXPECT_LT(title->width(), 200);
}

TEST_F(EvidenceExplorerTest, TheLeftColumnHasTheColorOfTheTree) {
    Show(m_shelf);
    EXPECT_EQ(m_tree->BackColor(), Theme::Get(Theme::Color::Panel));
    EXPECT_EQ(Find<GroupBox>(*m_explorer, "picLeftPanel")->BackColor(), m_tree->BackColor());
}

TEST_F(EvidenceExplorerTest, FollowsAChangeToTheDarkTheme) {
    Show(m_shelf);
    const QColor panel = m_tree->BackColor();
    Theme::Install(true);
    ServeEvents();
    EXPECT_NE(m_tree->BackColor(), panel);
    EXPECT_EQ(m_tree->BackColor(), Theme::Get(Theme::Color::Panel));
    EXPECT_EQ(m_widget->topLevelItem(0)->background(0).color(), Theme::Get(Theme::Color::Panel));
    EXPECT_EQ(m_widget->topLevelItem(0)->foreground(0).color(), Theme::Get(Theme::Color::Text));
    EXPECT_EQ(PixelAt(Grab(*m_list->Tree()->viewport()), {300, 500}), Theme::Get(Theme::Color::Window));
    EXPECT_EQ(m_widget->palette().color(QPalette::Text), Theme::Get(Theme::Color::Text));
    Theme::Install(false);
    ServeEvents();
    EXPECT_EQ(m_tree->BackColor(), panel);
}

TEST_F(EvidenceExplorerTest, TabMovesFromTheSearchBoxOverTheTreeAndTheHeadingToTheContents) {
    Show(m_shelf);
    EXPECT_THAT(TabOrder(*m_window), ElementsAre("search", "TreeView", "lnkEditLocation", "lnkDeleteLocation",
                                                 "lnkPrintLocationBarcode", "btnAddEvidence", "ItemPane"));
}

TEST_F(EvidenceExplorerTest, BrowsesAndBeginsATransferByKeyboardAlone) {
    Show();
    m_widget->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Down);
    EXPECT_EQ(Title(), "Empty Shelf");
    Press(Qt::Key_Down);
    EXPECT_EQ(Title(), "Shelf A");
    for (int i = 0; i < 5; ++i) Press(Qt::Key_Tab);
    EXPECT_TRUE(m_list->Tree()->hasFocus());
    Press(Qt::Key_Down);
    EXPECT_THAT(SelectedObjects(), ElementsAre("Bin 1"));
    Press(Qt::Key_End);
    EXPECT_THAT(SelectedObjects(), ElementsAre("E-2"));
    WhileMenuOpen([this](QMenu&) { m_explorer->Menu()->Entry(MenuEntry::CheckOut)->trigger(); });
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(10, 10), QPoint(10, 10));
    QCoreApplication::sendEvent(QApplication::focusWidget(), &key);
    EXPECT_THAT(BatchIds(), ElementsAre("E-2"));
    Press(m_window->focusWidget(), Qt::Key_Return);
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::ItemView);
}

TEST_F(EvidenceExplorerTest, F5ReadsLocationsAndContentsAgain) {
    Show(m_shelf);
    ClickRow("E-2");
    m_database.AddLocation("Annex", StorageLocationTypes::Internal);
    m_database.AddLocation("Bin 0", StorageLocationTypes::Internal, m_shelf);
    AddItem("E-3", m_shelf);
    EXPECT_TRUE(m_widget->findItems("Annex", Qt::MatchExactly | Qt::MatchRecursive).isEmpty());
    Press(m_list->Tree(), Qt::Key_F5);
    EXPECT_FALSE(m_widget->findItems("Annex", Qt::MatchExactly | Qt::MatchRecursive).isEmpty());
    EXPECT_EQ(Subtitle(), "2 storage units, 3 items");
    EXPECT_EQ(m_list->RowCount(), 5);
    EXPECT_THAT(SelectedObjects(), ElementsAre("E-2"));
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_shelf);
    EXPECT_EQ(m_widget->currentItem()->text(0), "Shelf A");
    EXPECT_TRUE(m_list->Tree()->hasFocus());
    Press(m_list->Tree(), Qt::Key_Return);
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::ItemView);
}

TEST_F(EvidenceExplorerTest, F5KeepsTheExpandedNodesAndTheScrollPositions) {
    for (int i = 0; i < 60; ++i) AddLocation("Box " + std::to_string(i), m_bin);
    for (int i = 0; i < 60; ++i) AddItem("X-" + std::to_string(i), m_shelf);
    Show(m_shelf);
    NodeCenter("Box 1");
    m_widget->topLevelItem(1)->setExpanded(false);
    ServeEvents();
    m_widget->verticalScrollBar()->setValue(300);
    m_list->Tree()->verticalScrollBar()->setValue(200);
    Press(m_widget, Qt::Key_F5);
    EXPECT_TRUE(m_widget->findItems("Bin 1", Qt::MatchExactly | Qt::MatchRecursive).at(0)->isExpanded());
    EXPECT_FALSE(m_widget->topLevelItem(1)->isExpanded());
    EXPECT_EQ(m_widget->verticalScrollBar()->value(), 300);
    EXPECT_EQ(m_list->Tree()->verticalScrollBar()->value(), 200);
}

TEST_F(EvidenceExplorerTest, F5KeepsTheSidewaysPositionOfTheTree) {
    int32_t container = m_bin;
    for (int level = 1; level <= 20; ++level) container = AddLocation("Level " + std::to_string(level), container);
    Show(m_shelf);
    NodeCenter("Level 20");
    ServeEvents();
    m_widget->horizontalScrollBar()->setValue(100);
    ASSERT_EQ(m_widget->horizontalScrollBar()->value(), 100);
    Press(m_widget, Qt::Key_F5);
    EXPECT_EQ(m_widget->horizontalScrollBar()->value(), 100);
}

TEST_F(EvidenceExplorerTest, F5ShowsTheParentOfALocationThatWasDeletedElsewhere) {
    Show(m_bin);
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_bin});
    Press(m_list->Tree(), Qt::Key_F5);
    EXPECT_EQ(Title(), "Shelf A");
    EXPECT_THAT(m_list->CellText(0, 1), "E-1");
}

TEST_F(EvidenceExplorerTest, AHeldF5ReadsOnce) {
    Show(m_shelf);
    AddItem("E-3", m_shelf);
    QTest::simulateEvent(m_list->Tree(), true, Qt::Key_F5, Qt::NoModifier, "", true);
    EXPECT_EQ(m_list->RowCount(), 3);
    Press(m_list->Tree(), Qt::Key_F5);
    EXPECT_EQ(m_list->RowCount(), 4);
}

TEST_F(EvidenceExplorerTest, AListThatBecomesEmptyGivesTheFocusToTheTree) {
    const int32_t item = AddItem("E-9", m_empty);
    Show(m_empty);
    FlatButton outside(m_window.get());
    outside.show();
    m_database.AddCustodyRow(StoredItemTypes::Property, item, m_shelf);
    Press(m_list->Tree(), Qt::Key_F5);
    EXPECT_EQ(m_list->RowCount(), 0);
    EXPECT_TRUE(m_widget->hasFocus());

    m_database.AddCustodyRow(StoredItemTypes::Property, item, m_empty);
    m_explorer->Refresh();
    m_list->Tree()->setFocus();
    m_database.AddCustodyRow(StoredItemTypes::Property, item, m_shelf);
    m_explorer->Refresh();
    EXPECT_TRUE(m_widget->hasFocus());
}

TEST_F(EvidenceExplorerTest, ARootThatAppearsWithF5IsExpanded) {
    Show();
    const int roots = m_widget->topLevelItemCount();
    m_database.AddLocation("New Shelf", StorageLocationTypes::Unassigned);
    Press(m_widget, Qt::Key_F5);
    ASSERT_EQ(m_widget->topLevelItemCount(), roots + 1);
    for (int root = 0; root <= roots; ++root) EXPECT_TRUE(m_widget->topLevelItem(root)->isExpanded()) << root;
}

TEST_F(EvidenceExplorerTest, ReadsNoDataInADesigner) {
    SetInsideDesigner(true);
    Make();
    m_window->show();
    EXPECT_EQ(m_widget->topLevelItemCount(), 0);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    EXPECT_FALSE(Find<GroupBox>(*m_explorer, "grpLoading")->IsShown());
}

TEST_F(EvidenceExplorerTest, ItsTypeIsNamedAsItIsCalled) {
    Make();
    EXPECT_EQ(m_explorer->TypeName(), "EvidenceExplorer");
    EXPECT_EQ(m_tree->TypeName(), "LocationTree");
    EXPECT_EQ(m_view->TypeName(), "LocationView");
}

}  // namespace
}  // namespace quellbrook::testing
