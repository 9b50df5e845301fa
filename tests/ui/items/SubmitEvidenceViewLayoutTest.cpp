#include "tests/support/ui/GeometryWalk.h"
#include "tests/ui/items/SubmitEvidenceViewTest.h"

#include <QScrollBar>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::IsEmpty;

class SubmitEvidenceViewLayoutTest : public SubmitEvidenceViewTest {
protected:
    void Resize(const QSize& size) {
        m_window.resize(size);
        m_view->Move(0, 0, ToTwips(size.width()), ToTwips(size.height()));
    }
    int ColumnLeft(int column) { return Tree()->columnViewportPosition(column); }
    int ColumnRight(int column) { return ColumnLeft(column) + Tree()->columnWidth(column); }
    // Untracked items of one incident.
    void AddItems(int count) {
        const int32_t incident = m_database.AddIncident("2026-0777");
        for (int i = 0; i < count; ++i) {
            const auto item = AddUntracked("M-" + std::to_string(i), "One of many");
            m_database.LinkIncident(item->ItemType(), item->ID(), incident);
        }
    }
};

TEST_F(SubmitEvidenceViewLayoutTest, PartsAreLaidOutAtTwoSizes) {
    SearchIncident();
    for (const QSize& size : {QSize(1280, 760), QSize(1920, 1040)}) {
        Resize(size);
        EXPECT_EQ(Named("picTitleArea")->geometry(), QRect(0, 0, size.width(), 56));
        EXPECT_EQ(Named("lnkClose")->Left(), m_view->Width() - Named("lnkClose")->Width() - 240);
        const Control& search = *Named("grpSearch");
        EXPECT_EQ(search.Left(), m_view->Width() / 2 - search.Width() / 2);
        EXPECT_EQ(Named("btnSearch")->Left(), search.Width() / 2 - Named("btnSearch")->Width() / 2);
        const Control& results = *Named("grpResults");
        EXPECT_EQ(results.Width(), m_view->Width());
        EXPECT_EQ(results.Bottom(), m_view->Height());
        EXPECT_GT(results.Top(), search.Bottom());
        const Control& bar = *Named("grpBottomBar");
        EXPECT_EQ(bar.Left(), 0);
        EXPECT_EQ(bar.Width(), results.Width());
        EXPECT_EQ(bar.Bottom(), results.Height());
        EXPECT_EQ(List()->Left(), 240);
        EXPECT_EQ(List()->Width(), results.Width() - 480);
        EXPECT_EQ(List()->height() % 34, 0);
        EXPECT_GT(List()->geometry().bottom() + 34, bar.y());
        EXPECT_LT(List()->geometry().bottom(), bar.y());
        EXPECT_EQ(Named("lnSeparator")->Left(), List()->Left());
        EXPECT_EQ(Named("lnSeparator")->Right(), List()->Right());
        EXPECT_EQ(Submit()->Left(), bar.Width() / 2 - Submit()->Width() / 2);
        EXPECT_EQ(Submit()->Top(), bar.Height() / 2 - Submit()->Height() / 2);
        EXPECT_EQ(Named("grpNoResults")->geometry(), results.geometry());
        const Control& message = *Named("grpNoResultsMessage");
        EXPECT_EQ(message.Left(), results.Width() / 2 - message.Width() / 2);
        EXPECT_EQ(message.Top(), results.Height() / 2 - message.Height() / 2);
    }
}

TEST_F(SubmitEvidenceViewLayoutTest, TheTableIsCenteredAtEveryWidth) {
    SearchIncident();
    for (const int width : {1100, 1280, 1920}) {
        Resize(QSize(width, 760));
        const int listWidth = List()->width();
        EXPECT_EQ(Tree()->columnWidth(SelectField), 0);
        EXPECT_EQ(Tree()->columnWidth(PaddingRight), 0);
        EXPECT_EQ(Tree()->columnWidth(CheckMark), 34);
        EXPECT_NEAR(Tree()->columnWidth(DisplayId), 0.2 * listWidth - 34, 0.51);
        EXPECT_NEAR(Tree()->columnWidth(Description), 0.4 * listWidth, 0.51);
        EXPECT_NEAR(ColumnLeft(CheckMark), listWidth - ColumnRight(IncidentIds), 1) << width;
        EXPECT_GT(ColumnLeft(CheckMark), 0);
    }
}

