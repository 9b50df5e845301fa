#include "tests/core/ProcessTransactionTest.h"

#include "host/TransferOutcome.h"
#include "tests/support/InterruptingEngine.h"

namespace quellbrook::testing {
namespace {

const Error DatabaseError(8152, "Engine", "The log of the database is full.");

class ThrowingErrorLog : public ErrorLog {
public:
    void Log(const std::string&, const std::string&, const std::string&) override {
        ++calls;
        throw std::runtime_error("the log is full");
    }

    int calls = 0;
};

class ProcessTransactionReport : public ProcessTransactionTest {};

// After the commit, every report is attempted, and a failed report does not make the transfer fail.

TEST_F(ProcessTransactionReport, AFailingViewAfterTheCommitStillReportsSuccess) {
    for (const char* step : {"LOADING_FINISHED", "NOTIFY_USER", "CART_TRANSACTION_SUCCESS"}) {
        SCOPED_TRACE(step);
        DiscardDispatcher();
        DiscardStores();
        GetDispatcher()->Register(m_seen);
        m_stores = GetStores();
        FailAt(step);
        const int32_t id = AddStored(Property);
        Begin({FindItem(Property, id)});
        m_log.Announce(LogSource);

        GetActions().ProcessTransaction(MakeTransfer());

        ExpectCommittedReport("Successfully transferred 1 item");
        EXPECT_EQ(ToInt32(ValueOf(Property, id, "CurrTrackSeq")), 2);
        EXPECT_EQ(m_log.Entries().back().message, "Error executing callback 'EvidenceUI': The view is broken.");
    }
}

TEST_F(ProcessTransactionReport, AFailingRedrawOfTheClearedBatchStillReportsSuccess) {
    const int32_t id = AddStored(Property);
    Begin({FindItem(Property, id)});
    m_stores.Cart->OnChange.connect([] { Raise(99, "CartView.Redraw", "The view is broken."); });
    m_log.Announce(LogSource);
    GetActions().ProcessTransaction(MakeTransfer());
    ExpectCommittedReport("Successfully transferred 1 item");
    ExpectLogged("Error executing callback 'CartStore': The view is broken.");
}

TEST_F(ProcessTransactionReport, AFailingLogAfterTheCommitStillReportsSuccess) {
    ThrowingErrorLog log;
    m_environment->errorLog = &log;
    const int32_t id = AddStored(Property);
    Begin({FindItem(Property, id)});
    FailAt("NOTIFY_USER");
    GetActions().ProcessTransaction(MakeTransfer());
    ExpectCommittedReport("Successfully transferred 1 item");
    EXPECT_EQ(log.calls, 1);
    m_environment->errorLog = &m_log;
}

// After a failure, too, every step of its report is attempted, and the operation does not throw.

TEST_F(ProcessTransactionReport, AFailingReportOfAFailureDoesNotKeepTheOtherStepsFromBeingTried) {
    const int32_t id = AddStored(Property);
    const std::string before = m_database.Snapshot();
    const auto faulty = InstallFaultyEngine();
    for (const char* step : {"LOADING_FINISHED", "CART_CANCEL_TRANSACTION", "CART_TRANSACTION_FAILED"}) {
        SCOPED_TRACE(step);
        DiscardDispatcher();
        DiscardStores();
        GetDispatcher()->Register(m_seen);
        m_stores = GetStores();
        FailAt(step);
        Begin({FindItem(Property, id)});
        faulty->FailAtStatement(3, DatabaseError);
        m_log.Announce(LogSource);
        m_log.Announce(LogSource);

        GetActions().ProcessTransaction(MakeTransfer());

        ExpectFailureReport("The log of the database is full.");
        EXPECT_EQ(m_log.Entries().back().message, "The log of the database is full.");
        EXPECT_EQ(m_database.Snapshot(), before);
    }
}

TEST_F(ProcessTransactionReport, AFailingLogDoesNotLeaveTheOperation) {
    ThrowingErrorLog log;
    m_environment->errorLog = &log;
    Begin({MakeItem(9999)});
    GetActions().ProcessTransaction(MakeTransfer());
    EXPECT_EQ(m_seen->Types().back(), "CART_TRANSACTION_FAILED");
    EXPECT_EQ(log.calls, 1);
    m_environment->errorLog = &m_log;
}

TEST_F(ProcessTransactionReport, AnyOtherExceptionIsReportedLikeAnError) {
    const auto engine = std::make_shared<InterruptingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    const std::string before = m_database.Snapshot();
    const auto expectReport = [&](const std::function<void()>& interruption, const std::string& description) {
        Begin({MakeItem(9999)});
        engine->BeforeTransaction(interruption);
        m_log.Announce(LogSource);
        GetActions().ProcessTransaction(MakeTransfer());
        ExpectFailureReport(description);
        EXPECT_EQ(m_database.Snapshot(), before);
    };
    expectReport([] { throw std::runtime_error("The driver failed."); }, "The driver failed.");
    expectReport([] { throw std::bad_alloc(); }, "There is not enough memory. Close other programs and try again.");
    expectReport([] { throw 42; }, "An unexpected error occurred.");
}

// A commit whose answer was lost may have been completed.

TEST_F(ProcessTransactionReport, ACommitThatReportedAFailureButWasCompletedIsASuccess) {
    const int32_t id = AddStored(Property);
    InstallFaultyEngine()->FailAfterCommit(DatabaseError);
    Begin({FindItem(Property, id)});
    m_log.Announce(DatabaseError.Source());
    GetActions().ProcessTransaction(MakeTransfer());
    ExpectCommittedReport("Successfully transferred 1 item");
    EXPECT_EQ(ToInt32(ValueOf(Property, id, "CurrTrackSeq")), 2);
}

TEST_F(ProcessTransactionReport, ACommitOfUnknownOutcomeIsReportedAsSuch) {
    const int32_t id = AddStored(Property);
    const auto faulty = InstallFaultyEngine();
    faulty->FailAfterCommit(DatabaseError);
    faulty->LoseOutcome(true);
    Begin({FindItem(Property, id)});
    m_log.Announce("HostDatabase.ExecuteBatch");
    m_log.Announce(LogSource);
    GetActions().ProcessTransaction(MakeTransfer());
    const std::string description = std::string(UnknownOutcomeText) + "\r\n\r\n" + DatabaseError.Description();
    ExpectFailureReport(description);
    EXPECT_EQ(m_log.Entries().back().message, description);
}

TEST_F(ProcessTransactionReport, LoadingIsOnWhileTheBatchRunsAndTheBatchStillExistsWhenTheUserIsNotified) {
    const int32_t id = AddStored(Property);
    Begin({FindItem(Property, id)});
    std::vector<std::string> states;
    GetDispatcher()->Register(std::make_shared<FunctionCallback>("EvidenceUI", [&](const Action& action) {
        states.push_back(action.ActionType + (m_stores.Loading->IsLoading() ? " loading " : " ready ") +
                         std::to_string(m_stores.Cart->GetItems()->Count()));
    }));
    GetActions().ProcessTransaction(MakeTransfer());
    EXPECT_EQ(states, (Types{"LOADING_STARTED loading 1", "LOADING_FINISHED ready 1", "NOTIFY_USER ready 1",
                             "CART_TRANSACTION_SUCCESS ready 0"}));
}

}  // namespace
}  // namespace quellbrook::testing
