#include "host/sql/TransactSqlRewriter.h"

#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

using namespace quellbrook;
using namespace quellbrook::sql;
using namespace quellbrook::testing;

namespace {

using Texts = std::vector<std::string>;

Texts ToSqlite(const std::string& text) { return TranslateTransactSql(text, SqlTarget::Sqlite).statements; }
Texts ToPostgreSql(const std::string& text) { return TranslateTransactSql(text, SqlTarget::PostgreSql).statements; }

void ExpectUntouched(const std::string& text) {
    EXPECT_EQ(ToSqlite(text), Texts{text});
    EXPECT_EQ(ToPostgreSql(text), Texts{text});
}

// Both targets refuse the text with a sentence that quotes the part.
void ExpectRefused(const std::string& text, const std::string& part) {
    for (const SqlTarget target : {SqlTarget::Sqlite, SqlTarget::PostgreSql}) {
        const Error error = RaisedBy([&] { TranslateTransactSql(text, target); });
        EXPECT_EQ(error.Number(), 5) << text;
        EXPECT_NE(error.Description().find("\"" + part + "\""), std::string::npos) << text << ": " << error.Description();
    }
}

const char* const sequenceText =
    "DECLARE @NextSeqNo AS INT;SELECT @NextSeqNo = MAX(SeqNo)+1 FROM PropertyTracking WHERE PropertyNo=7 GROUP BY "
    "PropertyNo;UPDATE #NextSeqNo SET VALUE = COALESCE(@NextSeqNo, 1)";

}  // namespace

TEST(TransactSqlRewriter, PlainStatementsAreHandedOnByteByByte) {
    ExpectUntouched("SELECT * FROM PropertyTracking WHERE PropertyNo = 7 ORDER BY DateReceived DESC, LastUpdated DESC");
    ExpectUntouched("SELECT COUNT(IdNo) AS TotalCount FROM StorageLocation WHERE Path='/0/' AND IdNo <> 0");
    ExpectUntouched("INSERT INTO Setting (Name,Value) VALUES ('a',  NULL)");
    ExpectUntouched("UPDATE StorageLocation SET ActiveFlag = ? WHERE IdNo = ?");
    ExpectUntouched("DELETE FROM StorageLocation WHERE Path LIKE '/0/5/%'");
    ExpectUntouched("SELECT a.\"Name\", 1.5e-3, .5, -2 FROM Setting a LEFT JOIN Setting b ON a.Name != b.Name || 'x'");
    ExpectUntouched("SELECT 'a' + Name FROM Setting");
}

TEST(TransactSqlRewriter, BlanksAroundStatementsAndEmptyStatementsAreDropped) {
    EXPECT_EQ(ToSqlite("  SELECT 1 ;; ; SELECT\n2 ;"), (Texts{"SELECT 1", "SELECT\n2"}));
    EXPECT_EQ(ToSqlite(""), Texts{});
    EXPECT_EQ(ToSqlite(" ; "), Texts{});
}

TEST(TransactSqlRewriter, TemporaryTablesGetQuotedNames) {
    EXPECT_EQ(ToSqlite("CREATE TABLE #NextSeqNo (Value INT NOT NULL)"),
              Texts{"CREATE TEMPORARY TABLE \"#NextSeqNo\" (Value INT NOT NULL)"});
    EXPECT_EQ(ToPostgreSql("CREATE TABLE #NextSeqNo (Value INT NOT NULL)"),
              Texts{"CREATE TEMPORARY TABLE \"#nextseqno\" (Value INT NOT NULL)"});
    EXPECT_EQ(ToSqlite("INSERT INTO #NextSeqNo (Value) VALUES (0)"), Texts{"INSERT INTO \"#NextSeqNo\" (Value) VALUES (0)"});
    EXPECT_EQ(ToPostgreSql("INSERT INTO #nextseqno (Value) VALUES (0)"),
              Texts{"INSERT INTO \"#nextseqno\" (Value) VALUES (0)"});
    EXPECT_EQ(ToSqlite("DROP TABLE #NextSeqNo"), Texts{"DROP TABLE \"#NextSeqNo\""});
    EXPECT_EQ(ToSqlite("UPDATE Property SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE PropertyNo=7"),
              Texts{"UPDATE Property SET CurrTrackSeq=(SELECT Value FROM \"#NextSeqNo\") WHERE PropertyNo=7"});
}

