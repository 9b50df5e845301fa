#include "database/ConnectionPool.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

struct Counts {
    int opened = 0;
    int resets = 0;
    int alive = 0;
    bool healthy = true;
    bool resetFails = false;
    bool openFails = false;
};

class CountingConnection : public Connection {
public:
    explicit CountingConnection(Counts& counts) : m_counts(counts) { ++m_counts.alive; }
    ~CountingConnection() override { --m_counts.alive; }

    void Query(const std::string&, const std::vector<TaggedValue>&, const RowReceiver&) override {}
    void Execute(const std::string&, const std::vector<TaggedValue>&) override {}
    int32_t Insert(const std::string&, const std::vector<TaggedValue>&, const std::string&) override { return 0; }
    std::vector<ColumnDescription> DescribeTable(const std::string&) override { return {}; }
    void Begin() override {}
    void Commit() override {}
    void Rollback() noexcept override {}
    std::string TransactionName() const override { return {}; }
    bool IsHealthy() override { return m_counts.healthy; }
    void Reset() override {
        ++m_counts.resets;
        if (m_counts.resetFails) Raise(5, "Reset", "The link is gone.");
    }

private:
    Counts& m_counts;
};

class CountingEngine : public Engine {
public:
    explicit CountingEngine(Counts& counts) : m_counts(counts) {}
    std::unique_ptr<Connection> Open() override {
        if (m_counts.openFails) Raise(5, "Open", "The server does not answer.");
        ++m_counts.opened;
        return std::make_unique<CountingConnection>(m_counts);
    }
    bool WasCommitted(const std::string&) override { return false; }
    const Dialect& GetDialect() const override { return m_dialect; }

private:
    Counts& m_counts;
    Dialect m_dialect;
};

}  // namespace

TEST(ConnectionPool, LendsTheSameConnectionAgainAfterAReset) {
    Counts counts;
    ConnectionPool pool(std::make_shared<CountingEngine>(counts));
    EXPECT_EQ(counts.opened, 0);
    for (int i = 0; i < 5; ++i) pool.Borrow();
    EXPECT_EQ(counts.opened, 1);
    EXPECT_EQ(counts.resets, 5);
    EXPECT_EQ(counts.alive, 1);
}

TEST(ConnectionPool, LendsASecondConnectionWhileTheFirstIsInUse) {
    Counts counts;
    ConnectionPool pool(std::make_shared<CountingEngine>(counts));
    for (int i = 0; i < 3; ++i) {
        const auto first = pool.Borrow();
        const auto second = pool.Borrow();
        EXPECT_NE(&*first, &*second);
    }
    EXPECT_EQ(counts.opened, 2);
}

TEST(ConnectionPool, KeepsAtMostTwoIdleConnections) {
    Counts counts;
    ConnectionPool pool(std::make_shared<CountingEngine>(counts));
    {
        const auto a = pool.Borrow(), b = pool.Borrow(), c = pool.Borrow(), d = pool.Borrow();
        EXPECT_EQ(counts.alive, 4);
    }
    EXPECT_EQ(counts.alive, 2);
}

TEST(ConnectionPool, ClosesAnUnhealthyConnection) {
    Counts counts;
    ConnectionPool pool(std::make_shared<CountingEngine>(counts));
    {
        const auto lease = pool.Borrow();
        counts.healthy = false;
    }
    EXPECT_EQ(counts.alive, 0);
    counts.healthy = true;
    pool.Borrow();
    EXPECT_EQ(counts.opened, 2);
}

TEST(ConnectionPool, ReplacesAConnectionThatBrokeWhileIdle) {
    Counts counts;
    ConnectionPool pool(std::make_shared<CountingEngine>(counts));
    pool.Borrow();
    counts.healthy = false;
    const auto lease = pool.Borrow();
    EXPECT_EQ(counts.opened, 2);
}

TEST(ConnectionPool, ClosesTheIdleConnectionsWhenOneIsLost) {
    Counts counts;
    ConnectionPool pool(std::make_shared<CountingEngine>(counts));
    {
        const auto lost = pool.Borrow();
        { const auto idle = pool.Borrow(); }
        EXPECT_EQ(counts.alive, 2);
        counts.healthy = false;
    }
    EXPECT_EQ(counts.alive, 0);
}

TEST(ConnectionPool, ClosesAConnectionThatCannotBeReset) {
    Counts counts;
    ConnectionPool pool(std::make_shared<CountingEngine>(counts));
    counts.resetFails = true;
    pool.Borrow();
    EXPECT_EQ(counts.alive, 0);
}

TEST(ConnectionPool, AFailureToOpenReachesTheCallerAndTheNextCallTriesAgain) {
    Counts counts;
    ConnectionPool pool(std::make_shared<CountingEngine>(counts));
    counts.openFails = true;
    EXPECT_EQ(RaisedBy([&] { pool.Borrow(); }).Description(), "The server does not answer.");
    counts.openFails = false;
    pool.Borrow();
    EXPECT_EQ(counts.opened, 1);
}
