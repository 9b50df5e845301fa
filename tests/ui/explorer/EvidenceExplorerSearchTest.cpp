#include "core/ActionTypes.h"
#include "data/BarcodeText.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/ui/FocusCalls.h"
#include "tests/support/ui/Scanner.h"
#include "tests/ui/explorer/ExplorerWindowTest.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/explorer/CategorizedSearchResults.h"
#include "ui/explorer/SearchResultList.h"
#include "ui/explorer/SearchResultRow.h"

#include <QLineEdit>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsSupersetOf;

const Error lostServer(4711, "Engine.Query", "The server is gone.");

class EvidenceExplorerSearchTest : public ExplorerWindowTest {
protected:
    EvidenceExplorerSearchTest() { Reopen(); }

    void Reopen() {
        Show(m_shelf);
        m_box = Find<FlatTextbox>(*m_explorer, "search");
        m_results = m_explorer->SearchResultPane();
        m_resultList = Find<SearchResultList>(*m_results, "searchResults");
    }

    QLineEdit* Edit() const { return m_box->findChild<QLineEdit*>(); }
    void Search(const QString& text) {
        Edit()->setFocus();
        m_box->SetText(text);
        Press(Edit(), Qt::Key_Return);
    }
    // An incident with this case number.
    void LinkCaseNumber(int32_t item, const std::string& number) {
        m_database.LinkIncident(StoredItemTypes::Property, item, m_database.AddIncident("I-7", number));
    }
    bool IsShown(const char* name) const { return Find<Control>(*m_explorer, name)->IsShown(); }

    FlatTextbox* m_box;
    CategorizedSearchResults* m_results;
    SearchResultList* m_resultList;
};

TEST_F(EvidenceExplorerSearchTest, EnterShowsTheResultsInsteadOfTheLocation) {
    Search("E-1");
    EXPECT_EQ(Title(), "Search Results");
    EXPECT_EQ(Subtitle(), "Showing stored items matching 'E-1'");
    EXPECT_TRUE(m_results->IsShown());
    EXPECT_FALSE(m_view->IsShown());
    EXPECT_EQ(m_explorer->SelectedLocation(), nullptr);
    EXPECT_EQ(m_view->Location(), nullptr);
    EXPECT_EQ(m_results->SelectedItem()->ID(), m_first);
    EXPECT_TRUE(m_resultList->hasFocus());
    for (const char* group : {"grpEditLocation", "grpDeleteLocation", "grpAddLocation", "grpPrintLocationBarcode"})
        EXPECT_FALSE(IsShown(group)) << group;
    EXPECT_TRUE(Find<Label>(*m_explorer, "lblTitle")->toolTip().isEmpty());
}

TEST_F(EvidenceExplorerSearchTest, TheOtherEnterKeySearchesToo) {
    Edit()->setFocus();
    m_box->SetText("E-1");
    Press(Edit(), Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Title(), "Search Results");
}

TEST_F(EvidenceExplorerSearchTest, EnterInAnEmptyBoxDoesNothing) {
    Search("");
    EXPECT_EQ(Title(), "Shelf A");
    EXPECT_FALSE(m_results->IsShown());
    EXPECT_TRUE(Edit()->hasFocus());
}

TEST_F(EvidenceExplorerSearchTest, BlanksAreSearchedAsTheyAreTyped) {
    for (const char* text : {" E-1 ", " "}) {
        Search(text);
        EXPECT_EQ(Subtitle(), std::string("Showing stored items matching '") + text + "'");
    }
}

TEST_F(EvidenceExplorerSearchTest, AHeldEnterSearchesOnceAndOpensNothing) {
    Edit()->setFocus();
    m_box->SetText("E-1");
    Press(Edit(), Qt::Key_Return);
    QTest::simulateEvent(m_resultList, true, Qt::Key_Return, Qt::NoModifier, "\r", true);
    EXPECT_EQ(GetStores().View->ViewName(), "");
    Edit()->setFocus();
    m_box->SetText("E-2");
    QTest::simulateEvent(Edit(), true, Qt::Key_Return, Qt::NoModifier, "\r", true);
    EXPECT_EQ(Subtitle(), "Showing stored items matching 'E-1'");
}