TEST_F(SubmitEvidenceViewLayoutTest, TheCaptionsAreOverTheirColumns) {
    SearchIncident();
    const auto expectOver = [this] {
        const auto headers = FindAll<Label>(*m_view, "lblHeader");
        ASSERT_EQ(headers.size(), 7u);
        EXPECT_FALSE(headers[0]->IsShown());
        const char* captions[] = {"", " ", " ", "ID ", "Description ", "Incident(s) ", " "};
        for (int column = 1; column < 7; ++column) {
            const Label& header = *headers[static_cast<size_t>(column)];
            EXPECT_EQ(header.Index(), column);
            EXPECT_TRUE(header.isVisible());
            EXPECT_EQ(header.Caption(), captions[column]);
            EXPECT_EQ(header.x(), List()->x() + ColumnLeft(column));
            EXPECT_EQ(header.width(), Tree()->columnWidth(column));
            EXPECT_LT(header.geometry().bottom(), Named("lnSeparator")->y());
        }
    };
    expectOver();
    Resize(QSize(1920, 1040));
    expectOver();
    m_view->Show(nullptr);
    SearchIncident();
    expectOver();
}

TEST_F(SubmitEvidenceViewLayoutTest, TheMarkBelowTheListIsUnderTheCheckColumn) {
    SearchIncident();
    for (const QSize& size : {QSize(1280, 760), QSize(1920, 1040)}) {
        Resize(size);
        Tick("2026-0431-01");
        const Control& count = *Named("lblSelectedCount");
        const Control& bar = *Named("grpBottomBar");
        EXPECT_EQ(SelectAll()->Left(), List()->Left() + List()->ColumnWidth(PaddingLeft));
        EXPECT_EQ(SelectAll()->width(), Tree()->columnWidth(CheckMark));
        EXPECT_EQ(SelectAll()->Top(), bar.Height() / 2 - SelectAll()->Height() / 2);
        EXPECT_EQ(count.Left(), SelectAll()->Right() + 60);
        EXPECT_EQ(count.Top(), bar.Height() / 2 - count.Height() / 2);
    }
}

TEST_F(SubmitEvidenceViewLayoutTest, RowsAreTallerThanTheirCheckMarkWhichIsInTheMiddle) {
    SearchIncident();
    EXPECT_EQ(List()->RowHeight(), 34);
    EXPECT_EQ(CellOf(1, CheckMark).height(), 34);
    const QRect cell = CellOf(1, CheckMark);
    const QImage without = Grab(*Tree()->viewport());
    List()->SetRowIcon(1, "");
    const QImage blank = Grab(*Tree()->viewport());
    QRect mark;
    for (int y = cell.top(); y <= cell.bottom(); ++y)
        for (int x = cell.left(); x <= cell.right(); ++x)
            if (without.pixel(x, y) != blank.pixel(x, y)) mark |= QRect(x, y, 1, 1);
    EXPECT_NEAR(mark.center().x(), cell.center().x(), 1);
    EXPECT_NEAR(mark.center().y(), cell.center().y(), 1);
}

TEST_F(SubmitEvidenceViewLayoutTest, AnEmptyListHasItsFirstColumnWidths) {
    m_view->Show(nullptr);
    EXPECT_EQ(List()->ColumnWidth(DisplayId), List()->TextWidth(QString(20, 'm')));
    EXPECT_EQ(List()->ColumnWidth(Description), List()->TextWidth(QString(30, 'm')));
}

TEST_F(SubmitEvidenceViewLayoutTest, ALongIncidentListWidensItsColumnForGood) {
    const float before = List()->ColumnWidth(IncidentIds);
    EXPECT_EQ(before, List()->TextWidth(QString(25, 'm')));
    for (int i = 0; i < 6; ++i) LinkIncident(m_car, "2026-09" + std::to_string(10 + i), Null());
    Resize(QSize(1920, 1040));
    SearchIncident();
    const QString incidents = List()->CellText(RowOf("LVN2077 (OR)"), IncidentIds);
    const float widened = List()->ColumnWidth(IncidentIds);
    EXPECT_EQ(widened, List()->TextWidth(incidents, true) + 240);
    EXPECT_GT(widened, before);
    EXPECT_NEAR(ColumnLeft(CheckMark), List()->width() - ColumnRight(IncidentIds), 1);
    Search(NumberSearchTypes::PropertyID, "2026-0431-01");
    EXPECT_EQ(List()->ColumnWidth(IncidentIds), widened);
    m_view->Show(nullptr);
    EXPECT_EQ(List()->ColumnWidth(IncidentIds), before);
}

