#include "tests/sql/tsql/TransactSqlTexts.h"

using namespace quellbrook;
using namespace quellbrook::sql;
using namespace quellbrook::testing;

namespace {

// A statement, what it is for SQLite, and what for PostgreSQL.
struct Translation {
    std::string source;
    Texts sqlite;
    Texts postgreSql;
};

void ExpectTranslations(const std::vector<Translation>& translations) {
    for (const Translation& expected : translations) {
        EXPECT_EQ(ToSqlite(expected.source), expected.sqlite);
        EXPECT_EQ(ToPostgreSql(expected.source), expected.postgreSql);
    }
}

Translation Same(const std::string& text) { return {text, {text}, {text}}; }

}  // namespace

TEST(TransactSqlRewriter, TheStatementsOfATransfer) {
    ExpectTranslations({
        {"CREATE TABLE #NextSeqNo (Value INT NOT NULL)",
         {"CREATE TEMPORARY TABLE \"#NextSeqNo\" (Value INT NOT NULL)"},
         {"CREATE TEMPORARY TABLE \"#nextseqno\" (Value INT NOT NULL)"}},
        {"INSERT INTO #NextSeqNo (Value) VALUES (0)",
         {"INSERT INTO \"#NextSeqNo\" (Value) VALUES (0)"},
         {"INSERT INTO \"#nextseqno\" (Value) VALUES (0)"}},
        {"DECLARE @NextSeqNo AS INT;SELECT @NextSeqNo = MAX(SeqNo)+1 FROM PropertyTracking WHERE PropertyNo=7 GROUP BY "
         "PropertyNo;UPDATE #NextSeqNo SET VALUE = COALESCE(@NextSeqNo, 1)",
         {"UPDATE \"#NextSeqNo\" SET VALUE = COALESCE((SELECT MAX(SeqNo)+1 FROM PropertyTracking WHERE PropertyNo=7), "
          "1)"},
         {"UPDATE \"#nextseqno\" SET VALUE = COALESCE((SELECT MAX(SeqNo)+1 FROM PropertyTracking WHERE PropertyNo=7 "
          "GROUP BY PropertyNo), 1)"}},
        {"INSERT INTO PropertyTracking (PropertyNo,SeqNo,ReceivedBy,DateReceived) VALUES (7,(SELECT Value FROM "
         "#NextSeqNo),NULL,'2026-11-20T13:14:15.123')",
         {"INSERT INTO PropertyTracking (PropertyNo,SeqNo,ReceivedBy,DateReceived) VALUES (7,(SELECT Value FROM "
          "\"#NextSeqNo\"),NULL,'2026-11-20T13:14:15.123')"},
         {"INSERT INTO PropertyTracking (PropertyNo,SeqNo,ReceivedBy,DateReceived) VALUES (7,(SELECT Value FROM "
          "\"#nextseqno\"),NULL,'2026-11-20T13:14:15.123')"}},
        {"UPDATE Property SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE PropertyNo=7",
         {"UPDATE Property SET CurrTrackSeq=(SELECT Value FROM \"#NextSeqNo\") WHERE PropertyNo=7"},
         {"UPDATE Property SET CurrTrackSeq=(SELECT Value FROM \"#nextseqno\") WHERE PropertyNo=7"}},
        {"UPDATE Property SET HasFinalDisposition=1,DisposalNote=N'it''s',CurrStatusNo=4 WHERE PropertyNo=7",
         {"UPDATE Property SET HasFinalDisposition=1,DisposalNote='it''s',CurrStatusNo=4 WHERE PropertyNo=7"},
         {"UPDATE Property SET HasFinalDisposition=1,DisposalNote='it''s',CurrStatusNo=4 WHERE PropertyNo=7"}},
        {"DROP TABLE #NextSeqNo", {"DROP TABLE \"#NextSeqNo\""}, {"DROP TABLE \"#nextseqno\""}},
    });
}

TEST(TransactSqlRewriter, TheStatementsAboutLocations) {
    ExpectTranslations({
        Same("UPDATE StorageLocation SET Type = 2, Path = REPLACE(Path, '/0/5/', '/0/7/5/') WHERE Path LIKE '/0/5/%'"),
        Same("UPDATE StorageLocation SET Type = 2, Path = '/0/7/' WHERE IdNo = 5"),
        Same("UPDATE StorageLocation SET ActiveFlag = ? WHERE IdNo = ?"),
        Same("UPDATE StorageLocation SET Name = 'Room \"5\"', LastUpdated = '2026-11-20T13:14:15.123' WHERE IdNo = 5"),
        Same("DELETE FROM StorageLocation WHERE Path LIKE '/0/5/%'"),
        Same("DELETE FROM StorageLocation WHERE IdNo = 5"),
        Same("INSERT INTO StorageLocation (Name,Type,Path) VALUES (?,?,?)"),
        Same("SELECT COUNT(IdNo) AS TotalCount FROM StorageLocation WHERE Path='/0/' AND IdNo <> 0"),
        {"SELECT * FROM StorageLocation ORDER BY Name, IdNo",
         {"SELECT * FROM StorageLocation ORDER BY Name, IdNo"},
         {"SELECT * FROM StorageLocation ORDER BY Name NULLS FIRST, IdNo NULLS FIRST"}},
    });
}

