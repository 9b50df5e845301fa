#include "core/Actions.h"
#include "core/Stores.h"
#include "data/StorageLocationStatic.h"
#include "tests/app/MainWindowTest.h"
#include "tests/support/Items.h"
#include "tests/support/ui/QtTestMain.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Label.h"
#include "ui/controls/Link.h"
#include "ui/controls/ListView.h"
#include "ui/controls/TessarineDropdown.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/explorer/LocationView.h"
#include "ui/locations/LocationPicker.h"

#include <QTabBar>

#include <gmock/gmock.h>

#include <filesystem>

namespace quellbrook::testing {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// The program while the file of its database is away for a moment, as on a share that is not reachable.
class OutageTest : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        LogIn(SampleAccounts()[0]);
        m_location = FullLocation();
        Explorer().SetSelectedLocation(m_location);
        Rows().Tree()->setFocus();
        m_item = m_location->StoredItems()->ItemAt(0);
    }

    void BeginOutage() { std::filesystem::rename(m_directory.In("copy.sqlite"), m_directory.In("away.sqlite")); }
    void EndOutage() { std::filesystem::rename(m_directory.In("away.sqlite"), m_directory.In("copy.sqlite")); }

    std::vector<std::string> TakeTitles() {
        std::vector<std::string> titles;
        for (const RecordingScreen::Message& message : m_screen.TakeMessages()) {
            EXPECT_THAT(message.prompt, HasSubstr("There is no database '"));
            titles.push_back(message.title);
        }
        return titles;
    }

    EvidenceExplorer& Explorer() { return *Find<EvidenceExplorer>(*Evidence(), "explorer"); }
    ListView& Rows() { return *Explorer().ItemPane()->List(); }
    bool IsFocusIn(const QWidget& view) { return view.isAncestorOf(QApplication::focusWidget()); }

    void ExpectReasonInsteadOfRows() {
        EXPECT_TRUE(Explorer().isVisible());
        EXPECT_EQ(Rows().RowCount(), 0);
        EXPECT_THAT(Find<Label>(Explorer(), "lblSubtitle")->Caption().toStdString(), HasSubstr("There is no database"));
    }
    void ExpectRowsAfterF5() {
        Press(QApplication::focusWidget(), Qt::Key_F5);
        EXPECT_GT(Rows().RowCount(), 2);
        EXPECT_TRUE(m_screen.Messages().empty());
    }

    StorageLocationRef m_location;
    StoredItemRef m_item;
};

TEST_F(OutageTest, ATransferBegunOnAnItemPageIsReportedOnce) {
    for (int visit = 1; visit <= 2; ++visit) {
        GetActions().OpenStoredItem(m_item);
        QWidget& bar = *Find(*Evidence(), "menu");
        BeginOutage();
        TestErrorLog().Announce("SqliteEngine.Open");
        Click(FindAll<Link>(bar, "lnkMenu").at(TransactionType::Move));
        EXPECT_THAT(TakeTitles(), ElementsAre("Unexpected Error")) << visit;
        EndOutage();
        EXPECT_EQ(GetStores().Cart->GetTransactionType(), TransactionType::Move);
        EXPECT_TRUE(Find(bar, "lblStatus")->isVisible());
        for (size_t link = 1; link <= 4; ++link) EXPECT_FALSE(FindAll<Link>(bar, "lnkMenu").at(link)->isVisible());
        GetActions().NavigateTo(ViewNames::Cart, nullptr);
        EXPECT_EQ(Find<Label>(*Evidence(), "lblItemCount")->Caption(), " (1)");
        EXPECT_TRUE(Find(*Find(*Evidence(), "itemList"), "lblID")->isVisible());
        GetActions().CancelTransaction();
        GetActions().NavigateTo(ViewNames::Explorer, nullptr);
        EXPECT_TRUE(m_screen.Messages().empty());
    }
}

class OutageDuringTransferTest : public OutageTest {
protected:
    // Opens the form of a batch, and fills it in.
    void FillForm() {
        GetActions().BeginTransaction(TransactionType::SignOut, ListOf({m_item}));
        GetActions().NavigateTo(ViewNames::Cart, nullptr);
        for (const char* field : {"receivedFromField", "receivedByField", "reasonField"})
            Find<TessarineDropdown>(*Evidence(), field)->SetListIndex(0);
        Find<LocationPicker>(*Evidence(), "locationField")
            ->SetSelectedLocation(GetStorageLocationStatic().FindByID(
                m_database->execAndGet("SELECT MIN(IdNo) FROM StorageLocation WHERE Type = 4").getInt()));
    }
    void Transfer() {
        TestErrorLog().Announce("Actions.ProcessTransaction");
        Click(Find(*Evidence(), "btnTransfer"));
    }
};

TEST_F(OutageDuringTransferTest, TheFailureComesFirstAndTheExplorerIsUsable) {
    FillForm();
    BeginOutage();
    Transfer();
    EXPECT_THAT(TakeTitles(), ElementsAre("Evidence transfer failed!", "View Show Error"));
    EXPECT_TRUE(GetStores().Cart->IsEmpty());
    EXPECT_TRUE(Find<FlatButton>(Explorer(), "btnAddEvidence")->isEnabled());
    EXPECT_TRUE(IsFocusIn(Explorer()));
    ExpectReasonInsteadOfRows();
    EndOutage();
    ExpectRowsAfterF5();
}

TEST_F(OutageDuringTransferTest, TheItemPageThatTheTransferCameFromReplacesTheLoadingView) {
    GetActions().OpenStoredItem(m_item);
    FillForm();
    BeginOutage();
    Transfer();
    EXPECT_THAT(TakeTitles(), ElementsAre("Evidence transfer failed!", "View Load Error"));
    EXPECT_FALSE(Find(*Evidence(), "loading")->isVisible());
    EXPECT_TRUE(Find(*Evidence(), "itemView")->isVisible());
    EXPECT_TRUE(IsFocusIn(*Find(*Evidence(), "itemView")));
    EndOutage();
    Press(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_TRUE(Explorer().isVisible());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(OutageTest, LeavingAnItemPageShowsTheReasonInsteadOfOldRows) {
    GetActions().OpenStoredItem(m_item);
    BeginOutage();
    Press(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_THAT(TakeTitles(), ElementsAre("View Show Error"));
    ExpectReasonInsteadOfRows();
    EXPECT_TRUE(IsFocusIn(Explorer()));
    EndOutage();
    ExpectRowsAfterF5();
}

TEST_F(OutageTest, LeavingAnotherTabShowsTheReasonOnceTheExplorerIsVisible) {
    Click(Find(*m_window, "scannerPageButton"));
    BeginOutage();
    m_screen.WhileMessageOpen = [this](const RecordingScreen::Message&) {
        EXPECT_TRUE(Explorer().isVisible());
        EXPECT_TRUE(Explorer().updatesEnabled());
    };
    Find<QTabBar>(*m_window, "hostTabs")->setCurrentIndex(0);
    ServeEvents();
    EXPECT_THAT(TakeTitles(), ElementsAre("View Show Error"));
    m_screen.WhileMessageOpen = nullptr;
    ExpectReasonInsteadOfRows();
    EXPECT_TRUE(IsFocusIn(Explorer()));
    EndOutage();
    ExpectRowsAfterF5();
}

}  // namespace

}  // namespace quellbrook::testing