TEST(TransactSqlRewriter, CountsTheTemporaryTablesThatComeAndGo) {
    const TranslatedText text = TranslateTransactSql("CREATE TABLE #a (b INT);CREATE TABLE #c (b INT);DROP TABLE #a",
                                                     SqlTarget::Sqlite);
    EXPECT_EQ(text.createdTables, 2);
    EXPECT_EQ(text.droppedTables, 1);
}

TEST(TransactSqlRewriter, AVariableIsPutInPlaceAsASubSelect) {
    EXPECT_EQ(ToSqlite(sequenceText),
              Texts{"UPDATE \"#NextSeqNo\" SET VALUE = COALESCE((SELECT MAX(SeqNo)+1 FROM PropertyTracking WHERE "
                    "PropertyNo=7 GROUP BY PropertyNo), 1)"});
    EXPECT_EQ(ToPostgreSql(sequenceText),
              Texts{"UPDATE \"#nextseqno\" SET VALUE = COALESCE((SELECT MAX(SeqNo)+1 FROM PropertyTracking WHERE "
                    "PropertyNo=7 GROUP BY PropertyNo), 1)"});
}

TEST(TransactSqlRewriter, VariablesCompareWithoutRegardToCase) {
    EXPECT_EQ(ToSqlite("declare @a int; select @A = count(*) from t; insert into u values (@a, @A)"),
              Texts{"insert into u values ((SELECT count(*) from t), (SELECT count(*) from t))"});
}

TEST(TransactSqlRewriter, AVariableThatWasNeverSetIsNull) {
    EXPECT_EQ(ToSqlite("DECLARE @a NVARCHAR(50);INSERT INTO t VALUES (@a)"), Texts{"INSERT INTO t VALUES (NULL)"});
}

TEST(TransactSqlRewriter, TwoVariablesAreKeptApart) {
    EXPECT_EQ(ToSqlite("DECLARE @a INT;DECLARE @b DECIMAL(5, 2);SELECT @a = MAX(x) FROM t;SELECT @b = MIN(x) FROM t;"
                       "UPDATE u SET c = @b, d = @a"),
              Texts{"UPDATE u SET c = (SELECT MIN(x) FROM t), d = (SELECT MAX(x) FROM t)"});
}

TEST(TransactSqlRewriter, NationalLiteralsLoseTheirMarkAlone) {
    EXPECT_EQ(ToSqlite("SELECT N'it''s', n'x', 'N''y' FROM t"), Texts{"SELECT 'it''s', 'x', 'N''y' FROM t"});
    EXPECT_EQ(ToPostgreSql("UPDATE t SET a=N'ä'"), Texts{"UPDATE t SET a='ä'"});
}

TEST(TransactSqlRewriter, TheInsideOfLiteralsIsNeverChanged) {
    ExpectUntouched("UPDATE t SET a='#NextSeqNo @x TOP [b] GETDATE(); -- DROP TABLE t /* */ {0} N''q''' WHERE b=1");
    ExpectUntouched("UPDATE t SET a='a;b\r\nc\\' WHERE b=''");
    ExpectUntouched("UPDATE t SET a='\xF0\x9F\x9A\x97'");
}

