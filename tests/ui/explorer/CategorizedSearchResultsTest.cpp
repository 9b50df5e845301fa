#include "ui/explorer/CategorizedSearchResults.h"

#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/PaintCounter.h"
#include "tests/ui/explorer/ExplorerTest.h"
#include "ui/common/StatePanel.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Link.h"
#include "ui/explorer/SearchResultList.h"

#include <gmock/gmock.h>

#include <functional>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

const Error lostServer(4711, "Engine.Query", "The server is gone.");

// Two property items and a vehicle. The case number of one property item is the ID of the other.
class CategorizedSearchResultsTest : public ExplorerTest {
protected:
    CategorizedSearchResultsTest() {
        m_shelf = AddLocation("Shelf A");
        m_first = AddItem("26-100", m_shelf);
        m_second = AddItem("26-200", m_shelf);
        m_database.LinkIncident(StoredItemTypes::Property, m_second, m_database.AddIncident("I-7", "26-100"));
        AddVehicle("XYZ 9", m_shelf);
        m_window.resize(900, 600);
        m_results = new CategorizedSearchResults(&m_window);
        m_results->setGeometry(0, 0, 900, 600);
        m_list = Find<SearchResultList>(*m_results, "searchResults");
        m_menu = Find<QMenu>(*m_results, "mnuCategories");
        ShowActive(m_window);
    }

    QString Text(const char* name) const { return Find<Label>(*m_results, name)->Caption(); }
    bool IsShown(const char* name) const { return Find<Control>(*m_results, name)->IsShown(); }

    // The visible entries of the menu, the checked one with a mark.
    std::vector<std::string> Categories() const {
        std::vector<std::string> texts;
        for (const QAction* action : m_menu->actions())
            if (action->isVisible()) texts.push_back((action->isChecked() ? "* " : "") + action->text().toStdString());
        return texts;
    }
    void Choose(int category) { m_menu->actions().at(category)->trigger(); }

    std::vector<std::string> Shown() const {
        std::vector<std::string> ids;
        for (const SearchResultRow* row : m_list->Rows())
            if (row->IsShown()) ids.push_back(row->Item()->DisplayID());
        return ids;
    }
    void AddItems(const std::string& prefix, int count) {
        m_database.Execute("BEGIN");
        for (int i = 1; i <= count; ++i) AddItem(prefix + std::to_string(i), m_shelf);
        m_database.Execute("COMMIT");
    }

    int32_t m_shelf, m_first, m_second;
    QWidget m_window;
    CategorizedSearchResults* m_results;
    SearchResultList* m_list;
    QMenu* m_menu;
};

TEST_F(CategorizedSearchResultsTest, ATextThatOnlyADescriptionContainsGivesOneCategory) {
    m_results->ExecuteQuery("blue");
    EXPECT_EQ(Text("lblHeader"), "Description");
    EXPECT_EQ(Text("lblResultCount"), "2 Results");
    EXPECT_THAT(Categories(), ElementsAre("* Description (2)"));
    EXPECT_THAT(Shown(), ElementsAre("26-100", "26-200"));
    EXPECT_FALSE(IsShown("lnkMoreResults"));
    EXPECT_FALSE(IsShown("imgDownArrow"));
    EXPECT_TRUE(m_results->isEnabled());
}

TEST_F(CategorizedSearchResultsTest, ANumberOfTwoKindsGivesTwoCategoriesAndShowsTheFirst) {
    m_results->ExecuteQuery("26-100");
    EXPECT_THAT(Categories(), ElementsAre("* Property ID (1)", "Case Number (1)"));
    EXPECT_EQ(Text("lblHeader"), "Property ID");
    EXPECT_EQ(Text("lblResultCount"), "1 Result");
    EXPECT_THAT(Shown(), ElementsAre("26-100"));
    EXPECT_TRUE(IsShown("lnkMoreResults"));
    EXPECT_EQ(Find<Link>(*m_results, "lnkMoreResults")->Caption(), "More Results");
    EXPECT_TRUE(IsShown("imgDownArrow"));
    EXPECT_EQ(Find<FontIcon>(*m_results, "imgDownArrow")->IconName(), "chevron");
    EXPECT_EQ(m_results->SelectedItem()->ID(), m_first);
}

