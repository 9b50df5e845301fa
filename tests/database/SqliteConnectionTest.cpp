#include "database/SqliteEngine.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

#include <SQLiteCpp/SQLiteCpp.h>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

const char* const noSuchTable =
    "The database does not have the structure that this program expects. Have it checked. (no such table: Nowhere)";

class SqliteConnectionTest : public ::testing::Test {
protected:
    SqliteConnectionTest() : m_connection(m_database.GetEngine()->Open()) {}

    RowList Query(const std::string& sql, const std::vector<TaggedValue>& parameters = {}) {
        RowList rows;
        m_connection->Query(sql, parameters, [&](const Row& row) {
            rows.push_back(row);
            return true;
        });
        return rows;
    }
    TaggedValue Value(const std::string& sql) {
        const RowList rows = Query(sql);
        return rows.empty() ? TaggedValue() : rows[0].At(0);
    }
    TaggedValue Setting(const std::string& name) { return Value("SELECT * FROM pragma_" + name); }

    TestDatabase m_database;
    std::unique_ptr<Connection> m_connection;
};

}  // namespace

TEST_F(SqliteConnectionTest, UsesAWriteAheadLogFullSynchronizationAndForeignKeys) {
    EXPECT_EQ(Setting("journal_mode"), TaggedValue("wal"));
    EXPECT_EQ(Setting("synchronous"), TaggedValue(2));
    EXPECT_EQ(Setting("foreign_keys"), TaggedValue(1));
    EXPECT_EQ(Setting("cache_size"), TaggedValue(-65536));
}

TEST_F(SqliteConnectionTest, ValuesHaveTheDeclaredTypesOfTheirColumns) {
    m_database.Execute(
        "CREATE TABLE Kinds (Flag BOOLEAN, Bit BIT, Moment DATETIME, Day DATE, Whole INTEGER, Wide BIGINT, "
        "Fraction REAL, Amount DECIMAL(10, 2), Price MONEY, Words TEXT, Anything)");
    m_database.Execute(
        "INSERT INTO Kinds VALUES (1, 0, '2026-11-20T13:14:15.123', '2026-11-20', -7, 5000000000, 0.5, 3, "
        "12.25, '1', x'4142')");
    const RowList rows = Query("SELECT * FROM Kinds");
    ASSERT_EQ(rows.size(), 1u);
    const Row& row = rows[0];
    EXPECT_EQ(row.Value("Flag"), TaggedValue(true));
    EXPECT_EQ(row.Value("Bit"), TaggedValue(false));
    EXPECT_EQ(row.Value("Moment"), TaggedValue(DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123})));
    EXPECT_EQ(row.Value("Day"), TaggedValue(DateTime::FromParts({2026, 11, 20, 0, 0, 0, 0})));
    EXPECT_EQ(row.Value("Whole"), TaggedValue(-7));
    EXPECT_EQ(row.Value("Wide"), TaggedValue(Decimal{5000000000, 0}));
    EXPECT_EQ(row.Value("Fraction"), TaggedValue(0.5));
    EXPECT_EQ(row.Value("Amount"), TaggedValue(3));
    EXPECT_EQ(row.Value("Price"), TaggedValue(12.25));
    EXPECT_EQ(row.Value("Words"), TaggedValue("1"));
    EXPECT_EQ(row.Value("Anything"), TaggedValue("AB"));
}

TEST_F(SqliteConnectionTest, NullIsNullInAnyColumn) {
    m_database.Execute("CREATE TABLE Kinds (Flag BOOLEAN, Moment DATETIME, Whole INTEGER, Words TEXT)");
    m_database.Execute("INSERT INTO Kinds DEFAULT VALUES");
    const RowList rows = Query("SELECT *, NULL AS Serial FROM Kinds");
    ASSERT_EQ(rows.size(), 1u);
    for (int i = 0; i < 5; ++i) EXPECT_TRUE(rows[0].At(i).IsNull()) << i;
}

