#include "tests/sql/tsql/TransactSqlTexts.h"

#include "base/Text.h"

#include <sqlite3.h>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

void ExpectAllUntouched(const Texts& texts) {
    for (const std::string& text : texts) ExpectUntouched(text);
}

void ExpectConditions(const Texts& conditions) {
    for (const std::string& condition : conditions) ExpectUntouched("SELECT a FROM t WHERE " + condition);
}

void ExpectConditionRefused(const std::string& condition, const std::string& part) {
    ExpectRefused("SELECT a FROM t WHERE " + condition, part);
}

std::string Nested(size_t depth) { return std::string(depth, '(') + "1" + std::string(depth, ')'); }

// The error message of SQLite for a statement on an empty database.
std::string SqliteErrorFor(const std::string& statement) {
    sqlite3* database = nullptr;
    sqlite3_stmt* prepared = nullptr;
    sqlite3_open(":memory:", &database);
    sqlite3_prepare_v2(database, statement.c_str(), -1, &prepared, nullptr);
    std::string message = sqlite3_errmsg(database);
    sqlite3_finalize(prepared);
    sqlite3_close(database);
    return message;
}

bool IsAccepted(const std::string& statement) {
    try {
        return Rewritten(statement) == Texts{statement};
    } catch (const Error&) {
        return false;
    }
}

}  // namespace

TEST(TransactSqlGrammar, AcceptsQueries) {
    ExpectAllUntouched({"SELECT 1", "select  a ,b\r\nfrom\tt", "SELECT * FROM t AS x",
                        "SELECT *, NULL AS Serial FROM t x", "SELECT DISTINCT a.b AS Name FROM t a CROSS JOIN b",
                        "SELECT 1 WHERE 1 = 0", "SELECT a FROM t WHERE b=1 UNION SELECT 2 UNION ALL SELECT c FROM u",
                        "SELECT a, MAX(b) AS N FROM t GROUP BY a, t.c ORDER BY a",
                        "SELECT a FROM t ORDER BY a ASC, t.b DESC", "SELECT (SELECT MAX(b) FROM u) AS M FROM t",
                        "SELECT \xC3\xA4 FROM \xC3\xB6"});
}

TEST(TransactSqlGrammar, AcceptsJoins) {
    ExpectAllUntouched(
        {"SELECT a FROM t INNER JOIN u ON t.a = u.a LEFT JOIN w x ON x.c IS NULL",
         "SELECT a FROM t LEFT JOIN (u INNER JOIN v AS y ON u.a = y.a) ON t.b = u.b AND t.c = u.c",
         "SELECT a FROM (SELECT b FROM t UNION SELECT c FROM u) AS x LEFT JOIN (SELECT 1 AS d) y ON x.b = y.d",
         "SELECT a FROM (t CROSS JOIN u) CROSS JOIN v o"});
}

TEST(TransactSqlGrammar, AcceptsConditions) {
    ExpectConditions({"a = 1 AND b <> -2 AND c IS NULL AND d IS NOT NULL", "a IN (1, ?, 'x', (SELECT 2))",
                      "a IN (SELECT b FROM u WHERE u.c = t.c)", "a LIKE '%x_' AND b LIKE '50!%' ESCAPE '!'",
                      "a LIKE ? AND b LIKE ?1 ESCAPE '\\'", "a LIKE '\\[x]%' ESCAPE '\\'", "+t.a = 5",
                      "a || 'x' || b = 'y'"});
}

TEST(TransactSqlGrammar, AcceptsValues) {
    ExpectAllUntouched(
        {"SELECT 1.5e-3, 2.5, -2, +a, 'it''s', N, ?, ?12, -?, NULL FROM t",
         "SELECT COALESCE(a, b, 'x'), REPLACE(a, 'x', ''), (a || ' ' || (b)), MAX(a), COUNT(*), COUNT(d) FROM t"});
}

TEST(TransactSqlGrammar, AcceptsChanges) {
    ExpectAllUntouched({"INSERT INTO Setting (Name,Value) VALUES ('a',  NULL)", "INSERT INTO t VALUES (1)",
                        "INSERT INTO t DEFAULT VALUES", "UPDATE StorageLocation SET ActiveFlag = ? WHERE IdNo = ?",
                        "UPDATE t SET a=b,c=(SELECT 1)", "DELETE FROM StorageLocation WHERE Path LIKE '/0/5/%'",
                        "DELETE FROM t"});
}

