// A batch over a connection that breaks at any of its messages. QUELLBROOK_LONG also holds each message back.

#include "tests/server/TcpProxy.h"
#include "tests/server/TransferFaults.h"

namespace quellbrook::testing {
namespace {

constexpr ServerLimits shortLimits{2, 2};

class BrokenLinks : public TransferFaults {
protected:
    // Breaks one message after the other, until a batch has fewer. Returns the outcomes.
    std::vector<Outcome> BreakEachMessage(TcpProxy::Fault fault, int step) {
        m_database.Install(OdbcEngine::Open(ThroughPort(m_proxy.Port()), shortLimits));
        std::vector<Outcome> outcomes;
        bool hasBroken = true;
        for (int n = 1; hasBroken; n += step) {
            SCOPED_TRACE(n);
            BeginBatch();
            m_proxy.BreakMessage(n, fault);
            outcomes.push_back(FinishBatch());
            hasBroken = m_proxy.HasBroken();
            m_proxy.BreakMessage(0, fault);
            m_proxy.Release();
            WaitForBrokenSessions();
            ExpectTrueAndGoesOn(outcomes.back());
        }
        return outcomes;
    }

    // Until the server has noticed that their connections have ended.
    void WaitForBrokenSessions() {
        while (ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM pg_stat_activity WHERE state <> 'idle' AND "
                                             "datname = current_database() AND pid <> pg_backend_pid()")) > 0) {
        }
    }

    TcpProxy m_proxy{ServerPort()};
};

TEST_F(BrokenLinks, ALostMessageEndsABatchWithATrueSentence) {
    const std::vector<Outcome> outcomes = BreakEachMessage(TcpProxy::Fault::Drop, 1);
    EXPECT_THAT(outcomes, ::testing::Contains(Outcome::NothingTransferred));
    EXPECT_EQ(outcomes.back(), Outcome::Written);
    EXPECT_THAT(outcomes, ::testing::Not(::testing::Contains(Outcome::Unknown)));
}

TEST_F(BrokenLinks, ATruncatedMessageEndsABatchWithATrueSentence) {
    const std::vector<Outcome> outcomes = BreakEachMessage(TcpProxy::Fault::Truncate, 1);
    EXPECT_THAT(outcomes, ::testing::Contains(Outcome::NothingTransferred));
    EXPECT_EQ(outcomes.back(), Outcome::Written);
    EXPECT_THAT(outcomes, ::testing::Not(::testing::Contains(Outcome::Unknown)));
}

// A commit that arrives after the program has given it up counts.
TEST_F(BrokenLinks, AMessageThatArrivesLateEndsABatchWithATrueSentence) {
    const std::vector<Outcome> outcomes = BreakEachMessage(TcpProxy::Fault::Hold, LongTestScale() > 1 ? 1 : 3);
    EXPECT_THAT(outcomes, ::testing::Contains(Outcome::NothingTransferred));
}

TEST_F(BrokenLinks, ABatchWaitsForTheServerAFewTimesOnly) {
    m_database.Install(OdbcEngine::Open(ThroughPort(m_proxy.Port())));
    BeginBatch();
    EXPECT_EQ(FinishBatch(), Outcome::Written);
    // The columns of its queries are known from now on.
    BeginBatch();
    const int before = m_proxy.RoundTrips();
    EXPECT_EQ(FinishBatch(), Outcome::Written);
    EXPECT_EQ(m_proxy.RoundTrips() - before, 2);
}

}  // namespace
}  // namespace quellbrook::testing