TEST_F(SqliteConnectionTest, ATextThatIsNotADateStaysAText) {
    m_database.Execute("CREATE TABLE Kinds (Moment DATETIME, Flag BOOLEAN)");
    m_database.Execute("INSERT INTO Kinds VALUES ('soon', 'maybe')");
    const RowList rows = Query("SELECT * FROM Kinds");
    EXPECT_EQ(rows[0].At(0), TaggedValue("soon"));
    EXPECT_EQ(rows[0].At(1), TaggedValue("maybe"));
}

TEST_F(SqliteConnectionTest, NumbersBeyond32BitsAreExact) {
    const RowList rows = Query("SELECT 2147483647, -2147483648, 2147483648, -2147483649, 9223372036854775807");
    EXPECT_EQ(rows[0].At(0), TaggedValue(2147483647));
    EXPECT_EQ(rows[0].At(1), TaggedValue(static_cast<int32_t>(-2147483647 - 1)));
    EXPECT_EQ(rows[0].At(2), TaggedValue(Decimal{2147483648, 0}));
    EXPECT_EQ(rows[0].At(3), TaggedValue(Decimal{-2147483649, 0}));
    EXPECT_EQ(rows[0].At(4), TaggedValue(Decimal{9223372036854775807, 0}));
}

TEST_F(SqliteConnectionTest, TextsAreReadBackUnchanged) {
    for (const char* text : {"", "it's", "a\r\nb\tc", "\xC3\xA4\xC3\x96", "\xF0\x9F\x9A\x97",
                             "'; DROP TABLE Setting; --", "?1 @x #y", "  blanks  "}) {
        m_connection->Execute("DELETE FROM Setting");
        m_connection->Execute("INSERT INTO Setting (Name, Value) VALUES ('x', ?)", {text});
        EXPECT_EQ(Value("SELECT Value FROM Setting"), TaggedValue(text));
    }
}

TEST_F(SqliteConnectionTest, ParametersAreBoundByTheirType) {
    m_database.Execute("CREATE TABLE Kinds (Value)");
    const std::vector<std::pair<TaggedValue, std::string>> cases = {
        {true, "integer 1"},
        {false, "integer 0"},
        {-5, "integer -5"},
        {2.5, "real 2.5"},
        {Decimal{5000000000, 0}, "integer 5000000000"},
        {Decimal{1225, 2}, "real 12.25"},
        {"x", "text x"},
        {DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123}), "text 2026-11-20T13:14:15.123"},
    };
    for (const auto& [value, expected] : cases) {
        m_connection->Execute("DELETE FROM Kinds");
        m_connection->Execute("INSERT INTO Kinds (Value) VALUES (?)", {value});
        EXPECT_EQ(m_database.QueryValue("SELECT typeof(Value) || ' ' || Value FROM Kinds"), TaggedValue(expected));
    }
    for (const TaggedValue& nothing : {TaggedValue(), TaggedValue(Null())}) {
        m_connection->Execute("DELETE FROM Kinds");
        m_connection->Execute("INSERT INTO Kinds (Value) VALUES (?)", {nothing});
        EXPECT_TRUE(Value("SELECT Value FROM Kinds").IsNull());
    }
}

TEST_F(SqliteConnectionTest, AQueryTakesItsParametersInOrder) {
    const std::string sql = "SELECT ? AS A, ? AS B, 'x' AS C WHERE ? = 7 AND 1 = 1";
    const RowList rows = Query(sql, {"it's", Null(), 7});
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].Value("A"), TaggedValue("it's"));
    EXPECT_TRUE(rows[0].Value("B").IsNull());
    EXPECT_EQ(rows[0].Value("C"), TaggedValue("x"));
    EXPECT_TRUE(Query(sql, {"it's", Null(), 8}).empty());
    EXPECT_EQ(Query(sql, {1, 2, 7})[0].Value("B"), TaggedValue(2));
}

