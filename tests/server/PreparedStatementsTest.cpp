// Queries with parameters stay prepared on the server.

#include "base/Error.h"
#include "tests/server/ServerTest.h"

namespace quellbrook::testing {
namespace {

class PreparedStatements : public ServerTest {
protected:
    int32_t Value(const std::string& query, const std::vector<TaggedValue>& parameters = {}) {
        int32_t value = -1;
        m_connection.QueryNative(query, parameters, [&](const Row& row) {
            value = ToInt32(row.At(0));
            return true;
        });
        return value;
    }
    int32_t CountPrepared() { return Value("SELECT COUNT(*) FROM pg_prepared_statements"); }

    OdbcConnection m_connection{TestServer(), {}};
};

TEST_F(PreparedStatements, AQueryIsPreparedOnce) {
    for (const int32_t number : {1, 2, 3}) EXPECT_EQ(Value("SELECT CAST(? AS INT) + 1", {number}), number + 1);
    EXPECT_EQ(CountPrepared(), 1);
}

TEST_F(PreparedStatements, AQueryRunsWithValuesOfAnyType) {
    const char* const query = "SELECT LENGTH(COALESCE(CAST(? AS TEXT), ''))";
    for (int turn = 0; turn < 2; ++turn) {
        EXPECT_EQ(Value(query, {"abc"}), 3);
        EXPECT_EQ(Value(query, {1234}), 4);
        EXPECT_EQ(Value(query, {Null()}), 0);
        EXPECT_EQ(Value(query, {std::string(5000, 'x')}), 5000);
        EXPECT_EQ(Value(query, {std::string(100'000, 'x')}), 100'000);
    }
}

TEST_F(PreparedStatements, AResultThatIsNotReadToItsEndDoesNotDisturbTheNextRun) {
    for (const int32_t first : {1, 5, 2}) {
        int32_t value = 0;
        m_connection.QueryNative("SELECT generate_series(CAST(? AS INT), 100000)", {first}, [&](const Row& row) {
            value = ToInt32(row.At(0));
            return false;
        });
        EXPECT_EQ(value, first);
    }
}

TEST_F(PreparedStatements, AQueryThatFailedRunsAgain) {
    const char* const query = "SELECT 10 / CAST(? AS INT)";
    EXPECT_EQ(Value(query, {5}), 2);
    m_log.Announce("OdbcStatement.Execute");
    EXPECT_NE(RaisedBy([&] { Value(query, {0}); }).Number(), 0);
    EXPECT_EQ(Value(query, {2}), 5);
}

TEST_F(PreparedStatements, AQueryOfATableThatIsChangedFailsOnceAtMost) {
    m_database.AddSetting("a", "1");
    const auto countColumns = [&] {
        size_t count = 0;
        m_connection.QueryNative("SELECT * FROM Setting WHERE Name = ?", {"a"}, [&](const Row& row) {
            count = row.Columns().Names().size();
            return true;
        });
        return count;
    };
    EXPECT_EQ(countColumns(), 2u);
    m_database.Execute("ALTER TABLE Setting ADD COLUMN Later INT");
    m_log.Announce("OdbcStatement.Execute");
    EXPECT_EQ(RaisedBy([&] { countColumns(); }).Description(), "cached plan must not change result type");
    EXPECT_EQ(countColumns(), 3u);
}

TEST_F(PreparedStatements, AQueryIgnoresCaseAfterItRanWithoutAText) {
    m_database.AddProperty({.PropertyID = "ABC"});
    const auto count = [&](const TaggedValue& id) {
        int32_t number = 0;
        m_connection.Query("SELECT COUNT(*) AS N FROM Property WHERE PropertyID = ?", {id}, [&](const Row& row) {
            number = ToInt32(row.At(0));
            return true;
        });
        return number;
    };
    EXPECT_EQ(count(Null()), 0);
    EXPECT_EQ(count("abc"), 1);
}

TEST_F(PreparedStatements, AQueryLocksItsRowsInABatchAfterItRanOutsideOne) {
    const int32_t item = m_database.AddProperty();
    const auto read = [&] {
        m_connection.Query("SELECT PropertyNo, CurrTrackSeq FROM Property WHERE PropertyNo IN (?)", {item},
                           [](const Row&) { return true; });
    };
    const auto lock = [&] { m_database.Execute("SELECT PropertyNo FROM Property FOR UPDATE NOWAIT"); };
    read();
    m_connection.Begin();
    lock();
    read();
    m_log.Announce("OdbcStatement.Execute");
    EXPECT_NE(RaisedBy(lock).Number(), 0);
    m_connection.Rollback();
}

TEST_F(PreparedStatements, OnlyTheLatestArePrepared) {
    for (int i = 0; i < 250; ++i) EXPECT_EQ(Value("SELECT CAST(? AS INT) + " + std::to_string(i), {1}), i + 1);
    EXPECT_LE(CountPrepared(), 100);
}

}  // namespace
}  // namespace quellbrook::testing
