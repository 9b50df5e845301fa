#include "tests/desktop/explorer/ExplorerTest.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace quellbrook::testing {

namespace {

using namespace tour;

const QString property = QStringLiteral("2026-0388-09");
const QString vehicle = QStringLiteral("KTR4821 (OR)");

// Scans a location, a property, a vehicle and codes without a record in one display mode of the explorer after the
// other. Everything but a location's code must leave the mode as it was.
class ScansTest : public ExplorerTest {
protected:
    void Scan(char letter, const std::string& select) {
        m_player.Scan([letter, select, &rows = m_player.Rows()] {
            const QString key = QString::fromStdString(ToTextOrEmpty(rows.Ask(select)));
            return letter + QStringLiteral("%1").arg(key, 10, QLatin1Char('0'));
        });
    }
    void ScanCode(const QString& code) {
        m_player.Scan([code] { return code; });
    }
    void ScanLocation(const std::string& name) {
        Scan('L', "SELECT IdNo FROM StorageLocation WHERE Name = '" + name + "'");
    }
    void ScanVehicle() { Scan('V', "SELECT VehicleNo FROM Vehicle WHERE RegNumber = 'KTR4821'"); }

    void ExpectRefusal(const QString& code, const QString& dialog) {
        ScanCode(code);
        ExpectDialog(dialog);
        Click("the button OK", "grpButtons/button");
        m_player.Wait("The dialog is closed", [] { return SeenDialog().isEmpty(); });
    }

    void ScanDeadCodes(const QString& mode) {
        ExpectSeen(mode);
        const QString notFound =
            "Item Not Found: The barcode you scanned refers to a item that is no longer in your database.";
        ExpectRefusal("P0000999999", notFound);
        ExpectSeen(mode);
        ExpectRefusal("V0000999999", notFound);
        ExpectSeen(mode);
        ExpectRefusal("L0000999999",
                      "Location Not Found: The location barcode you scanned refers to a location that is no longer in "
                      "your database.");
        ExpectSeen(mode);
        ExpectRefusal("L12X4",
                      "Barcode Scan Error: There was a problem with the barcode you scanned: \n\nThe barcode you "
                      "scanned is invalid. If you believe the barcode is OK, try re-scanning it.");
        ExpectSeen(mode);
    }

    // The contents are read again on the way back, which keeps the selection of rows.
    void ScanItems(const QString& modeAfterwards) {
        ScanProperty(property);
        ExpectItem(property);
        CloseItem();
        ExpectSeen(modeAfterwards);
        ScanVehicle();
        ExpectItem(vehicle);
        CloseItem();
        ExpectSeen(modeAfterwards);
    }

    const QString m_row2 = "Row 2; 0 storage units, 8 items; contents; tree Row 2; ";
};

}  // namespace

TEST_F(ScansTest, InTheContentsOfALocation) {
    OpenLocation({"Circuit Court"});
    ClickRow("2024-0085-02");
    ClickRow("2025-0106-03", Modifier::Control);
    const QString court = "Circuit Court; 0 storage units, 9 items; contents; tree Circuit Court; ";
    ScanDeadCodes(court + "selected 2024-0085-02, 2025-0106-03; focus ItemPane");
    ScanItems(court + "selected 2024-0085-02, 2025-0106-03; focus ItemPane");
    ScanLocation("Row 2");
    ExpectSeen(m_row2 + "focus ItemPane");
}

TEST_F(ScansTest, OfTheLocationOnShowKeepsTheSelection) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow(property);
    ScanLocation("Row 2");
    ScanDeadCodes(m_row2 + "selected " + property + "; focus ItemPane");
}

TEST_F(ScansTest, InAnEmptyLocation) {
    OpenLocation({"Empty Shelf"});
    const QString empty = "Empty Shelf; 0 storage units, 0 items; no items; tree Empty Shelf; focus LocationPane";
    ScanDeadCodes(empty);
    ScanItems(empty);
    ScanLocation("Row 2");
    ExpectSeen(m_row2 + "focus LocationPane");
    ScanLocation("Empty Shelf");
    ExpectSeen(empty);
}