TEST_F(SubmitEvidenceViewLayoutTest, OnlyWholeRowsAreShown) {
    AddItems(40);
    Search(NumberSearchTypes::IncidentId, "2026-0777");
    for (const int height : {760, 751, 600, 480}) {
        Resize(QSize(1280, height));
        EXPECT_EQ(Tree()->viewport()->height() % 34, 0) << height;
        EXPECT_GT(Tree()->viewport()->height(), 0) << height;
        for (const int value : {0, 3, Tree()->verticalScrollBar()->maximum()}) {
            Tree()->verticalScrollBar()->setValue(value);
            EXPECT_EQ(Tree()->visualItemRect(Tree()->itemAt(60, 5)).top(), 0) << value;
        }
        EXPECT_EQ(Tree()->visualItemRect(Tree()->topLevelItem(39)).bottom() + 1, Tree()->viewport()->height());
    }
}

TEST_F(SubmitEvidenceViewLayoutTest, OnlyWholeRowsAreShownAboveAHorizontalScrollBar) {
    AddItems(40);
    const StoredItemRef item = AddUntracked("M-40", "With many incidents");
    LinkIncident(item, "2026-0777", Null());
    for (int i = 0; i < 9; ++i) LinkIncident(item, "2026-0700-" + std::to_string(i), Null());
    Search(NumberSearchTypes::IncidentId, "2026-0777");
    Resize(QSize(1000, 760));
    ServeEvents();
    ASSERT_TRUE(Tree()->horizontalScrollBar()->isVisible());
    EXPECT_EQ(Tree()->viewport()->height() % 34, 0);
    EXPECT_LT(List()->geometry().bottom(), Named("grpBottomBar")->y());
}

TEST_F(SubmitEvidenceViewLayoutTest, TheCaptionsFollowAHorizontalScroll) {
    const StoredItemRef item = AddUntracked("M-40", "With many incidents");
    LinkIncident(item, "2026-0777", Null());
    for (int i = 0; i < 9; ++i) LinkIncident(item, "2026-0700-" + std::to_string(i), Null());
    Search(NumberSearchTypes::IncidentId, "2026-0777");
    Resize(QSize(900, 760));
    ServeEvents();
    QScrollBar* bar = Tree()->horizontalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    for (const int offset : {bar->maximum(), 0}) {
        bar->setValue(offset);
        for (int column = 1; column < 7; ++column) {
            const Label& header = *FindAll<Label>(*m_view, "lblHeader")[static_cast<size_t>(column)];
            EXPECT_EQ(header.x(), List()->x() + Tree()->columnViewportPosition(column)) << offset << ", " << column;
        }
    }
}

TEST_F(SubmitEvidenceViewLayoutTest, TheColumnsHaveTheirKeys) {
    const char* keys[] = {"select_field", "padding_left", "icon",         "display_id",
                          "desc",         "incident_ids", "padding_right"};
    for (int column = 0; column < 7; ++column) EXPECT_EQ(List()->ColumnIndex(keys[column]), column);
}

TEST_F(SubmitEvidenceViewLayoutTest, NothingOverlapsOrIsCutOff) {
    AddItems(40);
    m_view->setAccessibleName("Submit Evidence");  // the shell's
    for (const QSize& size : {QSize(1280, 760), QSize(960, 560), QSize(800, 440)}) {
        Resize(size);
        for (const char* number : {"2026-0777", "nothing", "2026-0431"}) {
            Search(NumberSearchTypes::IncidentId, number);
            GeometryWalk walk({{MeantFault::Kind::Overlap, "QFocusFrame", "", "it surrounds the focused control"}});
            EXPECT_THAT(walk.FaultsOf(m_window), IsEmpty()) << number << size.width();
            EXPECT_GT(walk.Visited(), 12);
        }
    }
}

}  // namespace
}  // namespace quellbrook::testing
