#include "base/Error.h"
#include "database/SqliteConnection.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

const char* const noTable =
    "The database does not have the structure that this program expects. Have it checked. (no such table: #Next)";

const char* const creation = "CREATE TABLE #Next (Value INT NOT NULL)";

class TemporaryTablesTest : public ::testing::Test {
protected:
    TaggedValue Value(const std::string& sql) {
        TaggedValue value;
        m_connection->Query(sql, {}, [&](const Row& row) {
            value = row.At(0);
            return true;
        });
        return value;
    }
    void RunBatch(int value) {
        m_connection->Begin();
        m_connection->Execute(creation);
        EXPECT_EQ(Value("SELECT COUNT(*) FROM #Next"), TaggedValue(0));
        m_connection->Execute("INSERT INTO #Next (Value) VALUES (" + std::to_string(value) + ")");
        m_connection->Execute("INSERT INTO Setting (Name, Value) VALUES ('n" + std::to_string(value) +
                              "', (SELECT Value FROM #Next))");
        m_connection->Execute("DROP TABLE #Next");
        m_connection->Commit();
        m_connection->Reset();
    }

    TestDatabase m_database;
    std::unique_ptr<Connection> m_connection = m_database.GetEngine()->Open();
};

TEST_F(TemporaryTablesTest, EachBatchStartsWithAnEmptyTable) {
    for (const int value : {4, 5, 6}) RunBatch(value);
    EXPECT_EQ(m_database.QueryValue("SELECT SUM(Value) FROM Setting"), TaggedValue(15));
}

TEST_F(TemporaryTablesTest, AfterItsBatchATableCannotBeRead) {
    RunBatch(1);
    for (const char* query : {"SELECT COUNT(*) FROM #Next", "SELECT Value FROM #Next",
                              "SELECT Name FROM Setting WHERE Value IN (SELECT Value FROM #NEXT)"})
        EXPECT_EQ(RaisedBy([&] { Value(query); }).Number(), 1) << query;
    EXPECT_EQ(RaisedBy([&] { Value("SELECT Value FROM #Next"); }).Description(), noTable);
}

TEST_F(TemporaryTablesTest, AfterItsBatchATableCannotBeWritten) {
    RunBatch(1);
    const char* const statements[] = {
        "INSERT INTO #Next (Value) VALUES (7)",
        "INSERT INTO Setting (Name, Value) VALUES ('n7', (SELECT Value FROM #Next))",
        "DECLARE @x INT; SELECT @x = MAX(Value)+1 FROM #Next WHERE Value=1 GROUP BY Value;"
        "UPDATE Setting SET Value = @x",
        "UPDATE #Next SET Value = 1",
        "DELETE FROM #Next",
    };
    const std::string before = m_database.Snapshot();
    for (const char* statement : statements) {
        EXPECT_EQ(RaisedBy([&] { m_connection->Execute(statement); }).Description(), noTable);
        m_connection->Begin();
        EXPECT_EQ(RaisedBy([&] { m_connection->Execute(statement); }).Description(), noTable);
        m_connection->Rollback();
    }
    EXPECT_EQ(m_database.Snapshot(), before);
    RunBatch(2);
}

TEST_F(TemporaryTablesTest, ATableCannotBeReadAfterItsDropInTheSameBatch) {
    m_connection->Begin();
    m_connection->Execute(creation);
    EXPECT_EQ(Value("SELECT COUNT(*) FROM #Next"), TaggedValue(0));
    m_connection->Execute("DROP TABLE #Next");
    EXPECT_EQ(RaisedBy([&] { Value("SELECT COUNT(*) FROM #Next"); }).Description(), noTable);
    m_connection->Rollback();
}

TEST_F(TemporaryTablesTest, NamesAreCaseInsensitive) {
    RunBatch(1);
    m_connection->Begin();
    m_connection->Execute("CREATE TABLE #NEXT (Value INT NOT NULL)");
    m_connection->Execute("INSERT INTO #next (Value) VALUES (7)");
    EXPECT_EQ(Value("SELECT Value FROM #Next"), TaggedValue(7));
    m_connection->Execute("DROP TABLE #next");
    m_connection->Commit();
    RunBatch(2);
}

