#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/ListView.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTextDocument>
#include <QTreeWidget>

#include <memory>
#include <utility>

namespace quellbrook::testing {
namespace {

using Rows = std::vector<int>;

class ListViewTest : public ControlsTest {
protected:
    ListViewTest() {
        m_list.SetIconSize(30, 1.2);
        m_list.AddColumn("icon", "", 615);
        m_list.AddColumn("name", "Name", 2400);
        m_list.AddColumn("type", "Type", 1500);
        m_list.Move(0, 0, 9000, 6000);
    }

    void AddRows(int count) {
        for (int i = 0; i < count; ++i)
            m_list.AddRow("P" + QString::number(i), "tag", {{"2026-" + QString::number(i)}, {"Tools", true}});
    }

    void Show() { ShowActive(m_window); }

    QPoint InRow(int row, int x = 100) {
        return QPoint(x, m_list.Tree()->visualItemRect(m_list.Tree()->topLevelItem(row)).center().y());
    }

    Rows Selected() {
        Rows rows;
        for (int row = 0; row < m_list.RowCount(); ++row)
            if (m_list.RowSelected(row)) rows.push_back(row);
        return rows;
    }

    // The background of a row at half its height.
    QColor Background(int row, int x) {
        QTreeWidget* tree = m_list.Tree();
        const int top = tree->visualItemRect(tree->topLevelItem(row)).top();
        return PixelAt(Grab(*tree->viewport()), QPoint(x, top + 4));
    }

    int RightEdge() { return m_list.Tree()->viewport()->width() - 1; }