TEST(TransactSqlRewriter, RefusesWhatTheEnginesLack) {
    ExpectRefused("SELECT TOP 5 * FROM Property", "TOP");
    ExpectRefused("SELECT top 5 * FROM Property", "top");
    ExpectRefused("SELECT GETDATE()", "GETDATE");
    ExpectRefused("SELECT ISNULL(a, 1) FROM t", "ISNULL");
    ExpectRefused("SELECT CONVERT(INT, a) FROM t", "CONVERT");
    ExpectRefused("SELECT CAST(a AS DATETIME) FROM t", "CAST");
    ExpectRefused("SELECT LEN(a) FROM t", "LEN");
    ExpectRefused("SELECT CURRENT_TIMESTAMP", "CURRENT_TIMESTAMP");
    ExpectRefused("SELECT @@IDENTITY", "@@IDENTITY");
    ExpectRefused("SELECT [Name] FROM t", "[Name]");
    ExpectRefused("SELECT a[", "[");
    ExpectRefused("EXEC sp_who", "EXEC");
    ExpectRefused("INSERT INTO t EXEC sp_who", "EXEC");
    ExpectRefused("MERGE INTO t USING u ON 1=1", "MERGE");
    ExpectRefused("CREATE TABLE #a (b INT IDENTITY(1,1))", "IDENTITY");
    ExpectRefused("SELECT * FROM t WITH (NOLOCK)", "WITH");
    ExpectRefused("WITH a AS (SELECT 1 b) SELECT * FROM a", "WITH");
    ExpectRefused("SELECT * INTO #a FROM t", "INTO");
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
}

TEST(TransactSqlRewriter, AColumnNamedLikeAFunctionIsNoCall) {
    ExpectUntouched("SELECT t.Day, Month, Left_ FROM t LEFT JOIN u ON t.Year = u.Year");
}

TEST(TransactSqlRewriter, RefusesOtherStatements) {
    ExpectRefused("PRAGMA foreign_keys = OFF", "PRAGMA");
    ExpectRefused("ATTACH 'x' AS y", "ATTACH");
    ExpectRefused("BEGIN TRANSACTION", "BEGIN");
    ExpectRefused("SET NOCOUNT ON", "SET");
    ExpectRefused("CREATE TABLE t (a INT)", "t");
    ExpectRefused("CREATE INDEX i ON t (a)", "INDEX");
    ExpectRefused("DROP TABLE Property", "Property");
    ExpectRefused("DROP TABLE #a, #b", ",");
    ExpectRefused("DROP VIEW v", "VIEW");
    ExpectRefused("(SELECT 1)", "(");
    ExpectRefused("SELECT 1; DROP TABLE Property", "Property");
    ExpectRefused("INSERT OR REPLACE INTO t VALUES (1)", "OR");
    ExpectRefused("INSERT t VALUES (1)", "t");
    ExpectRefused("DELETE t", "t");
    ExpectRefused("UPDATE OR IGNORE t SET a=1", "OR");
    ExpectRefused("UPDATE t SET a=1 FROM u", "FROM");
    ExpectRefused("INSERT", "INSERT");
}

TEST(TransactSqlRewriter, RefusesVariablesThatItCanNotPutInPlace) {
    ExpectRefused("SELECT a FROM t WHERE b=@x", "@x");
    ExpectRefused("SELECT @x = MAX(a) FROM t;UPDATE u SET b=@x", "@x");
    ExpectRefused("DECLARE @x INT;DECLARE @X INT", "@X");
    ExpectRefused("DECLARE @x INT, @y INT", ",");
    ExpectRefused("DECLARE @x INT = 5", "=");
    ExpectRefused("DECLARE x INT", "x");
    ExpectRefused("DECLARE", "DECLARE");
    ExpectRefused("DECLARE @x", "@x");
    ExpectRefused("DECLARE @x NVARCHAR(MAX)", "(");
    ExpectRefused("SET @x = 5", "SET");
    ExpectRefused("DECLARE @x INT;SELECT @x", "@x");
    ExpectRefused("DECLARE @x INT;SELECT @x = 5", "@x");
    ExpectRefused("DECLARE @x INT;SELECT @x = a FROM t;UPDATE u SET b=@x", "@x");
    ExpectRefused("DECLARE @x INT;SELECT @x = MAX(a), b FROM t;UPDATE u SET b=@x", ",");
    ExpectRefused("DECLARE @x INT;DECLARE @y INT;SELECT @x = MAX(a) FROM t;SELECT @y = MAX(b)+@x FROM t", "@x");
}

