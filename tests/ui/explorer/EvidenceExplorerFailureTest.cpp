#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/FocusCalls.h"
#include "tests/ui/explorer/ExplorerWindowTest.h"
#include "ui/controls/FlatButton.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

const Error lostServer(4711, "Engine.Query", "The server is gone.");

// Loads of the explorer that fail. The first query of a load counts the items, the second one reads them. F5 reads the
// locations twice before.
class EvidenceExplorerFailureTest : public ExplorerWindowTest {
protected:
    // Makes the nth query from now fail.
    void FailAtQuery(int n, const Error& error = lostServer) {
        m_engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
        m_database.Install(m_engine);
        ASSERT_NE(LocationOf(m_shelf), nullptr);  // reads the locations
        m_engine->FailAtStatement(n, error);
    }

    void ExpectNothingShown(const char* title, const char* subtitle) {
        EXPECT_EQ(Title(), title);
        EXPECT_EQ(Subtitle(), subtitle);
        EXPECT_EQ(m_list->RowCount(), 0);
        EXPECT_TRUE(m_list->IsShown());
        EXPECT_EQ(m_view->Location(), nullptr);
    }

    // The location and its items are read in the fourth step.
    void ExpectDisplayError(const std::string& description) {
        EXPECT_EQ(m_screen.TakeMessages(),
                  OneMessage("An unexpected error occurred attempting to display the items in this location. Some "
                             "items may not be displayed. Please contact Tessarine Support for assistance.\r\n\r\n"
                             "[DisplayCurrentLocation (line 4)] ~ Engine.Query (4711) " +
                                 description,
                             16, "Unexpected Error"));
    }

    std::shared_ptr<FaultInjectingEngine> m_engine;
};

TEST_F(EvidenceExplorerFailureTest, AFailedDisplayIsReportedWithItsDetails) {
    Show();
    const StorageLocationRef shelf = LocationOf(m_shelf);
    FailAtQuery(1);
    m_explorer->SetSelectedLocation(shelf);
    ExpectDisplayError("The server is gone.");
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(EvidenceExplorerFailureTest, AFailureOfTheContentsIsReportedWithTheirSentence) {
    Show();
    const StorageLocationRef shelf = LocationOf(m_shelf);
    FailAtQuery(2);
    m_explorer->SetSelectedLocation(shelf);
    ExpectDisplayError("Error displaying items in this location: The server is gone.");
    ExpectNothingShown("Shelf A", "Error displaying items in this location: The server is gone.");
}

TEST_F(EvidenceExplorerFailureTest, NoRowsOfAnotherLocationStayBelowTheHeading) {
    Show(m_bin);
    m_explorer->SetSelectedLocation(LocationOf(m_shelf));
    ASSERT_EQ(m_list->RowCount(), 3);
    std::vector<std::string> entered;
    const Subscription changed = m_view->LocationChanged.connect(
        [&](const StorageLocationRef& location) { entered.push_back(location ? location->Name() : ""); });
    const StorageLocationRef bin = LocationOf(m_bin);
    FailAtQuery(1);
    m_screen.WhileMessageOpen = [&](const RecordingScreen::Message&) {
        ExpectNothingShown("Bin 1", "The server is gone.");
    };
    m_explorer->SetSelectedLocation(bin);
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    ExpectNothingShown("Bin 1", "The server is gone.");
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_bin);
    EXPECT_TRUE(entered.empty());
}

TEST_F(EvidenceExplorerFailureTest, AnotherLocationIsShownAfterAFailure) {
    Show();
    const StorageLocationRef shelf = LocationOf(m_shelf);
    FailAtQuery(1);
    m_explorer->SetSelectedLocation(shelf);
    m_screen.TakeMessages();
    m_explorer->SetSelectedLocation(LocationOf(m_empty));
    EXPECT_EQ(Title(), "Empty Shelf");
    EXPECT_EQ(Subtitle(), "0 storage units, 0 items");
    m_explorer->SetSelectedLocation(LocationOf(m_shelf));
    EXPECT_EQ(Subtitle(), "1 storage unit, 2 items");
    EXPECT_EQ(m_list->RowCount(), 3);
}

TEST_F(EvidenceExplorerFailureTest, AClickOnTheSelectedNodeShowsTheLocationAgain) {
    Show();
    const QPoint node = NodeCenter("Shelf A");
    FailAtQuery(1);
    Click(m_widget->viewport(), node);
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    ExpectNothingShown("Shelf A", "The server is gone.");
    Click(m_widget->viewport(), node);
    EXPECT_EQ(Subtitle(), "1 storage unit, 2 items");
    EXPECT_EQ(m_list->RowCount(), 3);
    AddItem("E-3", m_shelf);
    Click(m_widget->viewport(), node);
    EXPECT_EQ(m_list->RowCount(), 3) << "the displayed location is not read again";
}

