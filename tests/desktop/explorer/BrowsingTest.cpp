#include "tests/desktop/explorer/ExplorerTest.h"

#include <QAbstractItemView>

namespace quellbrook::testing {

namespace {

using namespace tour;

const QString row2 = QStringLiteral("Row 2; 0 storage units, 8 items; contents; tree Row 2; ");

class BrowsingTest : public ExplorerTest {};

}  // namespace

TEST_F(BrowsingTest, TheTreeAndTheContentsFollowEachOther) {
    ExpectSeen("Sign-In Locations; 7 storage units, 0 items; contents; tree Sign-In Locations; focus grpSearch");
    DoubleClickRow("Impound Lot");
    ExpectSeen("Impound Lot; 4 storage units, 0 items; contents; tree Impound Lot; focus ItemPane");
    DoubleClickRow("Row 2");
    ExpectSeen(row2 + "focus ItemPane");
    ClickNode("Row 1");
    ExpectSeen("Row 1; 0 storage units, 8 items; contents; tree Row 1; focus LocationPane");
    m_player.Press("Down");
    ExpectSeen(row2 + "focus LocationPane");
    m_player.Press("Left");
    m_player.Press("Left");
    ExpectSeen("Impound Lot; 4 storage units, 0 items; contents; tree Impound Lot; focus LocationPane");
}

TEST_F(BrowsingTest, AnEmptyLocationSaysSo) {
    OpenLocation({"Empty Shelf"});
    ExpectSeen("Empty Shelf; 0 storage units, 0 items; no items; tree Empty Shelf; focus LocationPane");
    ClickNode("Impound Lot");
    ExpectSeen("Impound Lot; 4 storage units, 0 items; contents; tree Impound Lot; focus LocationPane");
}

TEST_F(BrowsingTest, ADoubleClickOpensTheItemAndTheCrossGoesBack) {
    OpenLocation({"Impound Lot", "Row 2"});
    DoubleClickRow("2026-0388-09");
    ExpectItem("2026-0388-09");
    CloseItem();
    ExpectSeen(row2 + "selected 2026-0388-09; focus ItemPane");
    DoubleClickRow("KTR4821 (OR)");
    ExpectItem("KTR4821 (OR)");
    m_player.Press("Escape");
    ExpectSeen(row2 + "selected KTR4821 (OR); focus ItemPane");
}

TEST_F(BrowsingTest, EnterOpensTheSelectedRowAndAltLeftGoesBack) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow("2026-0388-08");
    m_player.Press("Down");
    m_player.Press("Return");
    ExpectItem("2026-0388-09");
    m_player.Press("alt+Left");
    ExpectSeen(row2 + "selected 2026-0388-09; focus ItemPane");
}

TEST_F(BrowsingTest, ADoubleClickBelowTheRowsOpensNothing) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow("2026-0388-09");
    m_player.DoubleClick("the empty space below the rows", SpotBelowRows);
    ClickRow("2026-0388-08");
    ExpectSeen(row2 + "selected 2026-0388-08; focus ItemPane");
}

TEST_F(BrowsingTest, ASearchShowsItsResultsUntilALocationIsChosen) {
    OpenLocation({"Impound Lot", "Row 2"});
    SearchFor("2026-0388-*");
    const QString found = "Search Results; Showing stored items matching '2026-0388-*'; results; selected ";
    ExpectSeen(found + "2026-0388-07; focus SearchResultPane");
    m_player.Press("Down");
    m_player.Press("Return");
    ExpectItem("2026-0388-08");
    m_player.Press("Escape");
    ExpectSeen(found + "2026-0388-08; focus SearchResultPane");
    DoubleClickRow("2026-0388-10");
    ExpectItem("2026-0388-10");
    CloseItem();
    ExpectSeen(found + "2026-0388-10; focus SearchResultPane");
    ClickNode("Row 2");
    ExpectSeen(row2 + "focus LocationPane");
}

TEST_F(BrowsingTest, EnterInAnEmptySearchBoxDoesNothing) {
    OpenLocation({"Impound Lot", "Row 2"});
    Click("the search box", "explorer/search");
    m_player.Press("Return");
    m_player.Type("x");
    ExpectText("The search box", "explorer/search", "x");
    ExpectSeen(row2 + "focus grpSearch");
}

TEST_F(BrowsingTest, ASearchWithoutResultsSaysSoAndTheNextOneRecovers) {
    SearchFor("no such thing");
    ExpectSeen("Search Results; Showing stored items matching 'no such thing'; no results; focus grpSearch");
    SearchFor("KTR4821");
    ExpectSeen(
        "Search Results; Showing stored items matching 'KTR4821'; results; selected KTR4821 (OR); focus "
        "SearchResultPane");
}

}  // namespace quellbrook::testing