TEST(TransactSqlGrammar, AcceptsColumnsNamedLikeFunctions) {
    ExpectUntouched("SELECT t.Day, Month, Left_, Count, Max FROM t LEFT JOIN u ON t.Year = u.Year");
}

TEST(TransactSqlGrammar, AcceptsKeywordsOfSqliteAsNamesOnlyWhereSqliteDoes) {
    int names = 0;
    for (int i = 0; i < sqlite3_keyword_count(); ++i) {
        const char* text = nullptr;
        int length = 0;
        sqlite3_keyword_name(i, &text, &length);
        const std::string word(text, static_cast<size_t>(length));
        for (const char* form :
             {"SELECT {}, t.{} AS {} FROM {} {} LEFT JOIN u AS {} ON {}.{} = 1 GROUP BY {}",
              "UPDATE {} SET {} = {} WHERE {} IN ({}) AND {} LIKE 'x'", "INSERT INTO {} ({}) VALUES ({})",
              "DELETE FROM {} WHERE {} IS NULL AND {} || {} = 'x'"}) {
            const std::string statement = Replace(form, "{}", word);
            if (!IsAccepted(statement)) continue;
            ++names;
            EXPECT_EQ(SqliteErrorFor(statement).find("syntax"), std::string::npos) << statement;
        }
    }
    EXPECT_GT(names, 100);
}

// The error quotes the first token that does not fit.

TEST(TransactSqlGrammar, RefusesTransactSqlThatSqliteLacks) {
    ExpectRefused("SELECT TOP 5 * FROM Property", "TOP");
    ExpectRefused("SELECT top 5 * FROM Property", "top");
    ExpectRefused("SELECT CURRENT_TIMESTAMP", "CURRENT_TIMESTAMP");
    ExpectRefused("SELECT @@IDENTITY", "@@IDENTITY");
    ExpectRefused("SELECT [Name] FROM t", "[Name]");
    ExpectRefused("SELECT a[", "[");
    ExpectRefused("SELECT \"a\" FROM t", "\"");
    ExpectRefused("EXEC sp_who", "EXEC");
    ExpectRefused("INSERT INTO t EXEC sp_who", "EXEC");
    ExpectRefused("MERGE INTO t USING u ON 1=1", "MERGE");
    ExpectRefused("CREATE TABLE #a (b INT IDENTITY(1,1))", "IDENTITY");
    ExpectRefused("SELECT * FROM t WITH (NOLOCK)", "WITH");
    ExpectRefused("SELECT * FROM t (NOLOCK)", "(");
    ExpectRefused("WITH a AS (SELECT 1 b) SELECT * FROM a", "WITH");
    ExpectRefused("SELECT * INTO #a FROM t", "INTO");
    ExpectRefused("SELECT a INTO #a FROM t", "INTO");
    ExpectRefused("SELECT a FROM t FOR XML", "FOR");
    ExpectRefused("SELECT * FROM ##all", "##all");
    ExpectRefused("SELECT * FROM #", "#");
    ExpectRefused("SELECT 5 & 3", "&");
    ExpectRefused("SELECT a FROM t WHERE a !< 5", "!");
    ExpectRefused("SELECT $5", "$");
    ExpectRefused("SELECT :a", ":");
    ExpectRefused("SELECT `a`", "`");
    ExpectRefused("SELECT 0x1F", "0x");
    ExpectRefused("SELECT X'00'", "'00'");
    ExpectRefused("SELECT a$b FROM t", "a$");
    ExpectRefused("SELECT 1 -- x", "-");
    ExpectRefused("SELECT 1 /* x */", "/");
    ExpectRefused("SELECT a FROM dbo.t", ".");
    ExpectRefused("SELECT a FROM t CROSS APPLY u", "APPLY");
    ExpectRefused("SELECT CASE WHEN 1=1 THEN 2 END", "CASE");
    ExpectRefused("SELECT MAX(a) OVER (PARTITION BY b) FROM t", "OVER");
    ExpectRefused("SELECT a FROM t ORDER BY a OFFSET 5 ROWS", "OFFSET");
    ExpectRefused("DECLARE @t TABLE (a INT)", "TABLE");
}