TEST_F(EvidenceExplorerFailureTest, OpeningTheSelectedNodeShowsTheLocationAgain) {
    const std::function<void()> attempts[] = {
        [this] { NodeMenu("Shelf A", Choose(MenuEntry::Open)); },
        [this] { m_explorer->SetSelectedLocation(LocationOf(m_shelf)); },
    };
    for (const auto& attempt : attempts) {
        Show();
        const StorageLocationRef shelf = LocationOf(m_shelf);
        FailAtQuery(1);
        m_explorer->SetSelectedLocation(shelf);
        EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
        attempt();
        EXPECT_EQ(Title(), "Shelf A");
        EXPECT_EQ(Subtitle(), "1 storage unit, 2 items");
        EXPECT_EQ(m_list->RowCount(), 3);
    }
}

TEST_F(EvidenceExplorerFailureTest, AnOutageDuringADeletionIsReportedOnce) {
    bool struck = true;
    int failures = 0;
    for (int n = 1; struck; ++n) {
        struck = false;
        const std::string name = "Crate " + std::to_string(n);
        AddLocation(name, m_shelf);
        Show(m_shelf);
        ClickRow(QString::fromStdString(name));
        FailAtQuery(n);
        m_screen.WhileMessageOpen = [&](const RecordingScreen::Message& message) {
            if (message.buttons == MessageStyle::YesNoQuestion) return;
            struck = true;
            m_engine->FailAtStatement(1, lostServer);  // the outage lasts
        };
        m_screen.AnswerNext(MessageAnswer::Yes);
        m_explorer->Menu()->Entry(MenuEntry::DeleteLocation)->trigger();
        EXPECT_EQ(m_screen.TakeMessages().size(), struck ? 2u : 1u) << n;
        EXPECT_THAT(TakeUnexpected(), IsEmpty()) << n;
        failures += struck;
        m_engine->Disarm();
    }
    EXPECT_GT(failures, 4);
}

TEST_F(EvidenceExplorerFailureTest, TheNextRefreshShowsTheLocationAgain) {
    Show();
    const StorageLocationRef shelf = LocationOf(m_shelf);
    FailAtQuery(2);
    m_explorer->SetSelectedLocation(shelf);
    m_screen.TakeMessages();
    m_explorer->hide();
    m_explorer->show();
    EXPECT_EQ(Title(), "Shelf A");
    EXPECT_EQ(Subtitle(), "1 storage unit, 2 items");
    EXPECT_EQ(m_list->RowCount(), 3);
    EXPECT_EQ(m_view->Location()->ID(), m_shelf);
}

TEST_F(EvidenceExplorerFailureTest, AFailedRefreshShowsNoRowsEither) {
    for (const int query : {1, 2}) {
        Show(m_shelf);
        FailAtQuery(query);
        EXPECT_EQ(RaisedBy([this] { m_explorer->Refresh(); }).Number(), 4711);
        EXPECT_EQ(Title(), "Shelf A");
        EXPECT_THAT(Subtitle(), HasSubstr("The server is gone."));
        EXPECT_EQ(m_list->RowCount(), 0);
        m_explorer->Refresh();
        EXPECT_EQ(Subtitle(), "1 storage unit, 2 items");
        EXPECT_EQ(m_list->RowCount(), 3);
    }
}

TEST_F(EvidenceExplorerFailureTest, NoRowsStayIfNeitherRightsNorContentsCanBeRead) {
    Show(m_shelf);
    m_explorer->hide();
    m_session->atQuestion = [] { throw lostServer; };
    FailAtQuery(1);
    m_explorer->show();
    EXPECT_EQ(RaisedBy([this] { m_explorer->RaiseShowError(); }).Description(), "The server is gone.");
    ExpectNothingShown("Shelf A", "Error displaying items in this location: The server is gone.");
}

TEST_F(EvidenceExplorerFailureTest, AddEvidenceFollowsTheBatchWhileRightsCannotBeRead) {
    Show(m_shelf);
    const auto* button = Find<FlatButton>(*m_explorer, "btnAddEvidence");
    GetActions().BeginTransaction(TransactionType::Move, ListOf({ItemOf(m_first, m_shelf)}));
    EXPECT_FALSE(button->isEnabled());
    m_session->atQuestion = [] { throw lostServer; };
    GetActions().CancelTransaction();
    EXPECT_TRUE(button->isEnabled());
    EXPECT_EQ(TakeUnexpected(), std::vector<std::string>{"The server is gone."});
}