TEST_F(EvidenceExplorerSearchTest, ASelectionInTheTreeLeavesTheResults) {
    Search("E-1");
    ClickNode("Shelf A");
    EXPECT_EQ(Title(), "Shelf A");
    EXPECT_FALSE(m_results->IsShown());
    EXPECT_TRUE(m_view->IsShown());
    EXPECT_EQ(m_list->RowCount(), 3);
    EXPECT_TRUE(IsShown("grpEditLocation"));
}

TEST_F(EvidenceExplorerSearchTest, ALocationThatTheHostCreatesLeavesTheResults) {
    Search("E-1");
    const int32_t created = AddLocation("New Shelf");
    GetDispatcher()->Dispatch({ActionTypes::LOCATION_CREATE_SUCCESS, LocationOf(created)});
    EXPECT_EQ(Title(), "New Shelf");
    EXPECT_FALSE(m_results->IsShown());
    EXPECT_EQ(m_view->Location()->ID(), created);
}

TEST_F(EvidenceExplorerSearchTest, AScanOfALocationLeavesTheResultsAndKeepsTheFocusOnTheRight) {
    Search("E-1");
    const std::string barcode = MakeBarcodeText("L", m_shelf);
    Scan(barcode.substr(1, barcode.size() - 2));
    EXPECT_EQ(m_timers.Tick(1), 1);
    EXPECT_EQ(Title(), "Shelf A");
    EXPECT_FALSE(m_results->IsShown());
    EXPECT_TRUE(m_list->Tree()->hasFocus());
    EXPECT_EQ(m_box->Text(), "E-1");
}

TEST_F(EvidenceExplorerSearchTest, ResultsShowWhereATransferHasMovedThem) {
    Search("E-1");
    const auto location = [this] {
        return Find<Label>(*m_resultList->Rows().front(), "lblLocation")->Caption().toStdString();
    };
    ASSERT_EQ(location(), "Shelf A");
    GetActions().BeginTransaction(TransactionType::Move, m_explorer->GetSelectedObjects());
    m_explorer->hide();
    m_database.AddCustodyRow(StoredItemTypes::Property, m_first, m_empty);
    GetActions().CancelTransaction();
    m_explorer->show();
    EXPECT_EQ(location(), "Empty Shelf");
}

TEST_F(EvidenceExplorerSearchTest, NothingFoundLeavesTheFocusInTheBox) {
    Search("nothing like this");
    EXPECT_EQ(Title(), "Search Results");
    EXPECT_FALSE(m_results->isEnabled());
    EXPECT_TRUE(Edit()->hasFocus());
    m_list->Tree()->setFocus();
    m_explorer->SetSelectedLocation(LocationOf(m_shelf));
    m_list->Tree()->setFocus();
    m_explorer->DoSearchRequest("nothing like this");
    EXPECT_TRUE(m_widget->hasFocus()) << "not a control outside";
}

TEST_F(EvidenceExplorerSearchTest, TheMenuIsForTheSelectedResult) {
    Search("E-1");
    WhileMenuOpen([this](QMenu& menu) {
        EXPECT_EQ(&menu, m_explorer->Menu());
        EXPECT_TRUE(m_explorer->Menu()->Entry(MenuEntry::CheckOut)->isVisible());
        EXPECT_FALSE(m_explorer->Menu()->Entry(MenuEntry::New)->isVisible());
        EXPECT_THAT(SelectedObjects(), ElementsAre("E-1"));
        m_explorer->Menu()->Entry(MenuEntry::CheckOut)->trigger();
    });
    RightClick(Find(*m_resultList, "picContainer"), {300, 50});
    EXPECT_THAT(BatchIds(), ElementsAre("E-1"));
}

