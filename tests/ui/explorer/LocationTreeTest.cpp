#include "tests/ui/explorer/LocationTreeTest.h"

#include "core/ActionTypes.h"
#include "host/HostLocationData.h"
#include "tests/support/FaultInjectingEngine.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(LocationTreeTest, EmptyRootsOfTheUsualCategoriesAreShownInOrder) {
    Show();
    EXPECT_THAT(TopNames(), ElementsAre("Sign-In Locations", "Sign-Out Locations", "Final Disposition"));
    const QTreeWidgetItem* empty = Node("Final Disposition");
    EXPECT_EQ(empty->childCount(), 0);
    EXPECT_TRUE(empty->font(0).bold());
}

TEST_F(LocationTreeTest, AnEmptyInternalRootIsABoldNodeWithoutAnExpander) {
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_shelf});
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_aisle});
    m_database.Execute("DELETE FROM StorageLocation WHERE Type = 2");
    Show();
    EXPECT_THAT(TopNames(), ElementsAre("Sign-In Locations", "Sign-Out Locations", "Final Disposition"));
    EXPECT_EQ(Node("Sign-In Locations")->childCount(), 0);
    EXPECT_TRUE(Node("Sign-In Locations")->font(0).bold());
    EXPECT_FALSE(m_widget->model()->hasChildren(m_widget->model()->index(0, 0)));
}

TEST_F(LocationTreeTest, OtherAndUncategorizedRootsAreShownUnlessEmpty) {
    m_database.AddLocation("Pending Review", StorageLocationTypes::Other);
    m_database.AddLocation("Old Shelf", StorageLocationTypes::Unassigned);
    Show();
    EXPECT_THAT(TopNames(), ElementsAre("Sign-In Locations", "Sign-Out Locations", "Final Disposition",
                                        "Other Locations", "Uncategorized Locations"));
}

TEST_F(LocationTreeTest, ADisabledLocationIsLeftOutWithEverythingBelowIt) {
    const int32_t closed = AddLocation("Closed Wing", 0, false);
    AddLocation("Closed Shelf", closed);
    Show();
    EXPECT_EQ(Node("Closed Wing"), nullptr);
    EXPECT_EQ(Node("Closed Shelf"), nullptr);
    EXPECT_NE(Node("Shelf A"), nullptr);
}

TEST_F(LocationTreeTest, ARootWithOnlyDisabledLocationsIsShown) {
    m_database.AddLocation("Closed", StorageLocationTypes::Other, 0, false);
    Show();
    ASSERT_NE(Node("Other Locations"), nullptr);
    EXPECT_EQ(Node("Other Locations")->childCount(), 0);
}

TEST_F(LocationTreeTest, NodesHaveKeysIconsAndPaths) {
    m_database.AddLocation("Pending Review", StorageLocationTypes::Other);
    m_database.AddLocation("Old Shelf", StorageLocationTypes::Unassigned);
    Show();
    const auto key = [this](const char* name) { return Node(name)->data(0, LocationTreeWidget::KeyRole).toString(); };
    const auto icon = [this](const char* name) { return Node(name)->data(0, LocationTreeWidget::IconRole).toString(); };
    EXPECT_EQ(key("Sign-In Locations"), "R2");
    EXPECT_EQ(key("Sign-Out Locations"), "R4");
    EXPECT_EQ(key("Final Disposition"), "R8");
    EXPECT_EQ(key("Other Locations"), "R16");
    EXPECT_EQ(key("Uncategorized Locations"), "R1");
    EXPECT_EQ(key("Shelf A"), "L" + QString::number(m_shelf));
    EXPECT_EQ(icon("Sign-In Locations"), "sign_in");
    EXPECT_EQ(icon("Sign-Out Locations"), "sign_out");
    EXPECT_EQ(icon("Final Disposition"), "dispose");
    EXPECT_EQ(icon("Other Locations"), "other");
    EXPECT_EQ(icon("Uncategorized Locations"), "uncategorized");
    EXPECT_EQ(icon("Shelf A"), "location");
    EXPECT_EQ(Node("Shelf A")->data(0, Qt::AccessibleDescriptionRole).toString(),
              "Sign-In Locations > Property Room > Aisle 1 > Shelf A");
}

