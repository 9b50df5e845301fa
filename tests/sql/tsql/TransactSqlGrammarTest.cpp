#include "tests/sql/tsql/TransactSqlTexts.h"

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

}  // namespace

// What the grammar holds is handed on byte by byte.

TEST(TransactSqlGrammar, HoldsQueries) {
    ExpectAllUntouched({"SELECT 1", "select  a ,b\r\nfrom\tt", "SELECT * FROM t AS x",
                        "SELECT *, NULL AS Serial FROM t x",
                        "SELECT DISTINCT a.*, b.\"Name\" AS \"Its name\" FROM t a CROSS JOIN b", "SELECT 1 WHERE 1 = 0",
                        "SELECT a FROM t WHERE b=1 UNION SELECT 2 UNION ALL SELECT c FROM u",
                        "SELECT a, COUNT(*) AS N FROM t GROUP BY a, t.b HAVING COUNT(DISTINCT c)>1",
                        "SELECT (SELECT MAX(b) FROM u) AS M FROM t", "SELECT \xC3\xA4 FROM \xC3\xB6"});
}

TEST(TransactSqlGrammar, HoldsJoins) {
    ExpectAllUntouched(
        {"SELECT a FROM t INNER JOIN u ON t.a = u.a JOIN v ON v.b = u.b LEFT OUTER JOIN w x ON x.c IS NULL",
         "SELECT a FROM t LEFT JOIN (u INNER JOIN v AS y ON u.a = y.a) ON t.b = u.b AND t.c = u.c",
         "SELECT a FROM (SELECT b FROM t UNION SELECT c FROM u) AS x LEFT JOIN (SELECT 1 AS d) y ON x.b = y.d",
         "SELECT a FROM (t CROSS JOIN u) CROSS JOIN \"order\" o"});
}

TEST(TransactSqlGrammar, HoldsConditions) {
    ExpectConditions({"a = 1 AND NOT (b <> 2 OR c != 3) AND d<4 AND e<=5 AND f>6 AND g>=7", "NOT NOT a IS NOT NULL",
                      "a IS NULL OR b BETWEEN 1 AND 2 AND c NOT BETWEEN -1 AND +1", "a IN (1, ?, 'x', (SELECT 2))",
                      "a NOT IN (SELECT b FROM u WHERE u.c = t.c)",
                      "EXISTS (SELECT 1 FROM u) AND NOT EXISTS (SELECT 2)",
                      "a LIKE '%x_' AND b NOT LIKE '50!%' ESCAPE '!' AND c LIKE ? AND d LIKE ?1 ESCAPE '\\'",
                      "a LIKE '\\[x]%' ESCAPE '\\'", "((a = 1))", "a + 1 = (b) * -c / 2 % 3", "a || 'x' || b = 'y'"});
}

TEST(TransactSqlGrammar, HoldsValues) {
    ExpectAllUntouched({"SELECT 1.5e-3, .5, 2., -2, +a, 'it''s', N, ?, ?12, NULL FROM t",
                        "SELECT COALESCE(a, b, 'x'), NULLIF(a, 0), REPLACE(a, 'x', ''), ABS(-1), LTRIM(RTRIM(a))",
                        "SELECT MAX(a)+1, MIN(b), SUM(c), COUNT(d) FROM t"});
}

TEST(TransactSqlGrammar, HoldsChanges) {
    ExpectAllUntouched({"INSERT INTO Setting (Name,Value) VALUES ('a',  NULL)", "INSERT INTO t VALUES (1), (2)",
                        "INSERT INTO t DEFAULT VALUES", "INSERT INTO t (a) SELECT b FROM u UNION SELECT 1",
                        "UPDATE StorageLocation SET ActiveFlag = ? WHERE IdNo = ?",
                        "UPDATE t SET \"a\"=a+1,b=(SELECT 1)", "DELETE FROM StorageLocation WHERE Path LIKE '/0/5/%'",
                        "DELETE FROM t"});
}

TEST(TransactSqlGrammar, HoldsColumnsNamedLikeFunctions) {
    ExpectUntouched("SELECT t.Day, Month, Left_, Count, Len FROM t LEFT JOIN u ON t.Year = u.Year");
}

TEST(TransactSqlGrammar, HoldsReservedWordsBetweenQuotes) {
    ExpectUntouched("SELECT \"top\", \"user\" FROM \"order\"");
    ExpectRefused("SELECT user FROM t", "user");
    ExpectRefused("SELECT a FROM order", "order");
    ExpectRefused("SELECT a AS limit FROM t", "limit");
    ExpectRefused("UPDATE t SET key = 1", "key");
}

// What leaves it is refused, the first token that does not fit in the sentence.