TEST_F(CategorizedSearchResultsTest, AllFiveCategoriesAreInOrder) {
    const int32_t item = AddItem("7", m_shelf);
    m_database.LinkIncident(StoredItemTypes::Property, item, m_database.AddIncident("7", "7"));
    AddVehicle("7", m_shelf);
    m_database.Execute("UPDATE Property SET Description = 'a 7 iron' WHERE PropertyNo = ?", {m_first});
    m_results->ExecuteQuery("7");
    EXPECT_THAT(Categories(), ElementsAre("* Property ID (1)", "Vehicle Tag (1)", "Incident ID (1)", "Case Number (1)",
                                          "Description (1)"));
}

TEST_F(CategorizedSearchResultsTest, AnotherCategoryIsShownWithoutASearch) {
    m_results->ExecuteQuery("26-100");
    Choose(1);
    EXPECT_THAT(Categories(), ElementsAre("Property ID (1)", "* Case Number (1)"));
    EXPECT_EQ(Text("lblHeader"), "Case Number");
    EXPECT_THAT(Shown(), ElementsAre("26-200"));
    m_database.Execute("UPDATE Property SET PropertyID = 'new'");
    Choose(0);
    EXPECT_THAT(Shown(), ElementsAre("26-100"));
    Choose(1);
    EXPECT_THAT(Shown(), ElementsAre("26-200"));
}

TEST_F(CategorizedSearchResultsTest, TheCategoryOnShowIsNotLoadedAgain) {
    AddItems("B-", 9);
    m_results->ExecuteQuery("bicycle");
    Press(m_list, Qt::Key_Down);
    const StoredItemRef selected = m_results->SelectedItem();
    Choose(0);
    EXPECT_EQ(m_results->SelectedItem(), selected);
    EXPECT_THAT(Categories(), ElementsAre("* Description (11)"));
}

TEST_F(CategorizedSearchResultsTest, EverySearchReachesTheDatabase) {
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    m_results->ExecuteQuery("no such thing");
    EXPECT_EQ(engine->StatementCount(), 5);
}

TEST_F(CategorizedSearchResultsTest, WithoutResultsItIsEmptyAndDisabled) {
    m_results->ExecuteQuery("26-100");
    m_results->ExecuteQuery("no such thing");
    EXPECT_THAT(Categories(), IsEmpty());
    EXPECT_EQ(Text("lblHeader"), "");
    EXPECT_EQ(Text("lblResultCount"), "");
    EXPECT_FALSE(IsShown("lnkMoreResults"));
    EXPECT_FALSE(IsShown("imgDownArrow"));
    EXPECT_TRUE(Find<StatePanel>(*m_list, "picNoResults")->IsShown());
    EXPECT_FALSE(m_results->isEnabled());
    EXPECT_EQ(m_results->SelectedItem(), nullptr);
    m_results->ExecuteQuery("26-200");
    EXPECT_TRUE(m_results->isEnabled());
    EXPECT_THAT(Categories(), ElementsAre("* Property ID (1)"));
}

TEST_F(CategorizedSearchResultsTest, ANewSearchLeavesNoEntriesOfTheLastOne) {
    m_results->ExecuteQuery("26-100");
    Choose(1);
    m_results->ExecuteQuery("XYZ 9");
    EXPECT_THAT(Categories(), ElementsAre("* Vehicle Tag (1)"));
    EXPECT_EQ(m_menu->actions().at(0)->objectName(), "mnuCategory");
    m_results->ExecuteQuery("26-100");
    EXPECT_THAT(Categories(), ElementsAre("* Property ID (1)", "Case Number (1)"));
}

