// A server that is stopped and started again. The test command gives these tests a cluster of their own.

#include "host/HostDatabase.h"
#include "tests/server/TcpProxy.h"
#include "tests/server/TransferFaults.h"

#include <csignal>
#include <fstream>
#include <future>
#include <random>

namespace quellbrook::testing {
namespace {

// Ends all sessions; then, or without any order, the server.
constexpr int fast = SIGINT, immediate = SIGQUIT;

void Stop(int signal) {
    pid_t server = 0;
    std::ifstream(std::getenv("SERVER_DATA") + std::string("/postmaster.pid")) >> server;
    ASSERT_GT(server, 1);
    ASSERT_EQ(kill(server, signal), 0);
}

class ServerStops : public TransferFaults {
protected:
    // Waits until a session waits for a lock. Returns the number of its transaction.
    static std::string WaitForALock() {
        OdbcConnection observer(TestServer(), {});
        std::string number;
        while (number.empty())
            observer.QueryNative(
                "SELECT CAST(backend_xid AS TEXT) FROM pg_stat_activity WHERE wait_event_type = 'Lock'", {},
                [&](const Row& row) {
                    number = ToText(row.At(0));
                    return true;
                });
        return number;
    }
    // Finishes the batch while another session has the lock.
    Outcome FinishBatchAtALock(const char* lock, int signal) {
        OdbcConnection other(TestServer(), {});
        other.ExecuteNative(lock);
        auto stopped = std::async(std::launch::async, [signal] {
            WaitForALock();
            Stop(signal);
        });
        const Outcome outcome = FinishBatch();
        stopped.get();
        m_database.Reconnect();
        return outcome;
    }

    // Lets a commit wait for the advisory lock 1.
    void MakeCommitsWait() {
        m_database.Execute(
            "CREATE FUNCTION WaitAtCommit() RETURNS TRIGGER LANGUAGE plpgsql AS $$ BEGIN "
            "PERFORM pg_advisory_xact_lock_shared(1); RETURN NULL; END $$");
        m_database.Execute(
            "CREATE CONSTRAINT TRIGGER WaitAtCommit AFTER INSERT ON VehicleTracking "
            "DEFERRABLE INITIALLY DEFERRED FOR EACH ROW EXECUTE FUNCTION WaitAtCommit()");
    }
    void LetCommitsPass() { m_database.Execute("DROP FUNCTION WaitAtCommit CASCADE"); }

    // The program keeps two connections open.
    static void UseTwoConnections() {
        GetHostDatabase().ForEachRow("SELECT PropertyNo FROM Property", [](const Row&) {
            GetHostDatabase().QueryRows("SELECT VehicleNo FROM Vehicle");
            return false;
        });
    }
};

TEST_F(ServerStops, WithinABatchNothingOfItIsWritten) {
    for (const int signal : {fast, immediate}) {
        BeginBatch();
        const Outcome outcome = FinishBatchAtALock("BEGIN; LOCK TABLE VehicleTracking IN EXCLUSIVE MODE", signal);
        EXPECT_EQ(outcome, Outcome::NothingTransferred);
        ExpectTrueAndGoesOn(outcome);
    }
}

TEST_F(ServerStops, AtACommitTheOutcomeIsFoundOutAfterTheRestart) {
    MakeCommitsWait();
    for (const int signal : {fast, immediate}) {
        BeginBatch();
        const Outcome outcome = FinishBatchAtALock("SELECT pg_advisory_lock(1)", signal);
        EXPECT_EQ(outcome, Outcome::NothingTransferred);
        ExpectTrueAndGoesOn(outcome);
    }
    LetCommitsPass();
}

// A server that crashes forgets the numbers of transactions that it had not written yet.
TEST_F(ServerStops, AtACommitAnotherTransactionWithItsNumberIsNotMistakenForIt) {
    MakeCommitsWait();
    TcpProxy proxy(ServerPort());
    m_database.Install(OdbcEngine::Open(ThroughPort(proxy.Port())));
    BeginBatch();
    OdbcConnection other(TestServer(), {});
    other.ExecuteNative("SELECT pg_advisory_lock(1)");
    bool isAssignedAgain = false;
    auto stopped = std::async(std::launch::async, [&] {
        const int32_t number = ToInt32(WaitForALock());
        proxy.LoseAnswers();
        Stop(immediate);
        m_database.Reconnect();
        int32_t assigned = 0;
        while (assigned < number)
            assigned = ToInt32(m_database.QueryValue("SELECT CAST(pg_current_xact_id() AS TEXT)"));
        isAssignedAgain = assigned == number;
        proxy.Pass();
    });
    const Outcome outcome = FinishBatch();
    stopped.get();
    LetCommitsPass();
    EXPECT_TRUE(isAssignedAgain);
    EXPECT_EQ(outcome, Outcome::NothingTransferred);
    ExpectTrueAndGoesOn(outcome);
    m_database.Install(nullptr);
}

TEST_F(ServerStops, BetweenTwoBatchesOneCallFailsAtMost) {
    for (const bool runsAgain : {false, true}) {
        UseTwoConnections();
        BeginBatch();
        Stop(immediate);
        if (runsAgain) m_database.Reconnect();
        const Outcome outcome = FinishBatch();
        m_database.Reconnect();
        ExpectTrueAndGoesOn(outcome);
    }
}

TEST_F(ServerStops, AtAnyMomentEachReportOfSeveralWorkstationsIsTrue) {
    constexpr int workstations = 4;
    const int stops = 5 * LongTestScale();
    const int batches = 20 * LongTestScale();
    WorkstationRecords records(m_database);
    WorkstationPrograms programs(m_database);
    std::mt19937 random(20261122);
    std::set<int> seen;
    int stopped = 0;
    for (int i = 0; i < workstations; ++i) programs.Start(TransferTask, batches);
    while (const auto report = programs.Next()) {
        records.Record(*report);
        seen.insert(report->workstation);
        if (seen.size() < workstations || stopped == stops || random() % 20 > 0) continue;
        ++stopped;
        Stop(random() % 4 == 0 ? fast : immediate);
        m_database.Reconnect();
    }
    EXPECT_EQ(stopped, stops);
    EXPECT_EQ(records.Written(), workstations * batches);
    EXPECT_GT(records.Refused(), 0);
    EXPECT_EQ(records.Unknown(), 0);
    records.ExpectKept();
}

}  // namespace
}  // namespace quellbrook::testing