TEST_F(ScansTest, RightAfterLoggingIn) {
    const QString root =
        "Sign-In Locations; 7 storage units, 0 items; contents; tree Sign-In Locations; focus grpSearch";
    ScanDeadCodes(root);
    ScanItems(root);
    ScanLocation("Row 2");
    ExpectSeen(m_row2 + "focus grpSearch");
}

// Another workstation has added a location without a category.
TEST_F(ScansTest, InTheUncategorizedLocations) {
    m_player.Do([path = DatabasePath()] {
        SQLite::Database(path, SQLite::OPEN_READWRITE)
            .exec(
                "INSERT INTO StorageLocation (Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES ('New "
                "Room', 1, '/0/', 1, '2026-01-05T08:00:00.000', '2026-01-05T08:00:00.000')");
    });
    ClickNode("Impound Lot");
    m_player.Press("F5");
    m_player.Press("End");
    ClickNode("Uncategorized Locations");
    const QString uncategorized =
        "Uncategorized Locations; 1 storage unit, 0 items; contents; tree Uncategorized Locations; focus LocationPane";
    ScanDeadCodes(uncategorized);
    ScanItems(uncategorized);
    ScanLocation("New Room");
    ExpectSeen("New Room; 0 storage units, 0 items; no items; tree New Room; focus LocationPane");
    ScanLocation("Row 2");
    ExpectSeen(m_row2 + "focus LocationPane");
}

TEST_F(ScansTest, InSearchResults) {
    OpenLocation({"Impound Lot", "Row 2"});
    SearchFor("LONG-*");
    const QString results = "Search Results; Showing stored items matching 'LONG-*'; results; ";
    ExpectSeen(results + "selected LONG-001; focus SearchResultPane");
    m_player.TurnWheel(
        "the results", [] { return SpotOfRow(FirstRow()); }, 3);
    ClickRow("LONG-011");
    const QString scrolled = results + "selected LONG-011; focus SearchResultPane";
    ScanDeadCodes(scrolled);
    ScanItems(scrolled);
    m_player.Expect("The first row", FirstRow, "LONG-010");
    ScanLocation("Row 2");
    ExpectSeen(m_row2 + "focus ItemPane");
}

TEST_F(ScansTest, InASearchWithoutResults) {
    SearchFor("no such thing");
    const QString nothing =
        "Search Results; Showing stored items matching 'no such thing'; no results; focus grpSearch";
    ScanDeadCodes(nothing);
    ExpectText("The search box", "explorer/search", "no such thing");
    ScanItems(nothing);
    ScanLocation("Empty Shelf");
    ExpectSeen("Empty Shelf; 0 storage units, 0 items; no items; tree Empty Shelf; focus grpSearch");
}

TEST_F(ScansTest, WithAnOpenBatch) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow(property);
    ClickRow(vehicle, Modifier::Control);
    RightClickRow(property);
    ChooseEntry("Move  2 items");
    const QString infobar = "2 items selected for moving within evidence storage";
    const QString batch = "in batch " + property + ", " + vehicle + "; focus ItemPane; " + infobar;
    ScanDeadCodes(m_row2 + "selected " + property + ", " + vehicle + "; " + batch);
    ScanItems(m_row2 + "selected " + property + ", " + vehicle + "; " + batch);
    ScanLocation("Empty Shelf");
    ExpectSeen("Empty Shelf; 0 storage units, 0 items; no items; tree Empty Shelf; focus LocationPane; " + infobar);
    ScanLocation("Row 2");
    ExpectSeen(m_row2 + "in batch " + property + ", " + vehicle + "; focus LocationPane; " + infobar);
    SearchFor("2026-0388-*");
    ExpectSeen(
        "Search Results; Showing stored items matching '2026-0388-*'; results; selected 2026-0388-07; in batch " +
        property + "; focus SearchResultPane; " + infobar);
    ScanLocation("Row 2");
    ExpectSeen(m_row2 + batch);
}

}  // namespace quellbrook::testing