TEST(TransactSqlGrammar, RefusesOtherFunctions) {
    for (const char* name : {"GETDATE", "CONVERT", "CAST", "LEN", "LEFT", "CHARINDEX", "NEWID", "typeof",
                             "load_extension", "SUM", "Substr"})
        ExpectRefused("SELECT " + std::string(name) + "(a) FROM t", name);
    ExpectRefused("SELECT COALESCE(a) FROM t", "COALESCE");
    ExpectRefused("SELECT MAX(a, b) FROM t", "MAX");
    ExpectRefused("SELECT MAX(*) FROM t", "*");
    ExpectRefused("SELECT COUNT(DISTINCT a) FROM t", "DISTINCT");
    ExpectRefused("SELECT COUNT() FROM t", ")");
}

TEST(TransactSqlGrammar, RefusesOtherStatements) {
    ExpectRefused("PRAGMA foreign_keys = OFF", "PRAGMA");
    ExpectRefused("ATTACH 'x' AS y", "ATTACH");
    ExpectRefused("BEGIN TRANSACTION", "BEGIN");
    ExpectRefused("SET NOCOUNT ON", "SET");
    ExpectRefused("CREATE TABLE t (a INT)", "t");
    ExpectRefused("CREATE INDEX i ON t (a)", "INDEX");
    ExpectRefused("CREATE TABLE #a (b INT) AS SELECT 1", "AS");
    ExpectRefused("CREATE TABLE #a (b NVARCHAR(5))", "NVARCHAR");
    ExpectRefused("CREATE TABLE #a (b INT DEFAULT 1)", "DEFAULT");
    ExpectRefused("DROP TABLE Property", "Property");
    ExpectRefused("DROP TABLE #a, #b", ",");
    ExpectRefused("DROP VIEW v", "VIEW");
    ExpectRefused("(SELECT 1)", "(");
    ExpectRefused("SELECT 1; DROP TABLE Property", "Property");
    ExpectRefused("INSERT OR REPLACE INTO t VALUES (1)", "OR");
    ExpectRefused("INSERT t VALUES (1)", "t");
    ExpectRefused("INSERT INTO t VALUES (1), (2)", ",");
    ExpectRefused("INSERT INTO t (a) SELECT b FROM u", "SELECT");
    ExpectRefused("DELETE t", "t");
    ExpectRefused("DELETE FROM t x WHERE x.a=1", "x");
    ExpectRefused("UPDATE OR IGNORE t SET a=1", "OR");
    ExpectRefused("UPDATE t SET a=1 FROM u", "FROM");
    ExpectRefused("UPDATE t SET t.a=1", ".");
    ExpectRefused("INSERT", "INSERT");
}

TEST(TransactSqlGrammar, RefusesOtherQueries) {
    ExpectRefused("SELECT a FROM t, u", ",");
    ExpectRefused("SELECT a FROM t NATURAL JOIN u", "NATURAL");
    ExpectRefused("SELECT a FROM t FULL JOIN u ON 1=1", "FULL");
    ExpectRefused("SELECT a FROM t INNER JOIN u", "u");
    ExpectRefused("SELECT a FROM (t)", ")");
    ExpectRefused("SELECT a FROM (t WHERE 1=1)", "WHERE");
    ExpectRefused("SELECT a FROM (SELECT 1 AS a)", ")");
    ExpectRefused("SELECT a b FROM t", "b");
    ExpectRefused("SELECT a AS 'b' FROM t", "'b'");
    ExpectRefused("SELECT a AS limit FROM t", "limit");
    ExpectRefused("SELECT *", "*");
    ExpectRefused("SELECT a UNION SELECT b INTERSECT SELECT c", "INTERSECT");
    ExpectRefused("SELECT a FROM t GROUP BY 1", "1");
    ExpectRefused("SELECT a FROM t GROUP BY a HAVING 1=1", "HAVING");
    ExpectRefused("SELECT a FROM t ORDER BY 1", "1");
    ExpectRefused("SELECT a FROM t WHERE a IN (SELECT b FROM u ORDER BY b)", "ORDER");
}

TEST(TransactSqlGrammar, RefusesArithmetic) {
    ExpectRefused("SELECT Name + 'x' FROM t", "+");
    ExpectRefused("SELECT +'x'", "'x'");
    ExpectRefused("SELECT a - 1 FROM t", "-");
    ExpectRefused("SELECT -'x'", "-");
    ExpectRefused("SELECT a * 2 FROM t", "*");
}

