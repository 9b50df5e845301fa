#include "tests/desktop/explorer/ExplorerTest.h"

#include <QAbstractItemView>

namespace quellbrook::testing {

namespace {

using namespace tour;

class SelectionTest : public ExplorerTest {
protected:
    void ExpectSelected(const QString& rows) {
        ExpectSeen("Row 2; 0 storage units, 8 items; contents; tree Row 2; selected " + rows + "; focus ItemPane");
    }
    // All selected rows, also those that are scrolled out of view.
    void ExpectSelectedCount(int count) {
        m_player.Expect(
            "The number of rows selected",
            [] { return QString::number(SelectedRows(FindView(QStringLiteral("explorer/ItemPane"))).size()); },
            QString::number(count));
    }
};

}  // namespace

TEST_F(SelectionTest, ClicksWithShiftAndControlSelectAsInEveryList) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow("2026-0388-09");
    ExpectSelected("2026-0388-09");
    ClickRow("2026-0388-08");
    ExpectSelected("2026-0388-08");
    ClickRow("KTR4821 (OR)", Modifier::Control);
    ExpectSelected("2026-0388-08, KTR4821 (OR)");
    ClickRow("2026-0388-08", Modifier::Control);
    ExpectSelected("KTR4821 (OR)");
    ClickRow("2026-0388-10");
    ClickRow("DMR0134 (OR)", Modifier::Shift);
    ExpectSelected("2026-0388-10, KTR4821 (OR), DMR0134 (OR)");
    ClickRow("2026-0388-09", Modifier::Shift);
    ExpectSelected("2026-0388-09, 2026-0388-10");
    ClickRow("2026-0388-08");
    ExpectSelected("2026-0388-08");
}

TEST_F(SelectionTest, ArrowKeysWithShiftExtendAndShrinkTheSelection) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow("2026-0388-08");
    m_player.Press("shift+Down");
    m_player.Press("shift+Down");
    ExpectSelected("2026-0388-08, 2026-0388-09, 2026-0388-10");
    m_player.Press("shift+Up");
    ExpectSelected("2026-0388-08, 2026-0388-09");
    m_player.Press("Down");
    ExpectSelected("2026-0388-10");
}

TEST_F(SelectionTest, ControlASelectsEveryRowAndAClickOnlyOne) {
    OpenLocation({"Long Shelf"});
    ClickRow("LONG-002");
    m_player.Press("ctrl+a");
    ExpectSelectedCount(400);
    m_player.Wait("Every visible row is painted as selected", [] {
        QStringList names;
        for (const ScreenRow& row : VisibleRows()) names << row.name;
        return Seen().contains("; selected " + names.join(", ") + "; focus ItemPane");
    });
    ClickRow("LONG-003");
    ExpectSelectedCount(1);
    ExpectSeen("Long Shelf; 0 storage units, 400 items; contents; tree Long Shelf; selected LONG-003; focus ItemPane");
}

TEST_F(SelectionTest, ShiftAfterScrollingSelectsTheRowsBetween) {
    OpenLocation({"Long Shelf"});
    ClickRow("LONG-002");
    m_player.Press("End");
    ExpectSeen("Long Shelf; 0 storage units, 400 items; contents; tree Long Shelf; selected LONG-400; focus ItemPane");
    ClickRow("LONG-390", Modifier::Shift);
    ExpectSelectedCount(11);
    m_player.Press("Home");
    m_player.Press("shift+End");
    ExpectSelectedCount(400);
}

// The list without the focus shows its selection in gray.
TEST_F(SelectionTest, TheSelectionStaysWhileTheFocusIsInTheTree) {
    OpenLocation({"Impound Lot", "Row 2"});
    ClickRow("2026-0388-09");
    ExpectSelected("2026-0388-09");
    ClickNode("Row 2");
    ExpectSeen(
        "Row 2; 0 storage units, 8 items; contents; tree Row 2; selected in gray 2026-0388-09; focus LocationPane");
}

}  // namespace quellbrook::testing