TEST(TransactSqlRewriter, TheQueriesAboutItems) {
    ExpectTranslations({
        {"SELECT * FROM PropertyTracking WHERE PropertyNo = 7 ORDER BY DateReceived DESC, LastUpdated DESC",
         {"SELECT * FROM PropertyTracking WHERE PropertyNo = 7 ORDER BY DateReceived DESC, LastUpdated DESC"},
         {"SELECT * FROM PropertyTracking WHERE PropertyNo = 7 ORDER BY DateReceived DESC NULLS LAST, LastUpdated DESC "
          "NULLS LAST"}},
        Same("SELECT COUNT(ID) AS ResultCount FROM (SELECT DISTINCT 1 AS ItemType, Property.PropertyNo AS ID "
             "FROM Property LEFT JOIN PropertyTracking ON PropertyTracking.PropertyNo = Property.PropertyNo AND "
             "Property.CurrTrackSeq = PropertyTracking.SeqNo WHERE Property.PropertyNo IN (SELECT "
             "IncdProperty.PropertyNo FROM Incident CROSS JOIN IncdProperty WHERE Incident.IncidentNo = "
             "IncdProperty.IncidentNo AND Incident.IncidentId LIKE 'I\\_1%' ESCAPE '\\') AND "
             "+PropertyTracking.StorageLocNo = 5) QueryResult"),
        Same("SELECT 2 AS ItemType, (COALESCE(v.RegNumber, '[No Tag Number]') || ' (' || v.RegStateCode || ')') AS "
             "DisplayID, 1 AS Quantity, NULL AS Value FROM vwVehicleDisplayInfo AS v"),
    });
}

TEST(TransactSqlRewriter, BlanksAroundStatementsAndEmptyStatementsAreDropped) {
    EXPECT_EQ(ToSqlite("  SELECT 1 ;; ; SELECT\n2 ;"), (Texts{"SELECT 1", "SELECT\n2"}));
    EXPECT_EQ(ToSqlite(""), Texts{});
    EXPECT_EQ(ToSqlite(" ; "), Texts{});
}