TEST_F(LocationTreeTest, OnlyRootsAreExpandedAtLoad) {
    Show();
    EXPECT_TRUE(Node("Sign-In Locations")->isExpanded());
    EXPECT_FALSE(Node("Property Room")->isExpanded());
    EXPECT_FALSE(Node("Property Room")->font(0).bold());
}

TEST_F(LocationTreeTest, RowsHaveTheirHeightAndIndent) {
    Show();
    EXPECT_EQ(m_widget->visualItemRect(Node("Sign-In Locations")).height(), 32);
    EXPECT_EQ(m_widget->visualItemRect(Node("Property Room")).height(), 32);
    EXPECT_EQ(m_widget->visualItemRect(Node("Property Room")).left(), 36);
}

TEST_F(LocationTreeTest, LoadsWhenFirstShownAndSelectsTheStoresLocation) {
    Make();
    EXPECT_EQ(m_widget->topLevelItemCount(), 0);
    ShowActive(*m_window);
    EXPECT_EQ(CurrentNode(), "Sign-In Locations");
    EXPECT_THAT(TakeSelected(), ElementsAre("Sign-In Locations"));
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);

    AddLocation("New Shelf");
    GetStorageLocationStatic().Refresh();
    m_tree->hide();
    m_tree->show();
    EXPECT_EQ(Node("New Shelf"), nullptr);
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, RefreshRaisesOnceAlsoWhenNothingHasChanged) {
    Show();
    ClickNode("Shelf A");
    TakeSelected();
    m_tree->Refresh();
    EXPECT_THAT(TakeSelected(), ElementsAre("Shelf A"));
    EXPECT_EQ(CurrentNode(), "Shelf A");
    m_tree->Refresh();
    EXPECT_THAT(TakeSelected(), ElementsAre("Shelf A"));
}

TEST_F(LocationTreeTest, RefreshReadsNewAndRenamedLocations) {
    Show();
    ClickNode("Shelf A");
    TakeSelected();
    AddLocation("New Shelf");
    m_database.Execute("UPDATE StorageLocation SET Name = 'Shelf One' WHERE IdNo = ?", {m_shelf});
    m_tree->Refresh();
    EXPECT_NE(Node("New Shelf"), nullptr);
    EXPECT_THAT(TakeSelected(), ElementsAre("Shelf One"));
    EXPECT_EQ(CurrentNode(), "Shelf One");
}

TEST_F(LocationTreeTest, RefreshAfterADeletionSelectsTheParent) {
    Show();
    ClickNode("Shelf A");
    TakeSelected();
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_shelf});
    m_tree->Refresh();
    EXPECT_THAT(TakeSelected(), ElementsAre("Aisle 1"));
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_aisle);
    EXPECT_EQ(CurrentNode(), "Aisle 1");
}

TEST_F(LocationTreeTest, RefreshAfterTheParentIsDeletedTooSelectsNothing) {
    Show();
    ClickNode("Shelf A");
    TakeSelected();
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_shelf});
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_aisle});
    m_tree->Refresh();
    EXPECT_THAT(TakeSelected(), ElementsAre("nothing"));
    EXPECT_EQ(m_tree->SelectedLocation(), nullptr);
    EXPECT_EQ(m_widget->currentItem(), nullptr);
}

TEST_F(LocationTreeTest, RefreshKeepsTheFocusInTheTree) {
    Show();
    ClickNode("Vault");
    ASSERT_TRUE(m_widget->hasFocus());
    m_tree->Refresh();
    EXPECT_TRUE(m_widget->hasFocus());
}