TEST_F(SqliteConnectionTest, AQueryNeedsOneValueForEachParameter) {
    const std::string sql = "SELECT Name FROM Setting WHERE Name = ?";
    for (const std::vector<TaggedValue>& values : {std::vector<TaggedValue>{}, {1, 2}}) {
        const Error error = RaisedBy([&] { Query(sql, values); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "The number of values differs from the number of parameters.");
    }
    EXPECT_EQ(RaisedBy([&] { Query(sql, {std::string("a\0b", 3)}); }).Number(), ErrorNumber::General);
    EXPECT_TRUE(Query(sql, {"x"}).empty());
}

TEST_F(SqliteConnectionTest, RefusesInvalidParameters) {
    struct Thing : Object {
        std::string TypeName() const override { return "Thing"; }
    };
    const std::string insert = "INSERT INTO Setting (Name, Value) VALUES ('x', ?)";
    EXPECT_EQ(RaisedBy([&] { m_connection->Execute(insert, {std::make_shared<Thing>()}); }).Number(),
              ErrorNumber::TypeMismatch);
    EXPECT_EQ(RaisedBy([&] { m_connection->Execute(insert, {std::string("a\0b", 3)}); }).Number(),
              ErrorNumber::General);
    EXPECT_EQ(RaisedBy([&] { m_connection->Execute(insert); }).Number(), ErrorNumber::General);
    EXPECT_EQ(RaisedBy([&] { m_connection->Execute(insert, {1, 2}); }).Number(), ErrorNumber::General);
    EXPECT_EQ(RaisedBy([&] { Query("SELECT * FROM Setting WHERE Name = ?"); }).Number(), ErrorNumber::General);
    EXPECT_EQ(Value("SELECT COUNT(*) FROM Setting"), TaggedValue(0));
}

TEST_F(SqliteConnectionTest, FailuresHaveTheMessageAndNumberOfTheDatabase) {
    m_connection->Execute("INSERT INTO Setting (Name) VALUES ('x')");
    const Error unique = RaisedBy([&] { m_connection->Execute("INSERT INTO Setting (Name) VALUES ('X')"); });
    EXPECT_EQ(unique.Number(), ErrorNumber::IntegrityViolation);
    EXPECT_EQ(unique.Source(), "SqliteConnection.Execute");
    EXPECT_EQ(unique.Description(),
              "A record with this name or number already exists. Refresh and try again. (UNIQUE constraint failed: "
              "Setting.Name)");

    const Error foreign = RaisedBy([&] { m_connection->Execute("INSERT INTO IncdProperty VALUES (1, 1)"); });
    EXPECT_EQ(foreign.Number(), ErrorNumber::IntegrityViolation);

    const Error absent = RaisedBy([&] { Query("SELECT * FROM Nowhere"); });
    EXPECT_EQ(absent.Number(), 1);
    EXPECT_EQ(absent.Source(), "SqliteConnection.Query");
    EXPECT_EQ(absent.Description(), noSuchTable);

    const Error missing =
        RaisedBy([&] { m_connection->Execute("INSERT INTO AttachmentFolder (FolderNo) VALUES (1)"); });
    EXPECT_NE(missing.Number(), ErrorNumber::IntegrityViolation);
    EXPECT_NE(missing.Number(), 0);
    EXPECT_TRUE(m_connection->IsHealthy());
}

TEST_F(SqliteConnectionTest, AnUnsupportedStatementIsRefusedWithTheWord) {
    const Error error = RaisedBy([&] { Query("SELECT TOP 1 * FROM Setting"); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_NE(error.Description().find("\"TOP\""), std::string::npos);
    EXPECT_EQ(RaisedBy([&] { Query("SELECT 1; SELECT 2"); }).Number(), ErrorNumber::General);
    EXPECT_EQ(RaisedBy([&] { Query(""); }).Number(), ErrorNumber::General);
    EXPECT_EQ(RaisedBy([&] { Query("DELETE FROM Setting"); }).Description(), "A query must be one SELECT statement.");
}

TEST_F(SqliteConnectionTest, AQueryStopsWhenTheReceiverReturnsFalse) {
    int rows = 0;
    m_connection->Query("SELECT 1 UNION SELECT 2 UNION SELECT 3", {}, [&](const Row&) { return ++rows < 2; });
    EXPECT_EQ(rows, 2);
}

TEST_F(SqliteConnectionTest, TheConnectionStaysUsableAfterTheReceiverThrows) {
    const std::string sql = "SELECT Name FROM Setting";
    m_connection->Execute("INSERT INTO Setting (Name) VALUES ('x')");
    EXPECT_EQ(RaisedBy([&] {
                  m_connection->Query(sql, {}, [](const Row&) -> bool { Raise(ErrorNumber::KeyTaken, "Test"); });
              }).Number(),
              ErrorNumber::KeyTaken);
    EXPECT_EQ(Value(sql), TaggedValue("x"));
    m_connection->Execute("DELETE FROM Setting");
    EXPECT_TRUE(Value(sql).IsEmpty());
}

TEST_F(SqliteConnectionTest, AQueryCanRunInsideTheSameQuery) {
    const std::string sql = "SELECT 1 UNION SELECT 2";
    int inner = 0, outer = 0;
    m_connection->Query(sql, {}, [&](const Row&) {
        ++outer;
        m_connection->Query(sql, {}, [&](const Row&) { return ++inner > 0; });
        return true;
    });
    EXPECT_EQ(outer, 2);
    EXPECT_EQ(inner, 4);
}

TEST_F(SqliteConnectionTest, AKeptQuerySeesAChangedTable) {
    m_database.Execute("CREATE TABLE Wide (A INTEGER)");
    m_database.Execute("INSERT INTO Wide VALUES (1)");
    const std::string sql = "SELECT * FROM Wide";
    EXPECT_EQ(Query(sql)[0].Columns().Names().size(), 1u);
    m_database.Execute("ALTER TABLE Wide ADD COLUMN B BOOLEAN DEFAULT 1");
    const RowList rows = Query(sql);
    ASSERT_EQ(rows[0].Columns().Names(), (std::vector<std::string>{"A", "B"}));
    EXPECT_EQ(rows[0].Value("B"), TaggedValue(true));
}

TEST_F(SqliteConnectionTest, ARowDoesNotChangeWithTheNextRow) {
    const RowList rows = Query("SELECT 'first' AS A, 1 AS B UNION ALL SELECT 'second', NULL");
    EXPECT_EQ(rows[0].Value("A"), TaggedValue("first"));
    EXPECT_EQ(rows[0].Value("B"), TaggedValue(1));
    EXPECT_EQ(rows[1].Value("A"), TaggedValue("second"));
    EXPECT_TRUE(rows[1].Value("B").IsNull());
    EXPECT_EQ(&rows[0].Columns(), &rows[1].Columns());
}

TEST_F(SqliteConnectionTest, DescribesTheColumnsOfATable) {
    m_database.Execute(
        "CREATE TABLE Kinds (Flag BOOLEAN, Moment DATETIME, Whole INT, Amount MONEY, Words NVARCHAR(5))");
    const auto columns = m_connection->DescribeTable("kinds");
    ASSERT_EQ(columns.size(), 5u);
    EXPECT_EQ(columns[0].name, "Flag");
    EXPECT_EQ(columns[0].kind, ColumnKind::Boolean);
    EXPECT_EQ(columns[1].kind, ColumnKind::Date);
    EXPECT_EQ(columns[2].kind, ColumnKind::WholeNumber);
    EXPECT_EQ(columns[3].kind, ColumnKind::Number);
    EXPECT_EQ(columns[4].kind, ColumnKind::Text);
    EXPECT_EQ(RaisedBy([&] { m_connection->DescribeTable("Nowhere"); }).Description(), noSuchTable);
}

TEST_F(SqliteConnectionTest, IdentityIsThatOfTheInsertNotOfItsTriggers) {
    m_database.Execute("INSERT INTO Property (PropertyNo) VALUES (41)");
    const std::string insert = "INSERT INTO Property (Description) VALUES (?)";
    EXPECT_EQ(m_connection->Insert(insert, {"blue bicycle"}, "PropertyNo"), 42);
}

TEST_F(SqliteConnectionTest, ABatchLocksOutOtherWritersButNotReaders) {
    const auto impatient = SqliteEngine::Open(m_database.Path(), 20);
    const auto other = impatient->Open();
    m_connection->Begin();
    m_connection->Execute("INSERT INTO Setting (Name) VALUES ('x')");
    EXPECT_EQ(RaisedBy([&] { other->Begin(); }).Description(),
              "Another program is writing to the database and did not finish in time. Try again. (database is locked)");
    int rows = 0;
    other->Query("SELECT * FROM Setting", {}, [&](const Row&) { return ++rows > 0; });
    EXPECT_EQ(rows, 0);
    m_connection->Commit();
    other->Begin();
    other->Rollback();
    EXPECT_TRUE(other->IsHealthy());
}

TEST_F(SqliteConnectionTest, SimilarStatementsInABatchKeepTheirOwnValues) {
    m_connection->Begin();
    for (int i = 0; i < 50; ++i) {
        const std::string number = std::to_string(i);
        m_connection->Execute("INSERT INTO Setting (Name, Value) VALUES ('n" + number + "', 'it''s " + number + "')");
        m_connection->Execute("UPDATE Setting SET Value = Value || '!' WHERE Name = 'n" + number + "'");
    }
    m_connection->Commit();
    EXPECT_EQ(Value("SELECT COUNT(*) FROM Setting WHERE Value = 'it''s ' || REPLACE(Name, 'n', '') || '!'"),
              TaggedValue(50));
}

TEST_F(SqliteConnectionTest, AFailingStatementInABatchReportsItsOwnError) {
    m_connection->Begin();
    EXPECT_EQ(RaisedBy([&] { m_connection->Execute("UPDATE Nowhere SET A = 1"); }).Description(), noSuchTable);
    m_connection->Execute("INSERT INTO Setting (Name) VALUES ('x')");
    EXPECT_EQ(RaisedBy([&] { m_connection->Execute("INSERT INTO Setting (Name) VALUES ('x')"); }).Number(),
              ErrorNumber::IntegrityViolation);
    m_connection->Rollback();
    EXPECT_EQ(Value("SELECT COUNT(*) FROM Setting"), TaggedValue(0));
}

TEST_F(SqliteConnectionTest, ResetRollsBackAndDropsTemporaryTables) {
    m_connection->Execute("CREATE TABLE #Left (A INT)");
    m_connection->Execute("INSERT INTO #Left (A) VALUES (3)");
    EXPECT_EQ(Value("SELECT A FROM #left"), TaggedValue(3));
    m_connection->Begin();
    m_connection->Execute("INSERT INTO Setting (Name) VALUES ('x')");
    m_connection->Reset();
    EXPECT_EQ(Value("SELECT COUNT(*) FROM Setting"), TaggedValue(0));
    EXPECT_NE(RaisedBy([&] { Query("SELECT A FROM #Left"); }).Number(), 0);
    m_connection->Begin();
    m_connection->Commit();
}

TEST_F(SqliteConnectionTest, ClosingAConnectionRollsBack) {
    m_connection->Begin();
    m_connection->Execute("INSERT INTO Setting (Name) VALUES ('x')");
    m_connection.reset();
    EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM Setting"), TaggedValue(0));
}