TEST(TransactSqlRewriter, RefusesAVariableWhoseSelectCouldGiveSeveralRows) {
    const std::string declared = "DECLARE @x INT;SELECT @x = MAX(a) FROM t ";
    ExpectRefused(declared + "GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE c=1 GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE b>1 GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE b=1 OR c=1 GROUP BY b;UPDATE u SET c=@x", "OR");
    ExpectRefused(declared + "WHERE b=1+c GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE NOT b=1 GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE b=1 GROUP BY b, c;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "UNION SELECT 1;UPDATE u SET c=@x", "UNION");
    ExpectRefused(declared + "HAVING 1=1;UPDATE u SET c=@x", "HAVING");
    EXPECT_EQ(ToSqlite(declared + "WHERE c>1 AND b='k' AND d=2 GROUP BY b;UPDATE u SET c=@x"),
              Texts{"UPDATE u SET c=(SELECT MAX(a) FROM t WHERE c>1 AND b='k' AND d=2 GROUP BY b)"});
}

TEST(TransactSqlRewriter, RefusesAVariableUsedWhenItsRowsMayHaveChanged) {
    const std::string assigned = "DECLARE @x INT;SELECT @x = MAX(a) FROM t;";
    ExpectRefused(assigned + "INSERT INTO u VALUES (1);UPDATE v SET c=@x", "@x");
    ExpectRefused(assigned + "UPDATE t SET a=@x", "@x");
    ExpectRefused(assigned + "INSERT INTO \"T\" VALUES (@x)", "@x");
    ExpectRefused(assigned + "DELETE FROM dbo.t WHERE a=@x", "@x");
    ExpectRefused(assigned + "SELECT @x = MAX(b) FROM t", "@x");
}

TEST(TransactSqlRewriter, RefusesWhatIsNotFinished) {
    ExpectRefused("SELECT 'abc", "'abc");
    ExpectRefused("SELECT N'abc''", "N'abc''");
    ExpectRefused("SELECT \"abc", "\"abc");
    ExpectRefused("SELECT 1e", "1e");
    ExpectRefused("SELECT 12abc", "12a");
    ExpectRefused("SELECT 'a' 'b'", "'b'");
    ExpectRefused("SELECT (1", "(");
    ExpectRefused("SELECT 1) + (2", ")");
    ExpectRefused("DECLARE @x INT;SELECT @x = MAX(a)) FROM t;UPDATE u SET b=(@x", ")");
    ExpectRefused("SELECT #a\"b\" FROM t", "\"b\"");
}

TEST(TransactSqlRewriter, RefusesNulInsideAndOutsideOfLiterals) {
    const Error inside = RaisedBy([] { ToSqlite(std::string("SELECT 'a\0b'", 12)); });
    EXPECT_EQ(inside.Number(), 5);
    const Error outside = RaisedBy([] { ToSqlite(std::string("SELECT 1\0, 2", 12)); });
    EXPECT_EQ(outside.Number(), 5);
    EXPECT_EQ(outside.Description().find('\0'), std::string::npos);
}

TEST(TransactSqlRewriter, ALongRefusedPartIsShortenedBetweenCharacters) {
    std::string text = "SELECT 'x";
    for (int i = 0; i < 60; ++i) text += "ä";
    const Error error = RaisedBy([&] { ToSqlite(text); });
    EXPECT_NE(error.Description().find("ä\" is not"), std::string::npos) << error.Description();
}