TEST(TransactSqlGrammar, RefusesWhatTheEnginesLack) {
    ExpectRefused("SELECT TOP 5 * FROM Property", "TOP");
    ExpectRefused("SELECT top 5 * FROM Property", "top");
    ExpectRefused("SELECT CURRENT_TIMESTAMP", "CURRENT_TIMESTAMP");
    ExpectRefused("SELECT @@IDENTITY", "@@IDENTITY");
    ExpectRefused("SELECT [Name] FROM t", "[Name]");
    ExpectRefused("SELECT a[", "[");
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
    ExpectRefused("SELECT X'00'", "X'");
    ExpectRefused("SELECT E'a'", "E'");
    ExpectRefused("SELECT a$b FROM t", "a$");
    ExpectRefused("SELECT 1 -- x", "--");
    ExpectRefused("SELECT 1 /* x */", "/*");
    ExpectRefused("SELECT a FROM dbo.t", ".");
    ExpectRefused("SELECT a FROM t CROSS APPLY u", "APPLY");
    ExpectRefused("SELECT CASE WHEN 1=1 THEN 2 END", "CASE");
    ExpectRefused("SELECT MAX(a) OVER (PARTITION BY b) FROM t", "OVER");
    ExpectRefused("SELECT a FROM t ORDER BY a OFFSET 5 ROWS", "OFFSET");
    ExpectRefused("DECLARE @t TABLE (a INT)", "TABLE");
}

TEST(TransactSqlGrammar, RefusesFunctionsThatItDoesNotKnow) {
    for (const char* name : {"GETDATE", "ISNULL", "CONVERT", "CAST", "LEN", "LEFT", "CHARINDEX", "NEWID", "typeof",
                             "load_extension", "pg_sleep", "AVG", "Substr"})
        ExpectRefused("SELECT " + std::string(name) + "(a) FROM t", name);
    ExpectRefused("SELECT COALESCE(a) FROM t", "COALESCE");
    ExpectRefused("SELECT MAX(a, b) FROM t", "MAX");
    ExpectRefused("SELECT MAX(*) FROM t", "*");
    ExpectRefused("SELECT REPLACE(DISTINCT a, b, c) FROM t", "DISTINCT");
    ExpectRefused("SELECT COUNT() FROM t", ")");
    ExpectRefused("SELECT \"MAX\"(a) FROM t", "(");
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
    ExpectRefused("INSERT INTO t VALUES (DEFAULT)", "DEFAULT");
    ExpectRefused("INSERT INTO t (a) DEFAULT VALUES", "DEFAULT");
    ExpectRefused("INSERT INTO t SELECT a FROM u ORDER BY a", "ORDER");
    ExpectRefused("DELETE t", "t");
    ExpectRefused("DELETE FROM t x WHERE x.a=1", "x");
    ExpectRefused("UPDATE OR IGNORE t SET a=1", "OR");
    ExpectRefused("UPDATE t SET a=1 FROM u", "FROM");
    ExpectRefused("UPDATE t SET t.a=1", ".");
    ExpectRefused("INSERT", "INSERT");
}

TEST(TransactSqlGrammar, RefusesQueriesThatEnginesReadInDifferentWays) {
    ExpectRefused("SELECT a FROM t, u", ",");
    ExpectRefused("SELECT a FROM t NATURAL JOIN u", "NATURAL");
    ExpectRefused("SELECT a FROM t FULL JOIN u ON 1=1", "FULL");
    ExpectRefused("SELECT a FROM t JOIN u", "u");
    ExpectRefused("SELECT a FROM t JOIN u JOIN v ON 1=1 ON 2=2", "JOIN");
    ExpectRefused("SELECT a FROM (t)", ")");
    ExpectRefused("SELECT a FROM (SELECT 1 AS a)", ")");
    ExpectRefused("SELECT a b FROM t", "b");
    ExpectRefused("SELECT *", "*");
    ExpectRefused("SELECT a UNION SELECT b INTERSECT SELECT c", "INTERSECT");
    ExpectRefused("SELECT a EXCEPT SELECT b", "EXCEPT");
    ExpectRefused("SELECT a FROM t GROUP BY 1", "1");
    ExpectRefused("SELECT a FROM t HAVING 1=1", "HAVING");
    ExpectRefused("SELECT a FROM t ORDER BY a+1", "+");
    ExpectRefused("SELECT a FROM t WHERE a IN (SELECT b FROM u ORDER BY b)", "ORDER");
}

TEST(TransactSqlGrammar, RefusesAPlusBesideAText) {
    ExpectRefused("SELECT Name + 'x' FROM t", "+");
    ExpectRefused("SELECT 'x' + Name FROM t", "+");
    ExpectRefused("SELECT 1 + a + N'x' FROM t", "+");
    ExpectRefused("SELECT +'x'", "+");
}