TEST_F(TemporaryTablesTest, ATableInUseCannotBeCreatedAgain) {
    RunBatch(1);
    m_connection->Begin();
    m_connection->Execute(creation);
    EXPECT_NE(RaisedBy([&] { m_connection->Execute(creation); }).Number(), 0);
    m_connection->Rollback();
    RunBatch(2);
}

TEST_F(TemporaryTablesTest, ATableWithOtherColumnsReplacesTheOneSetAside) {
    RunBatch(1);
    m_connection->Begin();
    m_connection->Execute("CREATE TABLE #Next (Name INT, Other INT)");
    m_connection->Execute("INSERT INTO #Next (Name, Other) VALUES (1, 2)");
    EXPECT_EQ(Value("SELECT Other FROM #Next"), TaggedValue(2));
    m_connection->Execute("DROP TABLE #Next");
    m_connection->Commit();
    RunBatch(3);
}

TEST_F(TemporaryTablesTest, ARollbackRestoresTheTablesBeforeTheBatch) {
    m_connection->Begin();
    m_connection->Execute(creation);
    m_connection->Execute("INSERT INTO #Next (Value) VALUES (9)");
    m_connection->Rollback();
    EXPECT_NE(RaisedBy([&] { Value("SELECT Value FROM #Next"); }).Number(), 0);
    RunBatch(1);
    m_connection->Begin();
    m_connection->Execute(creation);
    m_connection->Execute("INSERT INTO #Next (Value) VALUES (9)");
    m_connection->Rollback();
    RunBatch(2);
}

TEST_F(TemporaryTablesTest, ResetDropsATableThatABatchLeft) {
    RunBatch(1);
    m_connection->Begin();
    m_connection->Execute(creation);
    m_connection->Execute("INSERT INTO #Next (Value) VALUES (9)");
    m_connection->Commit();
    m_connection->Reset();
    EXPECT_NE(RaisedBy([&] { Value("SELECT Value FROM #Next"); }).Number(), 0);
    RunBatch(2);
}

TEST_F(TemporaryTablesTest, OutsideABatchATableIsReallyDropped) {
    RunBatch(1);
    m_connection->Execute(creation);
    m_connection->Execute("INSERT INTO #Next (Value) VALUES (7)");
    EXPECT_EQ(Value("SELECT Value FROM #Next"), TaggedValue(7));
    m_connection->Execute("DROP TABLE #Next");
    EXPECT_NE(RaisedBy([&] { Value("SELECT Value FROM #Next"); }).Number(), 0);
}

TEST_F(TemporaryTablesTest, ATableFromAnEarlierBatchSurvivesARollback) {
    m_connection->Execute(creation);
    m_connection->Execute("INSERT INTO #Next (Value) VALUES (7)");
    m_connection->Begin();
    m_connection->Execute("DROP TABLE #Next");
    m_connection->Rollback();
    EXPECT_EQ(Value("SELECT Value FROM #Next"), TaggedValue(7));
    m_connection->Reset();
    RunBatch(1);
}

TEST_F(TemporaryTablesTest, ARollbackRestoresATableThatWasReplaced) {
    RunBatch(1);
    m_connection->Begin();
    m_connection->Execute("CREATE TABLE #Next (Other INT)");
    m_connection->Rollback();
    RunBatch(2);
}

TEST_F(TemporaryTablesTest, ADroppedTableCannotBeDroppedAgain) {
    m_connection->Begin();
    m_connection->Execute(creation);
    m_connection->Execute("DROP TABLE #Next");
    EXPECT_NE(RaisedBy([&] { m_connection->Execute("DROP TABLE #Next"); }).Number(), 0);
    m_connection->Rollback();
    RunBatch(1);
}

}  // namespace
}  // namespace quellbrook::testing
