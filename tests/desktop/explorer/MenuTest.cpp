#include "tests/desktop/explorer/ExplorerTest.h"

#include <QApplication>
#include <QWidget>

namespace quellbrook::testing {

namespace {

using namespace tour;

class MenuTest : public ExplorerTest {
protected:
    // Opens the menu of a row, looks at it and closes it.
    void ExpectMenuOf(const QString& row, const QString& entries) {
        RightClickRow(row);
        ExpectMenu(entries);
        CloseMenu();
    }

    void SaveLocationAs(const QString& name) {
        m_player.Wait("The dialog is active", [] {
            return Find(QStringLiteral("txtName")) && QApplication::activeModalWidget() == QApplication::activeWindow();
        });
        m_player.Press("ctrl+a");
        m_player.Type(name);
        Click("the button Save", "btnSave");
    }

    void BeginBatch(const QString& row, const QString& entry) {
        RightClickRow(row);
        ChooseEntry(entry);
    }
};

}  // namespace

TEST_F(MenuTest, ForOneItemInStorageItOffersWhatCanBeDoneWithIt) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow("2026-0388-09");
    ExpectMenuOf("2026-0388-09",
                 "Open, Open in Tessarine..., -, Print barcode label, -, Sign out  this item, Move  this item, "
                 "Dispose this item");
    ExpectSeen("Row 2; 0 storage units, 8 items; contents; tree Row 2; selected 2026-0388-09; focus ItemPane");
}

TEST_F(MenuTest, OnASelectedRowItIsForAllSelectedRows) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow("2026-0388-08");
    ClickRow("2026-0388-10", Modifier::Shift);
    ExpectMenuOf("2026-0388-09",
                 "[Open], [Open in Tessarine...], -, Print barcode labels (3 items), -, Sign out  3 items, "
                 "Move  3 items, Dispose 3 items");
    ExpectSeen(
        "Row 2; 0 storage units, 8 items; contents; tree Row 2; selected 2026-0388-08, 2026-0388-09, 2026-0388-10; "
        "focus ItemPane");
}

TEST_F(MenuTest, OnAnotherRowThatRowIsSelectedFirst) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow("2026-0388-08");
    ClickRow("2026-0388-10", Modifier::Shift);
    RightClickRow("KTR4821 (OR)");
    ExpectMenu(
        "Open, Open in Tessarine..., -, Print barcode label, -, Sign out  this item, Move  this item, "
        "Dispose this item");
    ExpectSeen("Row 2; 0 storage units, 8 items; contents; tree Row 2; selected KTR4821 (OR); focus ItemPane");
    CloseMenu();
}

TEST_F(MenuTest, BelowTheRowsItOffersSelectAllAndANewLocation) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow("2026-0388-08");
    m_player.Click("the empty space below the rows", SpotBelowRows, Button::Right);
    ExpectMenu("-, Select All, -, New");
    ExpectSeen("Row 2; 0 storage units, 8 items; contents; tree Row 2; focus ItemPane");
    ChooseEntry("Select All");
    m_player.Wait("Every row is selected",
                  [] { return SelectedRows(FindView(QStringLiteral("explorer/ItemPane"))).size() == 8; });
}

TEST_F(MenuTest, ForALocationAmongItemsItOffersNoTransfer) {
    ClickNode("Sign-In Locations");
    m_player.Press("End");
    OpenLocation({"Pending Review"});
    ExpectMenuOf("Missing Paperwork", "Open, -, Print barcode label, -, Edit, Delete");
    ClickRow("Missing Paperwork");
    ClickRow("2026-0191-01", Modifier::Control);
    ExpectMenuOf("2026-0191-01", "[Open], -, Print barcode labels (2 items)");
    ExpectSeen(
        "Pending Review; 2 storage units, 5 items; contents; tree Pending Review; selected Missing Paperwork, "
        "2026-0191-01; focus ItemPane");
}

TEST_F(MenuTest, ItsTransfersDependOnWhereTheItemIs) {
    OpenLocation({"Circuit Court"});
    ExpectMenuOf("2026-0061-02", "Open, Open in Tessarine..., -, Print barcode label, -, Sign in  this item");
    OpenLocation({"Auction"});
    m_player.Click(
        "the first row", [] { return SpotOfRow(FirstRow()); }, Button::Right);
    ExpectMenu("Open, Open in Tessarine..., -, Print barcode label, -, [(No Available Actions)]");
    CloseMenu();
}