TEST_F(LocationTreeTest, RefreshKeepsTheFocusInTheTreeOfAnInactiveWindow) {
    Show();
    ClickNode("Vault");
    QWidget dialog;
    ShowActive(dialog);
    ASSERT_FALSE(m_widget->hasFocus());
    m_tree->Refresh();
    EXPECT_EQ(m_window->focusWidget(), m_widget);
}

TEST_F(LocationTreeTest, AChangeOfTheStoreRefreshesAndSelectsItsLocation) {
    Show();
    ClickNode("Vault");
    TakeSelected();
    const int32_t created = AddLocation("New Shelf", m_room);
    GetStorageLocationStatic().Refresh();
    GetDispatcher()->Dispatch({ActionTypes::LOCATION_CREATE_SUCCESS, LocationOf(created)});
    EXPECT_THAT(TakeSelected(), ElementsAre("Vault", "New Shelf"));
    EXPECT_EQ(CurrentNode(), "New Shelf");
}

TEST_F(LocationTreeTest, AFailingOwnerDoesNotFailTheDispatch) {
    Show();
    const std::string failure = "The owner has failed.";
    m_tree->LocationSelected.connect(
        [failure](const StorageLocationRef&) { Raise(ErrorNumber::General, "Owner.Display", failure); });
    GetDispatcher()->Dispatch({ActionTypes::LOCATION_CREATE_SUCCESS, LocationOf(m_vault)});
    EXPECT_THAT(TakeUnexpected(), ElementsAre(failure));
}

TEST_F(LocationTreeTest, AFailedLoadIsRaisedAndKeepsTheTreeHidden) {
    Make();
    auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    HostLocationData::Discard();
    engine->FailAtOpen(Error(4711, "Engine.Open", "The server is gone."));
    m_window->show();
    try {
        m_tree->RaiseShowError();
        ADD_FAILURE() << "no error";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), 4711);
        EXPECT_EQ(error.Description(), "LoadLocations: Error loading storage locations - The server is gone.");
    }
    EXPECT_FALSE(m_widget->isVisible());
    auto* cover = Find<GroupBox>(*m_tree, "picLoading");
    EXPECT_TRUE(cover->isVisible());
    EXPECT_EQ(cover->geometry(), m_tree->rect());
    const QPoint center = Find<GroupBox>(*cover, "picLoadingMessage")->geometry().center();
    EXPECT_LE((center - cover->rect().center()).manhattanLength(), 2);
    EXPECT_EQ(Find<Label>(*m_tree, "lblLoadTitle")->Caption(), "Loading Locations");
    EXPECT_EQ(Find<Label>(*m_tree, "lblLoadMessage")->Caption(), "Please wait a moment...");
    EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, ARefreshAfterAFailedLoadShowsTheTree) {
    Make();
    auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    HostLocationData::Discard();
    engine->FailAtOpen(Error(4711, "Engine.Open", "The server is gone."));
    m_window->show();
    EXPECT_THROW(m_tree->RaiseShowError(), Error);
    m_tree->Refresh();
    EXPECT_TRUE(m_widget->isVisible());
    EXPECT_FALSE(Find<GroupBox>(*m_tree, "picLoading")->isVisible());
    EXPECT_NE(Node("Vault"), nullptr);
}

TEST_F(LocationTreeTest, TheTreeFillsTheControl) {
    Show();
    EXPECT_EQ(m_widget->geometry(), QRect(0, 0, 280, 600));
    m_tree->resize(200, 300);
    EXPECT_EQ(m_widget->geometry(), QRect(0, 0, 200, 300));
}

TEST_F(LocationTreeTest, MarkupInANameIsShownAsPlainText) {
    AddLocation("<b>Box</b> & Co");
    Show();
    EXPECT_NE(Node("<b>Box</b> & Co"), nullptr);
}

}  // namespace
}  // namespace quellbrook::testing
