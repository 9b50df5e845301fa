#include "core/ActionTypes.h"
#include "data/TransferData.h"
#include "host/TransferOutcome.h"
#include "tests/support/FakeSession.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/ui/shell/ShellTest.h"
#include "ui/controls/Label.h"

namespace quellbrook {

namespace {

using testing::Names;
using Message = testing::RecordingScreen::Message;

const std::string Failed =
    "Could not complete evidence transfer. To keep your storage records consistent, nothing has been "
    "transferred.\r\n\r\n";

// A timer that cannot be started.
class BrokenTimer : public Timer {
public:
    void SetInterval(int) override {}
    void SetSingleShot(bool) override {}
    void Start() override { Raise(ErrorNumber::General, "BrokenTimer", "No timer is left."); }
    void Stop() override {}
    bool IsRunning() const override { return false; }
};

class ShellHandle : public testing::ShellTest {
protected:
    ShellHandle() { Start(); }

    void Deliver(const char* type, TaggedValue payload = {}) { GetDispatcher()->Dispatch({type, std::move(payload)}); }
    void ExpectMessages(const std::vector<Message>& messages) { EXPECT_EQ(m_screen.TakeMessages(), messages); }

    // A batch of one stored item, ready to go to another location.
    std::shared_ptr<TransferData> OpenBatch() {
        const int32_t counter = m_database.AddLocation("Counter", StorageLocationTypes::Internal);
        const int32_t court = m_database.AddLocation("Court", StorageLocationTypes::External);
        const int32_t id = m_database.AddProperty();
        m_database.AddCustodyRow(StoredItemTypes::Property, id, counter);
        HostLocationData::Discard();
        GetActions().BeginTransaction(TransactionType::SignOut,
                                      testing::ListOf({testing::FindItem(StoredItemTypes::Property, id)}));
        auto xfer = std::make_shared<TransferData>();
        xfer->Location = GetStorageLocationStatic().FindByID(court);
        xfer->DateReceived = m_clock.Now();
        return xfer;
    }
    int32_t CustodyRows() { return ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM PropertyTracking")); }

    testing::SessionScope m_session;
};

}  // namespace

TEST_F(ShellHandle, AFailedTransferIsReportedWithItsReason) {
    Deliver(ActionTypes::CART_TRANSACTION_FAILED, "The log of the database is full.");
    ExpectMessages({{Failed + "[The log of the database is full.]", 16, "Evidence transfer failed!"}});
}

TEST_F(ShellHandle, ATransferOfUnknownOutcomeIsNotReportedAsFailed) {
    const std::string description = std::string(UnknownOutcomeText) + "\r\n\r\nThe server is gone.";
    Deliver(ActionTypes::CART_TRANSACTION_FAILED, description);
    ExpectMessages({{description, 16, "Evidence transfer unconfirmed"}});
}

TEST_F(ShellHandle, ANotificationPopsUp) {
    Deliver(ActionTypes::NOTIFY_USER, "Successfully transferred 2 items");
    EXPECT_TRUE(Named("toastMessage")->isVisible());
    EXPECT_EQ(testing::Find<Label>(*Named("toastMessage"), "lblMessage")->Caption(),
              "Successfully transferred 2 items");
}

TEST_F(ShellHandle, EveryOtherActionIsIgnored) {
    for (const char* type : {ActionTypes::CART_TRANSACTION_SUCCESS, ActionTypes::LOCATION_CREATE_FAILED,
                             ActionTypes::CART_PROCESS_TRANSACTION, "notify_user"})
        m_shell->Handle({type, "text"});
    EXPECT_TRUE(m_screen.Messages().empty());
    EXPECT_FALSE(Named("toastMessage")->isVisible());
}

TEST_F(ShellHandle, APayloadOfAnotherKindIsReportedAndDoesNotLeave) {
    m_log.Announce(testing::RaisedBy([] { ToText(TaggedValue(std::make_shared<TransferData>())); }).Source());
    EXPECT_NO_THROW(Deliver(ActionTypes::NOTIFY_USER, std::make_shared<TransferData>()));
    ExpectMessages({{ErrorText(13), 16, "Unexpected Error"}});
}

TEST_F(ShellHandle, ADispatchBehindTheFailureMessageIsRefusedAndLeavesTheDispatcherUsable) {
    m_screen.SetOpenFormCount(1);
    Error refused(0, "", "");
    m_screen.WhileMessageOpen = [&](const Message&) {
        EXPECT_TRUE(GetDispatcher()->IsDispatching());
        refused = testing::RaisedBy([] { GetActions().NavigateTo("cart", nullptr); });
        EXPECT_FALSE(GetDispatcher()->IsDispatching());
    };
    Deliver(ActionTypes::CART_TRANSACTION_FAILED, "x");
    const std::string words =
        "Cannot call Dispatcher.Dispatch while another call to Dispatch is in progress. [Forms.Count = 1]";
    EXPECT_EQ(refused.Description(), "Error executing callback 'Nothing': " + words);
    const std::vector<testing::RecordingScreen::PlainMessage> plain = {{words, "Unexpected Error"}};
    EXPECT_EQ(m_screen.TakePlainMessages(), plain);
    EXPECT_EQ(OnShow(), Names{"explorer"});
    GetActions().NavigateTo("cart", nullptr);
    EXPECT_EQ(OnShow(), Names{"cart"});
}

TEST_F(ShellHandle, TheToastKeepsSlidingBehindTheFailureMessage) {
    Deliver(ActionTypes::NOTIFY_USER, "Done");
    m_screen.WhileMessageOpen = [&](const Message&) {
        const float before = Named("toastMessage")->Height();
        m_timers.Tick(10);
        EXPECT_FLOAT_EQ(Named("toastMessage")->Height(), before + 30);
    };
    Deliver(ActionTypes::CART_TRANSACTION_FAILED, "x");
}

TEST_F(ShellHandle, TheShellMayGoWhileTheFailureMessageIsOpen) {
    m_screen.WhileMessageOpen = [this](const Message&) { m_shell.reset(); };
    Deliver(ActionTypes::CART_TRANSACTION_FAILED, "x");
    EXPECT_EQ(m_screen.Messages().size(), 1u);
    EXPECT_FALSE(GetDispatcher()->IsDispatching());
}

TEST_F(ShellHandle, TheHostMayHideTheShellWhileTheFailureMessageIsOpen) {
    m_screen.WhileMessageOpen = [this](const Message&) { m_shell->hide(); };
    Deliver(ActionTypes::CART_TRANSACTION_FAILED, "x");
    m_screen.WhileMessageOpen = nullptr;
    Deliver(ActionTypes::NOTIFY_USER, "Done");
    EXPECT_FALSE(Named("toastMessage")->IsShown());
}

TEST_F(ShellHandle, ACommittedTransferIsReportedAsOne) {
    const auto xfer = OpenBatch();
    const int32_t before = CustodyRows();
    GetActions().NavigateTo("cart", nullptr);
    GetActions().ProcessTransaction(xfer);
    EXPECT_EQ(OnShow(), Names{"loading"});
    GetActions().GoBack();
    EXPECT_EQ(OnShow(), Names{"explorer"});
    EXPECT_EQ(CustodyRows(), before + 1);
    EXPECT_TRUE(GetStores().Cart->IsEmpty());
    EXPECT_TRUE(m_screen.Messages().empty());
    EXPECT_EQ(testing::Find<Label>(*Named("toastMessage"), "lblMessage")->Caption(), "Successfully transferred 1 item");
}

TEST_F(ShellHandle, AToastThatFailsDoesNotTurnACommittedTransferIntoAFailure) {
    m_environment->makeTimer = [] { return std::make_unique<BrokenTimer>(); };
    m_shell = std::make_unique<EvidenceUI>(Views(), &m_host);
    m_shell->show();
    const auto xfer = OpenBatch();
    const int32_t before = CustodyRows();
    m_log.Announce("BrokenTimer");
    GetActions().ProcessTransaction(xfer);
    ExpectMessages({{"No timer is left.", 16, "Unexpected Error"}});
    EXPECT_EQ(CustodyRows(), before + 1);
    EXPECT_TRUE(GetStores().Cart->IsEmpty());
}

TEST_F(ShellHandle, AViewThatCannotRedrawDoesNotTurnACommittedTransferIntoAFailure) {
    const auto xfer = OpenBatch();
    const int32_t before = CustodyRows();
    // While loading, the loading view is visible; at the end the bar and the views redraw from the stores.
    auto* inner = new testing::FakeView(Named("loading"));
    inner->onShown = [] { Raise(ErrorNumber::General, "Inner", "Cannot draw."); };
    m_log.Announce("EvidenceUI.LoadView");
    GetActions().ProcessTransaction(xfer);
    ExpectMessages({{"Error loading view of type 'LoadingView': Cannot draw.", 16, "Unexpected Error"}});
    EXPECT_EQ(CustodyRows(), before + 1);
    EXPECT_TRUE(Named("toastMessage")->isVisible());
    EXPECT_TRUE(GetStores().Cart->IsEmpty());
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(ShellHandle, ATransferThatTheDatabaseRefusesChangesNothingAndIsReported) {
    const auto xfer = OpenBatch();
    const int32_t before = CustodyRows();
    auto engine = std::make_shared<testing::FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtCommit(Error(8152, "Engine", "The log of the database is full."));
    m_log.Announce("Actions.ProcessTransaction");
    GetActions().ProcessTransaction(xfer);
    ExpectMessages({{Failed + "[The log of the database is full.]", 16, "Evidence transfer failed!"}});
    EXPECT_EQ(CustodyRows(), before);
    EXPECT_TRUE(GetStores().Cart->IsEmpty());
    EXPECT_EQ(OnShow(), Names{"loading"});
}

}  // namespace quellbrook
