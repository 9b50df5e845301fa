// A server that is slow, stops or cannot be reached, and links that break.

#include "base/Error.h"
#include "host/HostDatabase.h"
#include "tests/server/ServerTest.h"
#include "tests/server/TcpProxy.h"
#include "tests/support/IgnoredErrorLog.h"

#include <chrono>
#include <future>

namespace quellbrook::testing {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr ServerLimits shortLimits{3, 3};

class ServerFault : public ServerTest {
protected:
    std::shared_ptr<OdbcEngine> ThroughProxy() { return OdbcEngine::Open(ThroughPort(m_proxy.Port()), shortLimits); }

    TcpProxy m_proxy{ServerPort()};
};

TEST_F(ServerFault, AServerThatCannotBeReachedIsReported) {
    m_log.Announce("OdbcLink.Open");
    const Error error = RaisedBy([] { OdbcEngine::Open(ThroughPort(1), shortLimits); });
    EXPECT_NE(error.Number(), 0);
    EXPECT_NE(error.Description().find("Connection refused"), std::string::npos) << error.Description();
    EXPECT_EQ(error.Description().find("Pwd"), std::string::npos);
}

TEST_F(ServerFault, TheLogHasStateAndNumber) {
    m_log.Announce("OdbcStatement.Execute");
    RaisedBy([&] { m_database.GetEngine()->Open()->Execute("UPDATE Nowhere SET a = 1"); });
    EXPECT_EQ(m_log.Entries().at(0).message, "SQLSTATE 42P01, number 1: relation \"nowhere\" does not exist");
}

TEST_F(ServerFault, ASlowStatementIsEndedByTheServerAtTheLimit) {
    const auto connection = OdbcEngine::Open(TestServer(), shortLimits)->Open();
    m_log.Announce("OdbcStatement.Execute");
    const auto start = steady_clock::now();
    const Error error =
        RaisedBy([&] { dynamic_cast<OdbcConnection&>(*connection).ExecuteNative("SELECT pg_sleep(30)"); });
    EXPECT_EQ(error.Description(), "canceling statement due to statement timeout");
    EXPECT_LT(steady_clock::now() - start, seconds(3));
    EXPECT_TRUE(connection->IsHealthy());
    connection->Execute(insert);
}

TEST_F(ServerFault, AServerThatDoesNotAnswerIsGivenUpAtTheLimitAndTheNextCallHasAFreshConnection) {
    m_database.Install(ThroughProxy());
    GetHostDatabase().Execute(insert);
    m_proxy.Stall();
    m_log.Announce("OdbcConnection");
    const auto start = steady_clock::now();
    const Error error = RaisedBy([] { GetHostDatabase().QueryRows("SELECT PropertyNo FROM Property"); });
    EXPECT_EQ(error.Description(), "The database server did not answer within 3 seconds.");
    EXPECT_LT(steady_clock::now() - start, seconds(5));
    m_proxy.Cut();
    m_proxy.Pass();
    EXPECT_EQ(GetHostDatabase().QueryRows("SELECT PropertyNo FROM Property").size(), 1u);
}

TEST_F(ServerFault, ALogInThatIsNotAnsweredIsGivenUpAtTheLimit) {
    m_proxy.Stall();
    m_log.Announce("OdbcLink.Open");
    const auto start = steady_clock::now();
    EXPECT_NE(RaisedBy([&] { ThroughProxy(); }).Number(), 0);
    EXPECT_LT(steady_clock::now() - start, seconds(5));
}

TEST_F(ServerFault, AConnectionThatEndsBetweenTwoCallsFailsOneCallAtMost) {
    GetHostDatabase().Execute(insert);
    m_database.QueryRows(
        "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = current_database() "
        "AND pid <> pg_backend_pid()");
    m_log.Announce("OdbcStatement.Execute");
    const Error error = RaisedBy([] { GetHostDatabase().Execute(insert); });
    EXPECT_NE(error.Number(), 0);
    GetHostDatabase().Execute(insert);
    EXPECT_EQ(CountProperty(), 2);
}

TEST_F(ServerFault, AConnectionThatEndsWithinABatchLeavesNothingOfIt) {
    const std::string before = m_database.Snapshot();
    m_log.Announce("OdbcStatement.Execute");
    const Error error = RaisedBy([&] {
        const auto endSessions = [&](const std::vector<RowList>&, const HostDatabase::BatchQuery&) {
            m_database.QueryRows(
                "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = "
                "current_database() AND pid <> pg_backend_pid()");
        };
        GetHostDatabase().ExecuteBatch({insert, insert}, {{}, endSessions});
    });
    EXPECT_NE(error.Number(), 0);
    EXPECT_EQ(m_database.Snapshot(), before);
    GetHostDatabase().ExecuteBatch({insert});
    EXPECT_EQ(CountProperty(), 1);
}

// The server ends the session while it works on the commit.
TEST_F(ServerFault, ACommitThatTheServerGaveUpIsAFailure) {
    m_database.Execute(
        "CREATE FUNCTION pg_temp.WaitAtCommit() RETURNS TRIGGER LANGUAGE plpgsql AS $$ BEGIN "
        "PERFORM pg_sleep(20); RETURN NULL; END $$");
    m_database.Execute(
        "CREATE CONSTRAINT TRIGGER WaitAtCommit AFTER INSERT ON Property "
        "DEFERRABLE INITIALLY DEFERRED FOR EACH ROW EXECUTE FUNCTION pg_temp.WaitAtCommit()");
    const auto connection = m_database.GetEngine()->Open();
    const int32_t process = ProcessOf(*connection);
    connection->Begin();
    connection->Execute(insert);
    m_log.Announce("OdbcStatement.Execute");
    auto killer = std::async(std::launch::async, [&] {
        OdbcConnection administrator(TestServer(), {});
        const std::string number = std::to_string(process);
        bool isCommitting = false;
        while (!isCommitting)
            administrator.QueryNative(
                "SELECT 1 FROM pg_stat_activity WHERE query LIKE '%COMMIT' AND state = 'active' "
                "AND pid = " +
                    number,
                {}, [&](const Row&) { return isCommitting = true; });
        administrator.ExecuteNative("SELECT pg_terminate_backend(" + number + ")");
    });
    EXPECT_NE(RaisedBy([&] { connection->Commit(); }).Number(), 0);
    killer.get();
    EXPECT_NE(connection->TransactionName(), "");
    EXPECT_FALSE(m_database.GetEngine()->WasCommitted(connection->TransactionName()));
    EXPECT_EQ(CountProperty(), 0);
}

TEST_F(ServerFault, ACommitWhoseAnswerIsLostIsFoundOutToBeDone) {
    const auto engine = ThroughProxy();
    for (const bool isTruncated : {false, true}) {
        const auto connection = engine->Open();
        connection->Begin();
        connection->Execute(insert);
        isTruncated ? m_proxy.Truncate() : m_proxy.LoseAnswers();
        m_log.Announce("OdbcStatement.Execute");
        EXPECT_NE(RaisedBy([&] { connection->Commit(); }).Number(), 0);
        EXPECT_FALSE(connection->IsHealthy());
        m_proxy.Pass();
        EXPECT_TRUE(engine->WasCommitted(connection->TransactionName()));
        EXPECT_EQ(CountProperty(), isTruncated ? 2 : 1);
    }
}

TEST_F(ServerFault, AnOutcomeThatCannotBeAskedForIsReportedWithinTheLimit) {
    const auto engine = ThroughProxy();
    const auto connection = engine->Open();
    connection->Begin();
    connection->Execute(insert);
    m_proxy.LoseAnswers();
    m_log.Announce("OdbcStatement.Execute");
    EXPECT_NE(RaisedBy([&] { connection->Commit(); }).Number(), 0);
    m_proxy.Stall();
    IgnoredErrorLog eachTry;
    m_environment->errorLog = &eachTry;
    const auto start = steady_clock::now();
    EXPECT_NE(RaisedBy([&] { engine->WasCommitted(connection->TransactionName()); }).Number(), 0);
    EXPECT_LT(steady_clock::now() - start, seconds(10));
}

// Locks

TEST_F(ServerFault, WhatABatchHasReadStaysUnchangedUntilItsEnd) {
    const int32_t item = m_database.AddProperty();
    const auto first = m_database.GetEngine()->Open();
    const auto second = OdbcEngine::Open(TestServer(), shortLimits)->Open();
    first->Begin();
    int rows = 0;
    first->Query("SELECT PropertyNo, CurrTrackSeq FROM Property WHERE PropertyNo IN (?)", {item},
                 [&](const Row&) { return ++rows > 0; });
    EXPECT_EQ(rows, 1);
    m_log.Announce("OdbcStatement.Execute");
    EXPECT_NE(
        RaisedBy([&] { second->Execute("UPDATE Property SET CategoryNo = 1 WHERE PropertyNo = ?", {item}); }).Number(),
        0);
    first->Commit();
    second->Execute("UPDATE Property SET CategoryNo = 1 WHERE PropertyNo = ?", {item});
}

TEST_F(ServerFault, ATransactionWhoseFirstQueryFailsIsRolledBack) {
    OdbcConnection connection(TestServer(), {});
    m_log.Announce("OdbcStatement.Execute");
    EXPECT_NE(RaisedBy([&] { connection.BeginReading({{"SELECT a FROM Nowhere WHERE a = ?", {1}}}); }).Number(), 0);
    connection.Rollback();
    connection.Begin();
    connection.Execute(insert);
    connection.Commit();
    EXPECT_EQ(CountProperty(), 1);
}

TEST_F(ServerFault, WhatABatchReadsAtItsBeginningIsLockedAndReadInOneMessage) {
    const int32_t item = m_database.AddProperty();
    OdbcConnection first(TestServer(), {});
    const int32_t process = ProcessOf(first);
    for (int turn = 0; turn < 2; ++turn) {
        first.Rollback();
        first.BeginReading({{"SELECT PropertyNo, CurrTrackSeq FROM Property WHERE PropertyNo IN (?)", {item}}});
    }
    const std::string sent =
        ToText(m_database.QueryValue("SELECT query FROM pg_stat_activity WHERE pid = " + std::to_string(process)));
    EXPECT_TRUE(sent.starts_with("BEGIN; ")) << sent;
    EXPECT_NE(sent.find("FROM Property"), std::string::npos) << sent;
    m_log.Announce("OdbcStatement.Execute");
    EXPECT_NE(RaisedBy([&] { m_database.Execute("SELECT PropertyNo FROM Property FOR UPDATE NOWAIT"); }).Number(), 0);
    first.Rollback();
}

}  // namespace
}  // namespace quellbrook::testing