TEST(TransactSqlRewriter, CountsTheTemporaryTablesThatComeAndGo) {
    const TranslatedText text =
        TranslateTransactSql("CREATE TABLE #a (b INT);CREATE TABLE #c (b INT);DROP TABLE #a", SqlTarget::Sqlite);
    EXPECT_EQ(text.createdTables, 2);
    EXPECT_EQ(text.droppedTables, 1);
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

TEST(TransactSqlRewriter, RefusesVariablesThatItCanNotPutInPlace) {
    ExpectRefused("SELECT a FROM t WHERE b=@x", "@x");
    ExpectRefused("SELECT @x = MAX(a) FROM t;UPDATE u SET b=@x", "@x");
    ExpectRefused("DECLARE @x INT;DECLARE @X INT", "@X");
    ExpectRefused("DECLARE @x INT, @y INT", ",");
    ExpectRefused("DECLARE @x INT = 5", "=");
    ExpectRefused("DECLARE x INT", "x");
    ExpectRefused("DECLARE", "DECLARE");
    ExpectRefused("DECLARE @x", "@x");
    ExpectRefused("DECLARE @x NVARCHAR(MAX)", "MAX");
    ExpectRefused("DECLARE @x DECIMAL(5, 2, 1)", ",");
    ExpectRefused("SET @x = 5", "SET");
    ExpectRefused("DECLARE @x INT;SELECT @x", "@x");
    ExpectRefused("DECLARE @x INT;SELECT @x = 5", "@x");
    ExpectRefused("DECLARE @x INT;SELECT @x = a FROM t;UPDATE u SET b=@x", "@x");
    ExpectRefused("DECLARE @x INT;SELECT @x = MAX(a), b FROM t;UPDATE u SET b=@x", ",");
    ExpectRefused("DECLARE @x INT;SELECT @x = (SELECT MAX(a) FROM u) FROM t;UPDATE v SET b=@x", "@x");
    ExpectRefused("DECLARE @x INT;SELECT @x = COALESCE(MAX(a), 1) FROM t;UPDATE v SET b=@x", "@x");
    ExpectRefused("DECLARE @x INT;DECLARE @y INT;SELECT @x = MAX(a) FROM t;SELECT @y = MAX(b)+@x FROM t", "@x");
    ExpectRefused("DECLARE @x INT;SELECT @x = MAX(a)) FROM t;UPDATE u SET b=(@x", ")");
}

TEST(TransactSqlRewriter, RefusesAVariableWhoseSelectCouldGiveSeveralRows) {
    const std::string declared = "DECLARE @x INT;SELECT @x = MAX(a) FROM t ";
    ExpectRefused(declared + "GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE c=1 GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE b>1 GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE b=1 OR c=1 GROUP BY b;UPDATE u SET c=@x", "OR");
    ExpectRefused(declared + "WHERE b=1+c GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE NOT b=1 GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE b=1 GROUP BY b, c;UPDATE u SET c=@x", ",");
    ExpectRefused(declared + "UNION SELECT 1;UPDATE u SET c=@x", "UNION");
    ExpectRefused(declared + "HAVING 1=1;UPDATE u SET c=@x", "HAVING");
    EXPECT_EQ(ToSqlite(declared + "WHERE c>1 AND b='k' AND d=2 GROUP BY b;UPDATE u SET c=@x"),
              Texts{"UPDATE u SET c=(SELECT MAX(a) FROM t WHERE c>1 AND b='k' AND d=2)"});
}

TEST(TransactSqlRewriter, KeepsTheGroupingOfAnAssignmentThatWouldHaveAValueWithoutRows) {
    const std::string counted = "FROM t WHERE b=1 GROUP BY b";
    EXPECT_EQ(ToSqlite("DECLARE @x INT;SELECT @x = COUNT(a) " + counted + ";UPDATE u SET c=@x"),
              Texts{"UPDATE u SET c=(SELECT COUNT(a) " + counted + ")"});
    EXPECT_EQ(ToSqlite("DECLARE @x INT;SELECT @x = MAX(a)+COUNT(a) " + counted + ";UPDATE u SET c=@x"),
              Texts{"UPDATE u SET c=(SELECT MAX(a)+COUNT(a) " + counted + ")"});
}

TEST(TransactSqlRewriter, RefusesAVariableUsedWhenItsRowsMayHaveChanged) {
    const std::string assigned = "DECLARE @x INT;SELECT @x = MAX(a) FROM t;";
    ExpectRefused(assigned + "INSERT INTO u VALUES (1);UPDATE v SET c=@x", "@x");
    ExpectRefused(assigned + "UPDATE t SET a=@x", "@x");
    ExpectRefused(assigned + "INSERT INTO \"T\" VALUES (@x)", "@x");
    ExpectRefused(assigned + "DELETE FROM t WHERE a=@x", "@x");
    ExpectRefused(assigned + "SELECT @x = MAX(b) FROM t", "@x");
}

TEST(TransactSqlRewriter, TheMarkersOfAVariablesSelectAreNumbered) {
    ExpectRefused("DECLARE @x INT;SELECT @x = MAX(a) FROM t WHERE b=?;UPDATE u SET c=?, d=@x", "?");
    EXPECT_EQ(ToSqlite("DECLARE @x INT;SELECT @x = MAX(a) FROM t WHERE b=?1;UPDATE u SET c=?2, d=@x"),
              Texts{"UPDATE u SET c=?2, d=(SELECT MAX(a) FROM t WHERE b=?1)"});
}

TEST(TransactSqlRewriter, ABackslashInAPatternIsNoEscapeSignForPostgreSql) {
    ExpectTranslations({
        {"SELECT a FROM t WHERE b LIKE '\\x%'",
         {"SELECT a FROM t WHERE b LIKE '\\x%'"},
         {"SELECT a FROM t WHERE b LIKE '\\x%' ESCAPE ''"}},
        Same("SELECT a FROM t WHERE b LIKE '\\x!%' ESCAPE '!'"),
        Same("SELECT a FROM t WHERE b LIKE 'x%' AND c = '\\'"),
    });
}

TEST(TransactSqlRewriter, OperatorsThatTouchAreSetApartForPostgreSql) {
    ExpectTranslations({
        {"SELECT a%-b, a*-1, a||-b FROM t WHERE c!=-1 AND d=-2",
         {"SELECT a%-b, a*-1, a||-b FROM t WHERE c!=-1 AND d=-2"},
         {"SELECT a% -b, a* -1, a|| -b FROM t WHERE c!= -1 AND d= -2"}},
        Same("SELECT COUNT(*), -1, (-2), t.* FROM t WHERE c<> +1.5-2"),
    });
}

TEST(TransactSqlRewriter, ALiteralAsANameIsNoneForPostgreSql) {
    const std::string text = "SELECT 'a', 'b' AS 'odd'";
    EXPECT_EQ(ToSqlite(text), Texts{text});
    const Error error = RaisedBy([&] { ToPostgreSql(text); });
    EXPECT_NE(error.Description().find("\"'odd'\""), std::string::npos) << error.Description();
}

TEST(TransactSqlRewriter, NullSortsBelowAllElse) {
    EXPECT_EQ(ToPostgreSql("SELECT a, b FROM t ORDER BY a ASC, t.b DESC, 1"),
              Texts{"SELECT a, b FROM t ORDER BY a ASC NULLS FIRST, t.b DESC NULLS LAST, 1 NULLS FIRST"});
}