    ListView m_list{&m_window};
};

TEST_F(ListViewTest, ColumnsHaveKeysCaptionsAndWidths) {
    EXPECT_EQ(m_list.ColumnCount(), 3);
    EXPECT_EQ(m_list.ColumnIndex("type"), 2);
    EXPECT_EQ(m_list.ColumnIndex("none"), -1);
    EXPECT_FLOAT_EQ(m_list.ColumnWidth(1), 2400);
    m_list.SetColumnWidth(1, 3000);
    EXPECT_FLOAT_EQ(m_list.ColumnWidth(1), 3000);
    EXPECT_EQ(m_list.Tree()->headerItem()->text(1), "Name");
    EXPECT_EQ(m_list.Tree()->header()->sizeHint().height(), 32);
}

TEST_F(ListViewTest, ColumnsCanBeCleared) {
    AddRows(2);
    EXPECT_EQ(m_list.ColumnCaption(1), "Name");
    m_list.ClearColumns();
    EXPECT_EQ(m_list.ColumnCount(), 0);
    EXPECT_EQ(m_list.ColumnIndex("name"), -1);
    EXPECT_EQ(m_list.RowCount(), 0);
    m_list.AddColumn("select_field", "", 0);
    m_list.AddColumn("display_id", "ID", 1800);
    EXPECT_EQ(m_list.ColumnCount(), 2);
    EXPECT_EQ(m_list.ColumnCaption(0), "");
    EXPECT_EQ(m_list.ColumnCaption(1), "ID");
    EXPECT_FLOAT_EQ(m_list.ColumnWidth(0), 0);
    EXPECT_FLOAT_EQ(m_list.ColumnWidth(1), 1800);
    m_list.AddRow("P0", "tag", {{"2026-0417-01"}});
    EXPECT_EQ(m_list.CellText(0, 1), "2026-0417-01");
}

TEST_F(ListViewTest, RowsAreInTheOrderOfInsertion) {
    m_list.AddRow("L5", "location", {{"Bin B-1"}, {"Location", true}});
    m_list.AddRow("P7", "tag", {{"2026-0398-01", false, true}, {"Jewelry", true, true}});
    ASSERT_EQ(m_list.RowCount(), 2);
    EXPECT_EQ(m_list.RowKey(0), "L5");
    EXPECT_EQ(m_list.RowIcon(0), "location");
    EXPECT_EQ(m_list.CellText(0, 1), "Bin B-1");
    EXPECT_TRUE(m_list.CellGray(0, 2));
    EXPECT_FALSE(m_list.CellGray(0, 1));
    EXPECT_FALSE(m_list.CellBold(0, 1));
    EXPECT_TRUE(m_list.CellBold(1, 2));
    EXPECT_TRUE(m_list.Tree()->topLevelItem(1)->font(2).bold());
    m_list.ClearRows();
    EXPECT_EQ(m_list.RowCount(), 0);
    EXPECT_NO_THROW(m_list.AddRow("P7", "tag", {}));
}

TEST_F(ListViewTest, ADuplicateKeyRaisesAnError) {
    AddRows(2);
    try {
        m_list.AddRow("P1", "tag", {});
        FAIL() << "No error was raised.";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::KeyTaken);
    }
    EXPECT_EQ(m_list.RowCount(), 2);
}

TEST_F(ListViewTest, AMissingRowRaisesAnError) {
    AddRows(1);
    EXPECT_THROW(m_list.RowKey(1), Error);
    EXPECT_THROW(m_list.SetRowBand(-1, true), Error);
}

TEST_F(ListViewTest, CellsAndIconsCanChange) {
    AddRows(1);
    m_list.SetRowIcon(0, "marked");
    EXPECT_EQ(m_list.RowIcon(0), "marked");
    m_list.SetCellStyle(0, 2, false, true);
    EXPECT_FALSE(m_list.CellGray(0, 2));
    EXPECT_TRUE(m_list.CellBold(0, 2));
    EXPECT_TRUE(m_list.Tree()->topLevelItem(0)->font(2).bold());
    m_list.SetCellStyle(0, 2, true, false);
    EXPECT_TRUE(m_list.CellGray(0, 2));
    EXPECT_FALSE(m_list.Tree()->topLevelItem(0)->font(2).bold());
}

TEST_F(ListViewTest, TooltipsArePlainText) {
    AddRows(1);
    m_list.SetCellTooltip(0, 2, "<b>Box</b> a &lt; b");
    EXPECT_EQ(m_list.CellTooltip(0, 2), "<b>Box</b> a &lt; b");
    QTextDocument shown;
    shown.setHtml(m_list.Tree()->topLevelItem(0)->toolTip(2));
    EXPECT_EQ(shown.toPlainText(), "<b>Box</b> a &lt; b");
    m_list.SetCellTooltip(0, 2, "");
    EXPECT_TRUE(m_list.Tree()->topLevelItem(0)->toolTip(2).isEmpty());
}

TEST_F(ListViewTest, RowsAreAsTallAsTheirPaddedIcons) {
    AddRows(3);
    Show();
    EXPECT_EQ(m_list.RowHeight(), 36);
    EXPECT_EQ(m_list.Tree()->visualItemRect(m_list.Tree()->topLevelItem(1)).height(), 36);
    m_list.SetIconSize(24, 1.4);
    EXPECT_EQ(m_list.RowHeight(), 34);
    EXPECT_EQ(m_list.Tree()->visualItemRect(m_list.Tree()->topLevelItem(1)).height(), 34);
}

TEST_F(ListViewTest, TheIconIsCenteredInItsCell) {
    m_list.AddRow("P1", "selected", {{"a"}});
    Show();
    const QImage image = Grab(*m_list.Tree()->viewport());
    const QColor strong = Theme::Get(Theme::Color::Strong);
    QRect painted;
    for (int y = 0; y < 36; ++y)
        for (int x = 0; x < 41; ++x)
            if (PixelAt(image, QPoint(x, y)) == strong) painted |= QRect(x, y, 1, 1);
    ASSERT_FALSE(painted.isEmpty());
    EXPECT_NEAR(QRectF(painted).center().y(), 18.0, 1.0);
    EXPECT_NEAR(QRectF(painted).center().x(), 20.5, 1.0);
}

TEST_F(ListViewTest, SelectionOfSeveralAndOfAll) {
    AddRows(4);
    Show();
    Click(m_list.Tree()->viewport(), InRow(1));
    EXPECT_EQ(Selected(), (Rows{1}));
    EXPECT_EQ(m_list.CurrentRow(), 1);
    Click(m_list.Tree()->viewport(), InRow(3), Qt::ControlModifier);
    EXPECT_EQ(Selected(), (Rows{1, 3}));
    Click(m_list.Tree()->viewport(), InRow(1), Qt::ShiftModifier);
    EXPECT_EQ(Selected(), (Rows{1, 2, 3}));
    m_list.SelectAll();
    EXPECT_EQ(Selected(), (Rows{0, 1, 2, 3}));
    m_list.ClearSelection();
    EXPECT_EQ(Selected(), Rows());
    EXPECT_EQ(m_list.CurrentRow(), -1);
    m_list.SetCurrentRow(2);
    EXPECT_EQ(m_list.CurrentRow(), 2);
    m_list.SetCurrentRow(-1);
    EXPECT_EQ(m_list.CurrentRow(), -1);
}

TEST_F(ListViewTest, ARightPressSelectsAnUnselectedRowAndKeepsSeveral) {
    AddRows(4);
    Show();
    RightClick(m_list.Tree()->viewport(), InRow(2));
    EXPECT_EQ(Selected(), (Rows{2}));
    m_list.SelectAll();
    RightClick(m_list.Tree()->viewport(), InRow(1));
    EXPECT_EQ(Selected(), (Rows{0, 1, 2, 3}));
}

TEST_F(ListViewTest, HitTestCoversTheRowAndNothingBelow) {
    AddRows(3);
    Show();
    EXPECT_EQ(m_list.HitTest(InRow(1)), 1);
    EXPECT_EQ(m_list.HitTest(InRow(1, RightEdge())), 1);
    EXPECT_EQ(m_list.HitTest(QPoint(100, 3 * 36 + 5)), -1);
    Click(m_list.Tree()->viewport(), InRow(2, RightEdge()));
    EXPECT_EQ(Selected(), (Rows{2}));
}

TEST_F(ListViewTest, AnExtraMouseButtonHasNoBit) {
    AddRows(1);
    Show();
    std::vector<int> buttons;
    QObject::connect(&m_list, &ListView::MouseUp, [&](int button) { buttons.push_back(button); });
    QTest::mouseClick(m_list.Tree()->viewport(), Qt::MiddleButton, Qt::NoModifier, InRow(0));
    QTest::mouseClick(m_list.Tree()->viewport(), Qt::BackButton, Qt::NoModifier, InRow(0));
    EXPECT_EQ(buttons, (std::vector<int>{4, 0}));
}

TEST_F(ListViewTest, MouseEventsFollowTheListsOwnHandling) {
    AddRows(3);
    Show();
    std::vector<std::pair<int, Rows>> ups;
    int doubles = 0;
    QObject::connect(&m_list, &ListView::MouseUp, [&](int button, const QPoint& at) {
        ups.emplace_back(button, Selected());
        EXPECT_EQ(m_list.HitTest(at), 2);
    });
    QObject::connect(&m_list, &ListView::DoubleClicked, [&](const QPoint& at) {
        ++doubles;
        EXPECT_EQ(m_list.HitTest(at), 2);
    });
    RightClick(m_list.Tree()->viewport(), InRow(2));
    EXPECT_EQ(ups, (std::vector<std::pair<int, Rows>>{{2, {2}}}));
    DoubleClick(m_list.Tree()->viewport(), InRow(2));
    EXPECT_EQ(doubles, 1);
    EXPECT_EQ(ups.size(), 3u);
    EXPECT_EQ(ups.back().first, 1);
}

TEST_F(ListViewTest, PressesAndMovesOfThePointerAreRaised) {
    AddRows(3);
    Show();
    std::vector<std::pair<int, int>> downs;
    Rows moves;
    QObject::connect(&m_list, &ListView::MouseDown, [&](int button, const QPoint& at) {
        downs.emplace_back(button, m_list.HitTest(at));
        EXPECT_EQ(Selected(), Rows{m_list.HitTest(at)});
    });
    QObject::connect(&m_list, &ListView::MouseMove, [&](const QPoint& at) { moves.push_back(m_list.HitTest(at)); });
    QTest::mouseMove(m_list.Tree()->viewport(), InRow(2));
    EXPECT_EQ(moves, (Rows{2}));
    Click(m_list.Tree()->viewport(), InRow(1));
    RightClick(m_list.Tree()->viewport(), InRow(0));
    EXPECT_EQ(downs, (std::vector<std::pair<int, int>>{{1, 1}, {2, 0}}));
}

TEST_F(ListViewTest, AColumnCanBeHidden) {
    AddRows(1);
    Show();
    m_list.SetColumnWidth(0, 0);
    EXPECT_FLOAT_EQ(m_list.ColumnWidth(0), 0);
    EXPECT_EQ(m_list.Tree()->header()->sectionViewportPosition(1), 0);
    m_list.SetColumnWidth(0, -300);
    EXPECT_FLOAT_EQ(m_list.ColumnWidth(0), 0);
    m_list.SetColumnWidth(0, 600);
    EXPECT_FLOAT_EQ(m_list.ColumnWidth(0), 600);
}

TEST_F(ListViewTest, KeysAreRaisedBeforeTheListHandlesThem) {
    AddRows(3);
    Show();
    m_list.setFocus();
    EXPECT_EQ(QApplication::focusWidget(), m_list.Tree());
    m_list.ClearSelection();
    std::vector<std::pair<int, bool>> keys;
    Rows selectedThen{9};
    QObject::connect(&m_list, &ListView::KeyDown, [&](int code, bool ctrl) {
        keys.emplace_back(code, ctrl);
        selectedThen = Selected();
    });
    Press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(selectedThen, Rows());
    EXPECT_EQ(Selected(), (Rows{0, 1, 2}));
    Press(Qt::Key_Return);
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(keys, (std::vector<std::pair<int, bool>>{{65, true}, {13, false}, {13, false}}));
}

TEST_F(ListViewTest, ArrowKeysMoveTheCurrentRowAndRaiseAnEvent) {
    AddRows(3);
    Show();
    m_list.setFocus();
    m_list.SetCurrentRow(0);
    Rows moves;
    QObject::connect(&m_list, &ListView::CurrentRowMovedByKeyboard, [&](int row) { moves.push_back(row); });
    Press(Qt::Key_Down);
    Press(Qt::Key_End);
    Press(Qt::Key_Down);
    Press(Qt::Key_Up);
    EXPECT_EQ(moves, (Rows{1, 2, 1}));
    Click(m_list.Tree()->viewport(), InRow(0));
    EXPECT_EQ(moves.size(), 3u);
}

TEST_F(ListViewTest, TheBandReachesTheRightEdge) {
    AddRows(4);
    m_list.SetRowBand(1, true);
    EXPECT_TRUE(m_list.RowBand(1));
    EXPECT_FALSE(m_list.RowBand(0));
    Show();
    ASSERT_GT(RightEdge(), m_list.Tree()->header()->length());
    const QColor base = QApplication::palette().color(QPalette::Base);
    EXPECT_EQ(Background(1, RightEdge()), Theme::BatchTint());
    EXPECT_EQ(Background(0, RightEdge()), base);
    EXPECT_EQ(Background(2, RightEdge()), base);
    EXPECT_EQ(Background(1, 1), Theme::Get(Theme::Color::Accent));
    EXPECT_EQ(Background(1, 3), Theme::BatchTint());
    EXPECT_EQ(Background(0, 1), base);
    m_list.SetRowBand(1, false);
    EXPECT_EQ(Background(1, RightEdge()), base);
}

TEST_F(ListViewTest, TheBandStaysWithItsRowAfterScrolling) {
    AddRows(60);
    m_list.SetRowBand(30, true);
    Show();
    m_list.Tree()->verticalScrollBar()->setValue(25 * 36 + 7);
    EXPECT_EQ(Background(30, RightEdge()), Theme::BatchTint());
    EXPECT_EQ(Background(29, RightEdge()), QApplication::palette().color(QPalette::Base));
    EXPECT_EQ(Background(31, RightEdge()), QApplication::palette().color(QPalette::Base));
}

TEST_F(ListViewTest, TheBandIsMixedInADarkPalette) {
    AddRows(2);
    m_list.SetRowBand(1, true);
    Show();
    const DarkTheme dark;
    ServeEvents();
    EXPECT_EQ(Background(1, RightEdge()), Theme::BatchTint());
    EXPECT_EQ(Background(0, RightEdge()), Theme::Get(Theme::Color::Window));
}

TEST_F(ListViewTest, ASelectedRowInTheBatchKeepsItsAccentBar) {
    AddRows(3);
    m_list.SetRowBand(1, true);
    Show();
    m_list.setFocus();
    m_list.SelectAll();
    EXPECT_EQ(Background(1, RightEdge()), Theme::Get(Theme::Color::Highlight));
    EXPECT_EQ(Background(1, 1), Theme::Get(Theme::Color::Accent));
    EXPECT_EQ(Background(0, 1), Theme::Get(Theme::Color::Highlight));
    m_list.Tree()->clearFocus();
    EXPECT_EQ(Background(0, RightEdge()), Theme::Get(Theme::Color::SelectedInactive));
}

TEST_F(ListViewTest, TheRingOfASelectedRowIsInsideIt) {
    AddRows(2);
    Show();
    m_list.setFocus();
    m_list.SetCurrentRow(0);
    Press(m_list.Tree(), Qt::Key_Down);
    ASSERT_EQ(Selected(), (Rows{1}));
    const QColor background = Theme::Get(Theme::Color::Highlight);
    const QColor ring = Theme::Get(Theme::Color::HighlightText);
    EXPECT_EQ(Background(1, 0), background);
    EXPECT_EQ(Background(1, 2), background);
    EXPECT_EQ(Background(1, 3), ring);
    EXPECT_EQ(Background(1, RightEdge()), background);
    EXPECT_EQ(Background(1, RightEdge() - 4), ring);
    m_list.Tree()->clearSelection();
    EXPECT_EQ(Background(1, 0), Theme::Get(Theme::Color::Link));
}

TEST_F(ListViewTest, ADisabledListHasGrayIcons) {
    m_list.AddRow("1", "selected", {{"Mobile phone"}, {"Phones"}});
    Show();
    const auto hasColor = [this](Theme::Color color) {
        return HasColor(Grab(*m_list.Tree()->viewport()), QRect(0, 0, 41, 36), Theme::Get(color));
    };
    EXPECT_TRUE(hasColor(Theme::Color::Strong));
    EXPECT_FALSE(hasColor(Theme::Color::DisabledText));
    m_list.setEnabled(false);
    EXPECT_FALSE(hasColor(Theme::Color::Strong));
    EXPECT_TRUE(hasColor(Theme::Color::DisabledText));
}

TEST_F(ListViewTest, RowsAreSeparatedByHairlines) {
    AddRows(2);
    Show();
    const auto line = [this] { return PixelAt(Grab(*m_list.Tree()->viewport()), QPoint(RightEdge(), 35)); };
    EXPECT_EQ(line(), Theme::Get(Theme::Color::RowHairline));
    m_list.SetRowLines(false);
    EXPECT_EQ(line(), QApplication::palette().color(QPalette::Base));
}

TEST_F(ListViewTest, CanHaveAFrameAndNoHeader) {
    m_list.SetHeaderVisible(false);
    m_list.SetFramed(true);
    EXPECT_TRUE(m_list.Tree()->isHeaderHidden());
    EXPECT_EQ(m_list.Tree()->geometry(), m_list.rect().adjusted(1, 1, -1, -1));
    Show();
    EXPECT_EQ(PixelAt(Grab(m_list), QPoint(0, 100)), Theme::Get(Theme::Color::FieldBorder));
}

TEST_F(ListViewTest, TextWidthsAreMeasuredInTheCellsFont) {
    const float body = m_list.TextWidth("WWWW");
    EXPECT_GT(body, 0);
    m_list.SetType(Theme::Type::RowHeading);
    EXPECT_GT(m_list.TextWidth("WWWW"), body);
    EXPECT_FLOAT_EQ(m_list.TextWidth(""), 0);
}

TEST_F(ListViewTest, LongTextDoesNotReachTheNextCell) {
    m_list.AddRow("P1", "", {{QString(80, 'W')}, {""}});
    Show();
    const QImage image = Grab(*m_list.Tree()->viewport());
    const int second = 41 + 160;
    for (int x = second; x < second + 40; ++x)
        for (int y = 0; y < 35; ++y)
            ASSERT_EQ(PixelAt(image, QPoint(x, y)), QApplication::palette().color(QPalette::Base)) << x << "," << y;
}

}  // namespace
}  // namespace quellbrook::testing