TEST_F(EvidenceExplorerSearchTest, AResultOpensInItsView) {
    Search("E-2");
    Press(m_resultList, Qt::Key_Return);
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::ItemView);
    EXPECT_EQ(ToObject<StoredItem>(GetStores().View->ViewParameters()->Value("Item"))->ID(), m_second);
}

TEST_F(EvidenceExplorerSearchTest, AFailedSearchIsReportedAndStaysCovered) {
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(2, lostServer);
    Search("E-1");
    const std::vector<RecordingScreen::Message> expected = {
        {"Search error: The server is gone.", MessageStyle::Critical, "Search Error"}};
    EXPECT_EQ(m_screen.TakeMessages(), expected);
    EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
    EXPECT_TRUE(Find<Control>(*m_results, "grpSearching")->isVisible());
    Search("E-1");
    EXPECT_EQ(Title(), "Search Results");
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

// The sixth statement reads what a row shows, after the five searches.
TEST_F(EvidenceExplorerSearchTest, TheExplorerMayBeDestroyedWhileAFailureIsReported) {
    for (const int statement : {1, 6}) {
        for (const bool again : {false, true}) {
            SCOPED_TRACE(statement);
            if (!m_window) Reopen();
            if (again) Search("E-1");
            const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
            m_database.Install(engine);
            engine->FailAtStatement(statement + (again ? 1 : 0), lostServer);
            m_screen.WhileMessageOpen = [this](const RecordingScreen::Message&) { m_window.reset(); };
            if (again)
                Press(m_resultList, Qt::Key_F5);
            else
                Search("E-1");
            m_screen.WhileMessageOpen = nullptr;
            EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
            EXPECT_EQ(m_window, nullptr);
        }
    }
}

TEST_F(EvidenceExplorerSearchTest, F5AfterAFailureRepeatsTheSearchThatFailed) {
    for (const bool first : {true, false}) {
        if (!first) Search("E-1");
        const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
        m_database.Install(engine);
        engine->FailAtStatement(2, lostServer);
        Search("E-2");
        EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
        Press(Edit(), Qt::Key_F5);
        EXPECT_EQ(Title(), "Search Results");
        EXPECT_EQ(Subtitle(), "Showing stored items matching 'E-2'");
        EXPECT_EQ(m_results->SelectedItem()->ID(), m_second);
        EXPECT_FALSE(m_results->IsCovered());
        EXPECT_TRUE(Edit()->hasFocus());
    }
}

TEST_F(EvidenceExplorerSearchTest, AFailureOfF5IsASearchErrorAndTheCoveredResultsLoseTheFocus) {
    Search("E-1");
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    LocationOf(m_shelf);  // reads the locations
    engine->FailAtStatement(3, lostServer);
    Press(m_resultList, Qt::Key_F5);
    const std::vector<RecordingScreen::Message> expected = {
        {"Search error: The server is gone.", MessageStyle::Critical, "Search Error"}};
    EXPECT_EQ(m_screen.TakeMessages(), expected);
    EXPECT_TRUE(m_results->IsCovered());
    EXPECT_TRUE(m_widget->hasFocus());
}

TEST_F(EvidenceExplorerSearchTest, TabDoesNotReachTheResultsBelowTheCoverOfAFailedSearch) {
    LinkCaseNumber(m_second, "E-1");
    Search("E-1");
    ASSERT_THAT(TabOrder(*m_window), IsSupersetOf({"lnkMoreResults", "searchResults"}));
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(3, lostServer);
    Search("E-1");
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_THAT(TabOrder(*m_window), ElementsAre("search", "TreeView", "btnAddEvidence"));
    Search("E-1");
    EXPECT_THAT(TabOrder(*m_window), IsSupersetOf({"lnkMoreResults", "searchResults"}));
    EXPECT_TRUE(m_resultList->hasFocus());
}

TEST_F(EvidenceExplorerSearchTest, ThePointerIsRestoredIfTheExplorerGoesAfterAFailedSearch) {
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(2, lostServer);
    Search("E-1");
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    ASSERT_EQ(GetMousePointer(), MousePointer::Hourglass);
    m_window.reset();
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(EvidenceExplorerSearchTest, ThePointerOfAnotherPartStaysWhenTheExplorerGoes) {
    Search("E-1");
    SetMousePointer(MousePointer::Hourglass);
    m_window.reset();
    EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
}

TEST_F(EvidenceExplorerSearchTest, F5SearchesAgainAndKeepsTheFocus) {
    Search("bicycle");
    AddItem("E-3", m_shelf);
    Press(m_resultList, Qt::Key_Down);
    const int32_t selected = m_results->SelectedItem()->ID();
    Press(m_resultList, Qt::Key_F5);
    EXPECT_EQ(Find<Label>(*m_results, "lblResultCount")->Caption(), "3 Results");
    EXPECT_EQ(m_results->SelectedItem()->ID(), selected);
    EXPECT_TRUE(m_resultList->hasFocus());
    EXPECT_EQ(Title(), "Search Results");
    m_widget->setFocus();
    Press(m_widget, Qt::Key_F5);
    EXPECT_TRUE(m_widget->hasFocus());
    EXPECT_EQ(Title(), "Search Results");
}

TEST_F(EvidenceExplorerSearchTest, F5WithNothingLeftGivesTheFocusToTheTree) {
    Search("bicycle");
    m_database.Execute("UPDATE Property SET Description = 'a wheel'");
    Press(m_resultList, Qt::Key_F5);
    EXPECT_TRUE(m_widget->hasFocus());
}

TEST_F(EvidenceExplorerSearchTest, F5InTheBoxKeepsTheTypedText) {
    Edit()->setFocus();
    m_box->SetText("half a te");
    AddItem("E-3", m_shelf);
    Press(Edit(), Qt::Key_F5);
    EXPECT_EQ(m_box->Text(), "half a te");
    EXPECT_TRUE(Edit()->hasFocus());
    EXPECT_EQ(m_list->RowCount(), 4);
}

TEST_F(EvidenceExplorerSearchTest, F5InTheBoxRepeatsTheSearchOnShow) {
    Search("bicycle");
    Edit()->setFocus();
    m_box->SetText("half a te");
    AddItem("E-3", m_shelf);
    Press(Edit(), Qt::Key_F5);
    EXPECT_EQ(Find<Label>(*m_results, "lblResultCount")->Caption(), "3 Results");
    EXPECT_EQ(Subtitle(), "Showing stored items matching 'bicycle'");
    EXPECT_EQ(m_box->Text(), "half a te");
    EXPECT_TRUE(Edit()->hasFocus());
}

TEST_F(EvidenceExplorerSearchTest, TheExplorerMayGoWhileCtrlFReportsAFocusLoop) {
    UseUpFocusCalls(m_screen);
    m_screen.WhileMessageOpen = [this](const RecordingScreen::Message&) { m_window.reset(); };
    Press(m_list->Tree(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(EvidenceExplorerSearchTest, CtrlFGoesToTheBoxAndSelectsItsText) {
    Search("E-1");
    Press(m_resultList, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(Edit()->hasFocus());
    EXPECT_EQ(Edit()->selectedText(), "E-1");
    m_explorer->SetSelectedLocation(LocationOf(m_shelf));
    m_list->Tree()->setFocus();
    Press(m_list->Tree(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(Edit()->hasFocus());
}

TEST_F(EvidenceExplorerSearchTest, TheBoxHasAPlaceholderAndAnAccessibleName) {
    EXPECT_EQ(m_box->Placeholder(), "Type here to search...");
    EXPECT_EQ(Edit()->accessibleName(), "Search");
}

TEST_F(EvidenceExplorerSearchTest, AScanIsNotTypedIntoTheBox) {
    Edit()->setFocus();
    const std::string barcode = MakeBarcodeText("L", m_bin);
    Scan(barcode.substr(1, barcode.size() - 2));
    EXPECT_EQ(m_timers.Tick(1), 1);
    EXPECT_EQ(m_box->Text(), "");
    EXPECT_EQ(Title(), "Bin 1");
}

}  // namespace
}  // namespace quellbrook::testing
