#include "tests/desktop/explorer/ExplorerTest.h"

#include "ui/controls/FlatScrollBar.h"

#include <QAbstractItemView>
#include <QScrollBar>

namespace quellbrook::testing {

namespace {

using namespace tour;

QString LongItem(int number) { return QStringLiteral("LONG-%1").arg(number, 3, 10, QLatin1Char('0')); }

int Value() {
    const QScrollBar* bar = ScrollBarOnTheRight();
    return bar ? bar->value() : -1;
}

QString Arrows() {
    const auto* bar = qobject_cast<FlatScrollBar*>(Find(QStringLiteral("SearchResultPane/vertScroll")));
    if (!bar) return {};
    return QStringList{"both", "up", "down"}.value(bar->GetArrows());
}

// The names of the visible rows follow each other without a gap.
bool RowsAreInOrder() {
    const auto rows = VisibleRows();
    if (rows.size() < 2) return false;
    const int first = rows.front().name.right(3).toInt();
    for (size_t i = 0; i < rows.size(); ++i)
        if (rows[i].name != LongItem(first + static_cast<int>(i))) return false;
    return true;
}

class ScrollingTest : public ExplorerTest {
protected:
    void OpenLongShelf() {
        OpenLocation({"Long Shelf"});
        ExpectFirst(1);
    }
    void SearchLongShelf() {
        SearchFor("LONG-*");
        ExpectSeen(m_found + "; selected LONG-001; focus SearchResultPane");
    }

    void ExpectFirst(int number) {
        m_player.Expect("The first row", FirstRow, LongItem(number));
        m_player.Wait("The rows are in order", RowsAreInOrder);
    }
    void ExpectLast(int number) {
        m_player.Expect("The last row", LastRow, LongItem(number));
        m_player.Wait("The rows are in order", RowsAreInOrder);
    }
    void TurnWheel(int notches) {
        m_player.TurnWheel(
            "a row", [] { return SpotOfRow(FirstRow()); }, notches);
    }
    void DragThumb(int distance) { m_player.Drag("the thumb", SpotOfThumb, QPoint(0, distance)); }
    // The first row after the thumb was moved to about the middle.
    void ExpectMiddle() {
        m_player.Wait(
            "A row in the middle is the first",
            [] {
                const int first = FirstRow().right(3).toInt();
                return first > 100 && first < 300 && RowsAreInOrder();
            },
            FirstRow);
    }

    void ClickFifthRow() {
        m_player.Do([this] { m_clicked = VisibleRows().at(4).name; });
        m_player.Click("the fifth visible row", [this] { return SpotOfRow(m_clicked); });
        m_player.Wait(
            "Only that row is selected",
            [this] { return Seen() == m_shelf + "; selected " + m_clicked + "; focus ItemPane"; }, Seen);
    }

    QString m_clicked;
    const QString m_found = "Search Results; Showing stored items matching 'LONG-*'; results";
    const QString m_shelf = "Long Shelf; 0 storage units, 400 items; contents; tree Long Shelf";
};

}  // namespace

TEST_F(ScrollingTest, TheWheelScrollsTheContentsUnderThePointerOnly) {
    OpenLongShelf();
    TurnWheel(2);
    m_player.Wait(
        "The contents have moved up", [] { return Value() > 0 && FirstRow() > LongItem(1); }, FirstRow);
    m_player.Wait("The rows are in order", RowsAreInOrder);
    ExpectSeen(m_shelf + "; focus LocationPane");
    TurnWheel(-2);
    ExpectFirst(1);
    ExpectSeen(m_shelf + "; focus LocationPane");
}

TEST_F(ScrollingTest, TheContentsFollowTheThumb) {
    OpenLongShelf();
    ClickRow("LONG-002");
    DragThumb(600);
    ExpectLast(400);
    m_player.Drop();
    ExpectLast(400);
    DragThumb(-250);
    ExpectMiddle();
    m_player.Drop();
    ClickFifthRow();
    DragThumb(-600);
    ExpectFirst(1);
    m_player.Drop();
    ExpectSeen(m_shelf + "; focus ItemPane");
}

TEST_F(ScrollingTest, TheWheelScrollsResultsByThreeRowsANotch) {
    SearchLongShelf();
    TurnWheel(1);
    ExpectFirst(4);
    ExpectSeen(m_found + "; focus SearchResultPane");
    TurnWheel(2);
    ExpectFirst(10);
    TurnWheel(-1);
    ExpectFirst(7);
    TurnWheel(-3);
    ExpectFirst(1);
    ExpectSeen(m_found + "; selected LONG-001; focus SearchResultPane");
}

TEST_F(ScrollingTest, ResultsFollowTheThumbWhileItIsDragged) {
    SearchLongShelf();
    m_player.Expect("The arrows", Arrows, "down");
    DragThumb(600);
    ExpectLast(400);
    m_player.Expect("The arrows", Arrows, "up");
    m_player.Drop();
    ExpectLast(400);
    DragThumb(-250);
    ExpectMiddle();
    m_player.Expect("The arrows", Arrows, "both");
    m_player.Drop();
    DragThumb(-600);
    ExpectFirst(1);
    m_player.Drop();
    m_player.Expect("The arrows", Arrows, "down");
    ExpectSeen(m_found + "; selected LONG-001; focus SearchResultPane");
}

TEST_F(ScrollingTest, ArrowKeysScrollResultsByOneRowAtTheEdges) {
    SearchLongShelf();
    m_player.Press("End");
    ExpectLast(400);
    ExpectSeen(m_found + "; selected LONG-400; focus SearchResultPane");
    m_player.Press("Down");
    m_player.Press("Home");
    ExpectFirst(1);
    ExpectSeen(m_found + "; selected LONG-001; focus SearchResultPane");
    m_player.Press("Up");
    TurnWheel(1);
    ExpectFirst(4);
    ClickRow("LONG-004");
    ExpectSeen(m_found + "; selected LONG-004; focus SearchResultPane");
    m_player.Press("Up");
    ExpectFirst(3);
    ExpectSeen(m_found + "; selected LONG-003; focus SearchResultPane");
}

TEST_F(ScrollingTest, TheWheelScrollsTheTreeWithoutChoosingALocation) {
    ClickNode("Sign-In Locations");
    m_player.Press("asterisk");
    const auto firstNode = [] {
        const QAbstractItemView* tree = FindView(QStringLiteral("explorer/LocationPane"));
        return tree ? tree->indexAt(QPoint(tree->viewport()->width() / 2, 5)).data().toString() : QString();
    };
    m_player.Wait("The last node is out of view", [] {
        QAbstractItemView* tree = FindView(QStringLiteral("explorer/LocationPane"));
        return tree && tree->verticalScrollBar()->maximum() > 200;
    });
    m_player.Expect("The first node", firstNode, "Sign-In Locations");
    const auto overTheTree = [] { return SpotOf(FindView(QStringLiteral("explorer/LocationPane"))->viewport()); };
    m_player.TurnWheel("the tree", overTheTree, 3);
    m_player.Wait("Another node is the first", [firstNode] { return firstNode() != "Sign-In Locations"; });
    m_player.TurnWheel("the tree", overTheTree, -5);
    m_player.Expect("The first node", firstNode, "Sign-In Locations");
    ExpectSeen("Sign-In Locations; 7 storage units, 0 items; contents; tree Sign-In Locations; focus LocationPane");
}

}  // namespace quellbrook::testing