TEST_F(CategorizedSearchResultsTest, ThousandsAreSeparatedInTheMenuAndTheHeading) {
    AddItems("N-", 1232);
    m_results->ExecuteQuery("bicycle");
    EXPECT_THAT(Categories(), ElementsAre("* Description (1,234)"));
    EXPECT_EQ(Text("lblResultCount"), "1,234 Results");
}

TEST_F(CategorizedSearchResultsTest, TheTextIsPassedOnAsTyped) {
    m_results->ExecuteQuery(" 26-100 ");
    EXPECT_THAT(Categories(), IsEmpty());
    m_results->ExecuteQuery("26-*");
    EXPECT_THAT(Categories(), ElementsAre("* Property ID (2)", "Case Number (1)"));
    m_results->ExecuteQuery("'; DELETE FROM Property; --");
    EXPECT_THAT(Categories(), IsEmpty());
    m_results->ExecuteQuery("%");
    EXPECT_THAT(Categories(), IsEmpty());
}

TEST_F(CategorizedSearchResultsTest, TheCoverIsPaintedBeforeTheFirstSearch) {
    PaintCounter paints(*Find<GroupBox>(*m_results, "grpSearching"));
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(1, lostServer);
    EXPECT_EQ(RaisedBy([&] { m_results->ExecuteQuery("26-100"); }).Number(), 4711);
    EXPECT_EQ(paints.count, 1);
    const auto* message = Find<StatePanel>(*m_results, "grpMessage");
    EXPECT_EQ(message->Title()->Caption(), "Searching...");
    EXPECT_EQ(message->Sentence()->Caption(), "Please wait. This may take a few moments. ");
}

TEST_F(CategorizedSearchResultsTest, AFailedSearchStaysCoveredUntilTheNextOne) {
    const auto* cover = Find<GroupBox>(*m_results, "grpSearching");
    EXPECT_FALSE(cover->IsShown());
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(3, lostServer);
    EXPECT_EQ(RaisedBy([&] { m_results->ExecuteQuery("26-100"); }).Number(), 4711);
    EXPECT_TRUE(cover->isVisible());
    EXPECT_EQ(cover->geometry(), m_results->rect());
    EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass) << "until the next search ends";
    m_results->ExecuteQuery("26-100");
    EXPECT_FALSE(cover->IsShown());
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    EXPECT_THAT(Categories(), ElementsAre("* Property ID (1)", "Case Number (1)"));
}

TEST_F(CategorizedSearchResultsTest, AFailureInACategoryIsReportedAndTheCategoryStaysChosen) {
    m_results->ExecuteQuery("26-100");
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(1, lostServer);
    Choose(1);
    const std::vector<RecordingScreen::Message> expected = {
        {"Unexpected error loading search results in this category: DisplayVisibleItems: The server is gone.",
         MessageStyle::Critical, "Error"}};
    EXPECT_EQ(m_screen.TakeMessages(), expected);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    EXPECT_THAT(Categories(), ElementsAre("Property ID (1)", "* Case Number (1)"));
}

// The sixth statement of a search reads what the first row shows.
TEST_F(CategorizedSearchResultsTest, AResultThatCannotBeShownIsNeitherOpenedNorOffered) {
    int requests = 0;
    QObject::connect(m_results, &CategorizedSearchResults::ItemOpenRequest, m_results, [&] { ++requests; });
    QObject::connect(m_results, &CategorizedSearchResults::ItemContextMenu, m_results, [&] { ++requests; });
    const auto failAt = [this](int statement) {
        const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
        m_database.Install(engine);
        engine->FailAtStatement(statement, lostServer);
    };
    const std::vector<std::function<void()>> failures = {
        [&] {
            failAt(6);
            m_results->ExecuteQueryInPlace("26-100");
        },
        [&] {
            failAt(6);
            m_results->ExecuteQuery("26-100");
        },
        [&] {
            failAt(1);
            Choose(1);
        },
    };
    for (size_t i = 0; i < failures.size(); ++i) {
        SCOPED_TRACE(i);
        m_results->ExecuteQuery("26-100");
        failures[i]();
        EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
        EXPECT_THAT(Shown(), IsEmpty());
        m_list->setFocus();
        Press(m_list, Qt::Key_Return);
        RightClick(Find<GroupBox>(*m_list, "picContainer"), {300, 50});
        DoubleClick(Find<GroupBox>(*m_list, "picContainer"), {300, 50});
        EXPECT_EQ(requests, 0);
    }
}