TEST(TransactSqlGrammar, RefusesOtherConditions) {
    ExpectConditionRefused("a", "a");
    ExpectConditionRefused("a = b = c", "=");
    ExpectConditionRefused("a AND b = 1", "AND");
    ExpectConditionRefused("a = 1 OR b = 2", "OR");
    ExpectConditionRefused("NOT a = 1", "NOT");
    ExpectConditionRefused("a = (b = 1)", "=");
    ExpectConditionRefused("a IS b", "b");
    ExpectConditionRefused("a NOT LIKE 'x'", "NOT");
    ExpectConditionRefused("a BETWEEN 1 AND 2", "BETWEEN");
    ExpectConditionRefused("EXISTS (SELECT 1)", "EXISTS");
    ExpectConditionRefused("a < 1", "<");
    ExpectConditionRefused("a IN ()", ")");
    ExpectConditionRefused("a IN b", "b");
    ExpectRefused("SELECT a = 1 FROM t", "=");
    ExpectRefused("UPDATE t SET a = b = 1", "=");
}

TEST(TransactSqlGrammar, RefusesPatternsThatMeanSomethingElseToSqlite) {
    ExpectConditionRefused("a LIKE '[ab]%'", "'[ab]%'");
    ExpectConditionRefused("a LIKE N'x[' ", "N'x['");
    ExpectConditionRefused("a LIKE '!![' ESCAPE '!'", "'!!['");
    ExpectConditionRefused("a LIKE 'x' ESCAPE 'ab'", "'ab'");
    ExpectConditionRefused("a LIKE 'x' ESCAPE ''", "''");
    ExpectConditionRefused("a LIKE 'x' ESCAPE ?", "?");
    ExpectConditionRefused("a LIKE b", "b");
    ExpectConditionRefused("a LIKE 'x' || b", "||");
}

TEST(TransactSqlGrammar, RefusesUnfinishedStatements) {
    ExpectRefused("SELECT 'abc", "'abc");
    ExpectRefused("SELECT N'abc''", "N'abc''");
    ExpectRefused("SELECT 1e", "1e");
    ExpectRefused("SELECT 2.", "2.");
    ExpectRefused("SELECT 12abc", "12a");
    ExpectRefused("SELECT a | b", "|");
    ExpectRefused("SELECT 'a' 'b'", "'b'");
    ExpectRefused("SELECT (1", "(");
    ExpectRefused("SELECT MAX(1", "(");
    ExpectRefused("SELECT 1) || (2", ")");
    ExpectRefused("SELECT 1,", ",");
    ExpectRefused("SELECT", "SELECT");
    ExpectRefused("SELECT a FROM", "FROM");
    ExpectRefused("SELECT a FROM t WHERE", "WHERE");
    ExpectRefused("SELECT a FROM t WHERE b =", "=");
    ExpectRefused("SELECT a FROM t ORDER BY", "BY");
    ExpectRefused("SELECT (1; 2)", "(");
}

TEST(TransactSqlGrammar, RefusesNulInsideAndOutsideOfLiterals) {
    const Error inside = RaisedBy([] { Rewritten(std::string("SELECT 'a\0b'", 12)); });
    EXPECT_EQ(inside.Number(), ErrorNumber::General);
    const Error outside = RaisedBy([] { Rewritten(std::string("SELECT 1\0, 2", 12)); });
    EXPECT_EQ(outside.Number(), ErrorNumber::General);
    EXPECT_EQ(outside.Description().find('\0'), std::string::npos);
}

TEST(TransactSqlGrammar, RefusesDeepNesting) {
    ExpectUntouched("SELECT " + Nested(30));
    ExpectRefused("SELECT " + Nested(31), "(");
    ExpectRefused("SELECT " + Nested(200000), "(");
    std::string calls;
    for (int i = 0; i < 100000; ++i) calls += "MAX(";
    ExpectRefused("SELECT " + calls + "1", "(");
}

TEST(TransactSqlGrammar, ALongRefusedPartIsShortenedBetweenCharacters) {
    std::string text = "SELECT 'x";
    for (int i = 0; i < 60; ++i) text += "ä";
    const Error error = RaisedBy([&] { Rewritten(text); });
    EXPECT_NE(error.Description().find("ä\" in a statement."), std::string::npos) << error.Description();
}