TEST(TransactSqlGrammar, RefusesToMixJoinedTextsWithSums) {
    ExpectRefused("SELECT a || b + 1 FROM t", "+");
    ExpectRefused("SELECT a + 1 || b FROM t", "||");
    ExpectUntouched("SELECT a || (b + 1) FROM t");
}

TEST(TransactSqlGrammar, TellsConditionsFromValues) {
    ExpectConditionRefused("a", "a");
    ExpectConditionRefused("a = b = c", "=");
    ExpectConditionRefused("(a = b) = c", "=");
    ExpectConditionRefused("a AND b = 1", "a");
    ExpectConditionRefused("a = 1 AND b", "b");
    ExpectConditionRefused("a = 1 OR 2", "2");
    ExpectConditionRefused("NOT a", "a");
    ExpectConditionRefused("a = (b = 1)", "(");
    ExpectConditionRefused("a IS b", "b");
    ExpectConditionRefused("a NOT b", "b");
    ExpectConditionRefused("EXISTS (1)", "1");
    ExpectConditionRefused("a IN ()", ")");
    ExpectConditionRefused("a IN b", "b");
    ExpectConditionRefused("-(a = 1) = 2", "(");
    ExpectRefused("SELECT a = 1 FROM t", "=");
    ExpectRefused("SELECT (a = 1) FROM t", "(");
    ExpectRefused("UPDATE t SET a = b = 1", "=");
}

TEST(TransactSqlGrammar, RefusesPatternsThatEnginesReadInDifferentWays) {
    ExpectConditionRefused("a LIKE '[ab]%'", "'[ab]%'");
    ExpectConditionRefused("a LIKE N'x[' ", "N'x['");
    ExpectConditionRefused("a LIKE '![!!' + 'x'", "'![!!'");
    ExpectConditionRefused("a LIKE '!![' ESCAPE '!'", "'!!['");
    ExpectConditionRefused("a LIKE 'x' ESCAPE 'ab'", "'ab'");
    ExpectConditionRefused("a LIKE 'x' ESCAPE ''", "''");
    ExpectConditionRefused("a LIKE 'x' ESCAPE ?", "?");
    ExpectConditionRefused("a LIKE b", "b");
    ExpectConditionRefused("a LIKE 'x' || b", "||");
}

TEST(TransactSqlGrammar, RefusesWhatIsNotFinished) {
    ExpectRefused("SELECT 'abc", "'abc");
    ExpectRefused("SELECT N'abc''", "N'abc''");
    ExpectRefused("SELECT \"abc", "\"abc");
    ExpectRefused("SELECT 1e", "1e");
    ExpectRefused("SELECT 12abc", "12a");
    ExpectRefused("SELECT 'a' 'b'", "'b'");
    ExpectRefused("SELECT (1", "(");
    ExpectRefused("SELECT MAX(1", "(");
    ExpectRefused("SELECT 1) + (2", ")");
    ExpectRefused("SELECT 1,", ",");
    ExpectRefused("SELECT", "SELECT");
    ExpectRefused("SELECT a FROM", "FROM");
    ExpectRefused("SELECT a FROM t WHERE", "WHERE");
    ExpectRefused("SELECT a FROM t WHERE b =", "=");
    ExpectRefused("SELECT a FROM t ORDER BY", "BY");
    ExpectRefused("SELECT #a\"b\" FROM t", "#a");
    ExpectRefused("SELECT (1; 2)", "(");
}

TEST(TransactSqlGrammar, RefusesNulInsideAndOutsideOfLiterals) {
    const Error inside = RaisedBy([] { ToSqlite(std::string("SELECT 'a\0b'", 12)); });
    EXPECT_EQ(inside.Number(), 5);
    const Error outside = RaisedBy([] { ToSqlite(std::string("SELECT 1\0, 2", 12)); });
    EXPECT_EQ(outside.Number(), 5);
    EXPECT_EQ(outside.Description().find('\0'), std::string::npos);
}

TEST(TransactSqlGrammar, RefusesToNestWithoutEnd) {
    ExpectUntouched("SELECT " + Nested(30));
    ExpectRefused("SELECT " + Nested(31), "(");
    ExpectRefused("SELECT " + Nested(200000), "(");
    std::string negations, calls;
    for (int i = 0; i < 100000; ++i) {
        negations += "NOT ";
        calls += "ABS(";
    }
    ExpectConditionRefused(negations + "1=1", "NOT");
    ExpectRefused("SELECT " + calls + "1", "(");
}

TEST(TransactSqlGrammar, ALongRefusedPartIsShortenedBetweenCharacters) {
    std::string text = "SELECT 'x";
    for (int i = 0; i < 60; ++i) text += "ä";
    const Error error = RaisedBy([&] { ToSqlite(text); });
    EXPECT_NE(error.Description().find("ä\" is not"), std::string::npos) << error.Description();
}