TEST_F(CategorizedSearchResultsTest, MayBeDestroyedWhileAFailureIsReported) {
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(6, lostServer);
    m_screen.WhileMessageOpen = [this](const RecordingScreen::Message&) { delete m_results; };
    m_results->ExecuteQuery("26-100");
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
}

TEST_F(CategorizedSearchResultsTest, MoreResultsThanTheListShowsAreCounted) {
    m_database.Execute(
        "WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 36764) INSERT INTO Property "
        "(PropertyID, Description, Quantity, RecordTypeInd) SELECT 'M-' || i, 'a blue bicycle', 1, 1 FROM n");
    m_database.Execute(
        "INSERT INTO PropertyTracking (PropertyNo, SeqNo, StorageLocNo, LastUpdated) "
        "SELECT PropertyNo, 1, ?, '2026-01-02T09:31:00.000' FROM Property WHERE PropertyID LIKE 'M-%'",
        {m_shelf});
    m_database.Execute("UPDATE Property SET CurrTrackSeq = 1 WHERE PropertyID LIKE 'M-%'");
    m_results->ExecuteQuery("bicycle");
    EXPECT_EQ(Text("lblResultCount"), "36,766 Results");
    EXPECT_TRUE(Find<StatePanel>(*m_list, "picTooManyResults")->IsShown());
}

TEST_F(CategorizedSearchResultsTest, TheLinkOpensTheMenuBelowItself) {
    m_results->resize(480, 400);  // the menu has space on the screen
    m_results->ExecuteQuery("26-100");
    auto* link = Find<Link>(*m_results, "lnkMoreResults");
    QPoint at;
    WhileMenuOpen([&](QMenu& menu) {
        EXPECT_EQ(&menu, m_menu);
        at = menu.pos();
    });
    link->Click();
    EXPECT_EQ(at, link->mapToGlobal(QPoint(0, link->height())));
}

TEST_F(CategorizedSearchResultsTest, EventsOfTheListArePassedOn) {
    m_results->ExecuteQuery("26-100");
    std::vector<int32_t> opened;
    QObject::connect(m_results, &CategorizedSearchResults::ItemOpenRequest, m_results,
                     [&](const StoredItemRef& item) { opened.push_back(item->ID()); });
    QMenu menu;
    QAction* entry = menu.addAction("Open");
    QObject::connect(m_results, &CategorizedSearchResults::ItemContextMenu, m_results,
                     [&](QMenu*& offered, QAction*& defaultItem) {
                         offered = &menu;
                         defaultItem = entry;
                     });
    Press(m_list, Qt::Key_Return);
    EXPECT_THAT(opened, ElementsAre(m_first));
    bool seen = false;
    WhileMenuOpen([&](QMenu& open) {
        seen = true;
        EXPECT_EQ(&open, &menu);
        EXPECT_EQ(open.defaultAction(), entry);
    });
    RightClick(Find<GroupBox>(*m_list, "picContainer"), {300, 50});
    EXPECT_TRUE(seen);
}

TEST_F(CategorizedSearchResultsTest, ReadingAgainKeepsTheCategoryTheSelectionAndTheScrollPosition) {
    AddItems("26-3", 60);
    m_database.Execute("UPDATE Property SET Description = '26-100 in the text'");
    m_results->ExecuteQuery("26-100");
    Choose(2);
    ASSERT_EQ(Text("lblHeader"), "Description");
    for (int i = 0; i < 12; ++i) Press(m_list, Qt::Key_Down);
    const int32_t selected = m_results->SelectedItem()->ID();
    const int32_t first = m_list->FirstVisibleIndex();
    const float top = Find<Control>(*m_list, "picContainer")->Top();
    ASSERT_GT(first, 1);
    m_results->ExecuteQueryInPlace("26-100");
    EXPECT_EQ(Text("lblHeader"), "Description");
    EXPECT_EQ(m_results->SelectedItem()->ID(), selected);
    EXPECT_EQ(m_list->FirstVisibleIndex(), first);
    EXPECT_EQ(Find<Control>(*m_list, "picContainer")->Top(), top);
}