TEST_F(EvidenceExplorerFailureTest, ASubLocationThatCannotBeReadShowsNoRowsAndOpensLater) {
    AddItem("E-3", m_bin);
    Show(m_shelf);
    const QPoint bin = RowCenter("Bin 1");
    FailAtQuery(1);
    DoubleClick(m_list->Tree()->viewport(), bin);
    EXPECT_EQ(m_screen.TakeMessages(),
              OneMessage("Unexpected error loading item: Error displaying items in this location: The server is gone.",
                         16, "Error"));
    ExpectNothingShown("Shelf A", "Error displaying items in this location: The server is gone.");
    ClickNode("Bin 1");
    EXPECT_EQ(Title(), "Bin 1");
    EXPECT_EQ(Subtitle(), "0 storage units, 1 item");
    EXPECT_EQ(m_list->RowCount(), 1);
}

TEST_F(EvidenceExplorerFailureTest, F5ReportsAnOutageOnce) {
    Show(m_shelf);
    FailAtQuery(3);
    m_screen.WhileMessageOpen = [this](const RecordingScreen::Message&) { m_engine->FailAtStatement(1, lostServer); };
    Press(m_list->Tree(), Qt::Key_F5);
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_THAT(TakeUnexpected(), IsEmpty());
    ExpectNothingShown("Shelf A", "The server is gone.");
}

TEST_F(EvidenceExplorerFailureTest, F5AfterATreeThatCannotBeReadShowsItAsAtFirst) {
    Show();
    FailAtQuery(1);
    HostLocationData::Discard();
    EXPECT_EQ(RaisedBy([this] { m_tree->Refresh(); }).Number(), 4711);
    ASSERT_EQ(m_widget->topLevelItemCount(), 0);
    Press(m_list->Tree(), Qt::Key_F5);
    ASSERT_GT(m_widget->topLevelItemCount(), 0);
    EXPECT_TRUE(m_widget->topLevelItem(0)->isExpanded());
}

TEST_F(EvidenceExplorerFailureTest, ALongReasonIsOneLineWithinTheHeading) {
    Show();
    const StorageLocationRef shelf = LocationOf(m_shelf);
    FailAtQuery(1, Error(4711, "Engine.Query", std::string(300, 'W') + "\r\nsecond line"));
    m_explorer->SetSelectedLocation(shelf);
    m_screen.TakeMessages();
    EXPECT_EQ(Subtitle(), std::string(300, 'W') + " second line");
    const auto* subtitle = Find<Label>(*m_explorer, "lblSubtitle");
    const auto* button = Find<FlatButton>(*m_explorer, "btnAddEvidence");
    EXPECT_EQ(subtitle->geometry().right() + 1, button->geometry().left() - 8);
    m_explorer->SetSelectedLocation(LocationOf(m_empty));
    EXPECT_EQ(subtitle->width(), subtitle->sizeHint().width());
}

TEST_F(EvidenceExplorerFailureTest, TheExplorerMayGoWhileAFailureIsReported) {
    Show();
    const StorageLocationRef shelf = LocationOf(m_shelf);
    const QPoint node = NodeCenter("Shelf A");
    FailAtQuery(1);
    m_screen.WhileMessageOpen = [this](const RecordingScreen::Message&) { m_window.reset(); };
    Click(m_widget->viewport(), node);
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(EvidenceExplorerFailureTest, TheExplorerMayGoWhileAFailureIsReportedForAKey) {
    Show();
    m_widget->setFocus();
    FailAtQuery(1);
    m_screen.WhileMessageOpen = [this](const RecordingScreen::Message&) { m_window.reset(); };
    Press(m_widget, Qt::Key_Down);
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(EvidenceExplorerFailureTest, TheExplorerMayGoWhileAFailureIsReportedForF5) {
    Show(m_shelf);
    FailAtQuery(3);
    m_screen.WhileMessageOpen = [this](const RecordingScreen::Message&) { m_window.reset(); };
    Press(m_list->Tree(), Qt::Key_F5);
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_EQ(m_window, nullptr);
}

TEST_F(EvidenceExplorerFailureTest, TheExplorerMayGoWhileTheTreeReportsAFocusLoop) {
    Show(m_shelf);
    m_widget->setFocus();
    UseUpFocusCalls(m_screen);
    m_screen.WhileMessageOpen = [this](const RecordingScreen::Message&) { m_window.reset(); };
    m_tree->Refresh();
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(EvidenceExplorerFailureTest, AMenuInThePaneWithTheFocusDoesNotMoveTheFocus) {
    Show(m_shelf);
    UseUpFocusCalls(m_screen);
    RowMenu("E-1");
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(EvidenceExplorerFailureTest, TheExplorerMayGoWhileItsMenuReportsAFocusLoop) {
    Show(m_shelf);
    m_widget->setFocus();
    UseUpFocusCalls(m_screen);
    m_screen.WhileMessageOpen = [this](const RecordingScreen::Message&) { m_window.reset(); };
    QMenu* menu = nullptr;
    QAction* entry = nullptr;
    m_view->ItemContextMenu(menu, entry);
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_EQ(menu, nullptr);
}

}  // namespace
}  // namespace quellbrook::testing