TEST_F(MenuTest, ItemsOfTheBatchCanOnlyBeUnchecked) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow("2026-0388-09");
    BeginBatch("2026-0388-09", "Move  this item");
    const QString inBatch =
        "; in batch 2026-0388-09; focus ItemPane; 1 item selected for moving within evidence storage";
    ExpectSeen("Row 2; 0 storage units, 8 items; contents; tree Row 2; selected 2026-0388-09" + inBatch);
    ExpectMenuOf("2026-0388-09", "Open, Open in Tessarine..., -, Print barcode label, -, Uncheck this item");
    ExpectMenuOf("2026-0388-08", "Open, Open in Tessarine..., -, Print barcode label, -, Move  this item");
    ClickRow("2026-0388-09", Modifier::Control);
    ExpectMenuOf("2026-0388-08",
                 "[Open], [Open in Tessarine...], -, Print barcode labels (2 items), -, Uncheck this item");
    ClickRow("2026-0388-08");
    BeginBatch("2026-0388-08", "Move  this item");
    ClickRow("2026-0388-09", Modifier::Control);
    ExpectMenuOf("2026-0388-09",
                 "[Open], [Open in Tessarine...], -, Print barcode labels (2 items), -, Uncheck 2 items");
    BeginBatch("2026-0388-09", "Uncheck 2 items");
    ExpectSeen(
        "Row 2; 0 storage units, 8 items; contents; tree Row 2; selected 2026-0388-08, 2026-0388-09; focus ItemPane");
}

TEST_F(MenuTest, InTheTreeItIsForTheNodeAndLeavesTheSelectionAlone) {
    OpenLocation({"Impound Lot", "Row 2"});
    const QString before = "Row 2; 0 storage units, 8 items; contents; tree Row 2; focus LocationPane";
    ExpectSeen(before);
    ClickNode("Sign-Out Locations", Button::Right);
    ExpectMenu("Open, -, New");
    ExpectSeen(before);
    CloseMenu();
    ClickNode("Row 1", Button::Right);
    ExpectMenu("Open, -, Print barcode label, -, New, Edit, Delete");
    CloseMenu();
    ExpectSeen(before);
}

TEST_F(MenuTest, ChangesOfLocationsFromTheTreeLeaveTheFocusThere) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickNode("Impound Lot", Button::Right);
    ChooseEntry("New");
    ChooseEntry("Location");
    SaveLocationAs("Row 9");
    ExpectSeen("Row 9; 0 storage units, 0 items; no items; tree Row 9; focus LocationPane");
    ClickNode("Row 9", Button::Right);
    ChooseEntry("Edit");
    SaveLocationAs("Wash Bay");
    ExpectSeen("Wash Bay; 0 storage units, 0 items; no items; tree Wash Bay; focus LocationPane");
    ClickNode("Wash Bay", Button::Right);
    ChooseEntry("Delete");
    ExpectDialog("Are you sure?: Are you sure you want to delete this location ('Wash Bay')?");
    m_player.Press("y");
    ExpectSeen("Impound Lot; 4 storage units, 0 items; contents; tree Impound Lot; focus LocationPane");
}

TEST_F(MenuTest, DuringASearchTheTreeCanBeChangedAndTheResultsStay) {
    SearchFor("2026-0388-*");
    const QString results =
        "Search Results; Showing stored items matching '2026-0388-*'; results; selected in gray 2026-0388-07; focus "
        "LocationPane";
    ClickNode("Impound Lot", Button::Right);
    ExpectMenu("Open, -, Print barcode label, -, New, Edit, Delete");
    ChooseEntry("Edit");
    SaveLocationAs("Vehicle Yard");
    m_player.Wait("The node has the new name", [] { return NodeSpot("Vehicle Yard").has_value(); });
    ExpectSeen(results);
    ClickNode("Empty Shelf", Button::Right);
    ChooseEntry("Delete");
    ExpectDialog("Are you sure?: Are you sure you want to delete this location ('Empty Shelf')?");
    m_player.Press("y");
    m_player.Wait("The node is gone", [] { return !NodeSpot("Empty Shelf"); });
    ExpectSeen(results);
    ClickNode("Vehicle Yard", Button::Right);
    ChooseEntry("Open");
    ExpectSeen("Vehicle Yard; 4 storage units, 0 items; contents; tree Vehicle Yard; focus LocationPane");
}

TEST_F(MenuTest, OnASearchResultTheResultIsSelectedFirst) {
    SearchFor("2026-0388-*");
    const QString heading = "Search Results; Showing stored items matching '2026-0388-*'; results; selected ";
    ExpectSeen(heading + "2026-0388-07; focus SearchResultPane");
    RightClickRow("2026-0388-09");
    ExpectMenu(
        "Open, Open in Tessarine..., -, Print barcode label, -, Sign out  this item, Move  this item, "
        "Dispose this item");
    ExpectSeen(heading + "2026-0388-09; focus SearchResultPane");
    ChooseEntry("Open");
    ExpectItem("2026-0388-09");
    CloseItem();
    ExpectSeen(heading + "2026-0388-09; focus SearchResultPane");
}

// An open menu would keep what is typed from the search box.
TEST_F(MenuTest, WithoutResultsThereIsNone) {
    SearchFor("no such thing");
    ExpectSeen("Search Results; Showing stored items matching 'no such thing'; no results; focus grpSearch");
    m_player.Click(
        "the place of the first result",
        []() -> Spot {
            const QWidget* list = Find(QStringLiteral("SearchResultPane/searchResults"));
            return list ? Spot(list->mapToGlobal(QPoint(list->width() / 2, 20))) : std::nullopt;
        },
        Button::Right);
    m_player.Type("s");
    ExpectText("The search box", "explorer/search", "no such things");
    ExpectMenu("");
}

}  // namespace quellbrook::testing