TEST_F(CategorizedSearchResultsTest, ReadingAgainScrollsWithTheSelectedItem) {
    AddItems("26-3", 60);
    m_results->ExecuteQuery("bicycle");
    for (int i = 0; i < 30; ++i) Press(m_list, Qt::Key_Down);
    const int32_t selected = m_results->SelectedItem()->ID();
    m_database.Execute("UPDATE Property SET Description = 'sold' WHERE PropertyNo <= ?", {selected - 10});
    m_results->ExecuteQueryInPlace("bicycle");
    EXPECT_EQ(m_results->SelectedItem()->ID(), selected);
    const auto& rows = m_list->Rows();
    const auto shown = std::find_if(rows.begin(), rows.end(),
                                    [](const SearchResultRow* row) { return row->IsShown() && row->Focused(); });
    ASSERT_NE(shown, rows.end());
    EXPECT_EQ((*shown)->Item()->ID(), selected);
}

TEST_F(CategorizedSearchResultsTest, ReadingAgainKeepsAnotherCategory) {
    m_results->ExecuteQuery("26-100");
    Choose(1);
    AddVehicle("26-100", m_shelf);
    m_results->ExecuteQueryInPlace("26-100");
    EXPECT_THAT(Categories(), ElementsAre("Property ID (1)", "Vehicle Tag (1)", "* Case Number (1)"));
    m_database.Execute("DELETE FROM IncdProperty");
    m_results->ExecuteQueryInPlace("26-100");
    EXPECT_THAT(Categories(), ElementsAre("* Property ID (1)", "Vehicle Tag (1)"));
}

TEST_F(CategorizedSearchResultsTest, PartsAreLaidOut) {
    m_results->ExecuteQuery("26-100");
    for (const QSize size : {QSize(900, 600), QSize(480, 320)}) {
        m_results->resize(size);
        const auto rectOf = [this](const char* name) { return Find(*m_results, name)->geometry(); };
        EXPECT_EQ(rectOf("picHeader"), QRect(0, 0, size.width(), 40));
        EXPECT_EQ(rectOf("searchResults"), QRect(0, 40, size.width(), size.height() - 40));
        EXPECT_EQ(rectOf("lblResultCount").left(), rectOf("lblHeader").left() + rectOf("lblHeader").width() + 8);
        EXPECT_EQ(rectOf("lnkMoreResults").right() + 1, size.width() - 16);
        EXPECT_EQ(rectOf("imgDownArrow").right() + 1, rectOf("lnkMoreResults").left());
        EXPECT_EQ(rectOf("grpSearching"), m_results->rect());
        EXPECT_NEAR(rectOf("grpMessage").center().x(), size.width() / 2.0, 1.0);
        EXPECT_NEAR(rectOf("grpMessage").center().y(), size.height() / 2.0, 1.0);
    }
}

TEST_F(CategorizedSearchResultsTest, TheCountFollowsALongerHeading) {
    m_results->ExecuteQuery("26-100");
    const int before = Find(*m_results, "lblResultCount")->x();
    Choose(1);
    EXPECT_GT(Find(*m_results, "lblResultCount")->x(), before);
}

TEST_F(CategorizedSearchResultsTest, ShowsNoDataInADesigner) {
    SetInsideDesigner(true);
    CategorizedSearchResults results;
    results.show();
    EXPECT_EQ(results.SelectedItem(), nullptr);
    EXPECT_EQ(results.TypeName(), "CategorizedSearchResults");
}

}  // namespace
}  // namespace quellbrook::testing
