#include "tests/sql/tsql/TransactSqlTexts.h"

using namespace quellbrook;
using namespace quellbrook::sql;
using namespace quellbrook::testing;

TEST(TransactSqlRewriter, RewritesTheStatementsOfATransfer) {
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"CREATE TABLE #NextSeqNo (Value INT NOT NULL)", "CREATE TEMPORARY TABLE \"#NextSeqNo\" (Value INT NOT NULL)"},
        {"INSERT INTO #NextSeqNo (Value) VALUES (0)", "INSERT INTO \"#NextSeqNo\" (Value) VALUES (0)"},
        {"DECLARE @NextSeqNo AS INT;SELECT @NextSeqNo = MAX(SeqNo)+1 FROM PropertyTracking WHERE PropertyNo=7 GROUP BY "
         "PropertyNo;UPDATE #NextSeqNo SET VALUE = COALESCE(@NextSeqNo, 1)",
         "UPDATE \"#NextSeqNo\" SET VALUE = COALESCE((SELECT MAX(SeqNo)+1 FROM PropertyTracking WHERE PropertyNo=7), "
         "1)"},
        {"INSERT INTO PropertyTracking (PropertyNo,SeqNo,ReceivedBy,DateReceived) VALUES (7,(SELECT Value FROM "
         "#NextSeqNo),NULL,'2026-11-20T13:14:15.123')",
         "INSERT INTO PropertyTracking (PropertyNo,SeqNo,ReceivedBy,DateReceived) VALUES (7,(SELECT Value FROM "
         "\"#NextSeqNo\"),NULL,'2026-11-20T13:14:15.123')"},
        {"UPDATE Property SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE PropertyNo=7",
         "UPDATE Property SET CurrTrackSeq=(SELECT Value FROM \"#NextSeqNo\") WHERE PropertyNo=7"},
        {"UPDATE Property SET HasFinalDisposition=1,DisposalNote=N'it''s',CurrStatusNo=4 WHERE PropertyNo=7",
         "UPDATE Property SET HasFinalDisposition=1,DisposalNote='it''s',CurrStatusNo=4 WHERE PropertyNo=7"},
        {"DROP TABLE #NextSeqNo", "DROP TABLE \"#NextSeqNo\""},
    };
    for (const auto& [source, text] : expected) EXPECT_EQ(Rewritten(source), Texts{text});
}

TEST(TransactSqlRewriter, LeavesTheStatementsForLocations) {
    for (const char* text :
         {"UPDATE StorageLocation SET Type = 2, Path = REPLACE(Path, '/0/5/', '/0/7/5/') WHERE Path LIKE '/0/5/%'",
          "UPDATE StorageLocation SET Type = 2, Path = '/0/7/' WHERE IdNo = 5",
          "UPDATE StorageLocation SET ActiveFlag = ? WHERE IdNo = ?",
          "UPDATE StorageLocation SET Name = 'Room \"5\"', LastUpdated = '2026-11-20T13:14:15.123' WHERE IdNo = 5",
          "DELETE FROM StorageLocation WHERE Path LIKE '/0/5/%'", "DELETE FROM StorageLocation WHERE IdNo = 5",
          "INSERT INTO StorageLocation (Name,Type,Path) VALUES (?,?,?)", "INSERT INTO StorageLocation DEFAULT VALUES",
          "SELECT COUNT(IdNo) AS TotalCount FROM StorageLocation WHERE Path='/0/' AND IdNo <> 0",
          "SELECT * FROM StorageLocation ORDER BY Name, IdNo"})
        ExpectUntouched(text);
}

TEST(TransactSqlRewriter, LeavesTheQueriesForItems) {
    ExpectUntouched("SELECT * FROM PropertyTracking WHERE PropertyNo = 7 ORDER BY DateReceived DESC, LastUpdated DESC");
    ExpectUntouched(
        "SELECT COUNT(ID) AS ResultCount FROM (SELECT DISTINCT 1 AS ItemType, Property.PropertyNo AS ID "
        "FROM Property LEFT JOIN PropertyTracking ON PropertyTracking.PropertyNo = Property.PropertyNo AND "
        "Property.CurrTrackSeq = PropertyTracking.SeqNo WHERE Property.PropertyNo IN (SELECT "
        "IncdProperty.PropertyNo FROM Incident CROSS JOIN IncdProperty WHERE Incident.IncidentNo = "
        "IncdProperty.IncidentNo AND Incident.IncidentId LIKE 'I\\_1%' ESCAPE '\\') AND "
        "+PropertyTracking.StorageLocNo = ?) QueryResult");
    ExpectUntouched(
        "SELECT 2 AS ItemType, (COALESCE(v.RegNumber, '[No Tag Number]') || ' (' || v.RegStateCode || ')') AS "
        "DisplayID, 1 AS Quantity, NULL AS Value FROM vwVehicleDisplayInfo AS v");
}

TEST(TransactSqlRewriter, LeavesTheQueriesOfTheHost) {
    for (const char* text :
         {"SELECT name FROM sqlite_schema",
          "SELECT Username, PasswordHash FROM Account WHERE Username = 'x' AND IsActive = 1",
          "SELECT r.Value FROM AccountRight r INNER JOIN Account a ON a.Username = r.Username WHERE "
          "a.Username = 'x' AND a.IsActive = 1 AND r.ModuleKey = 'Storage' AND r.Value = 5",
          "SELECT PersonNo, LastName, FirstName, Title FROM Person WHERE IsActive = 1",
          "SELECT Code, Name, Description FROM CodeTable WHERE TableNumber = 38 AND IsActive = 1",
          "SELECT f.Path, i.FileName FROM AttachmentIndex i INNER JOIN AttachmentFolder f ON "
          "f.FolderNo = i.FolderNo WHERE i.IdNo = 7 AND i.ObjTypeInd = 6 AND i.SeqNo = 1",
          "SELECT DISTINCT i.IncidentId, i.CaseNbr, i.IsSecured, i.IncidentNo FROM IncdProperty l INNER JOIN "
          "Incident i ON i.IncidentNo = l.IncidentNo WHERE l.PropertyNo = 7 AND i.IsSecured = 0 ORDER BY "
          "i.IncidentId, i.IncidentNo",
          "SELECT PropertyNo AS ItemNo, MAX(SeqNo) AS SeqNo FROM PropertyTracking GROUP BY PropertyNo",
          "SELECT COUNT(*) AS N FROM (SELECT t.StorageLocNo FROM Property i INNER JOIN PropertyTracking t ON "
          "t.PropertyNo = i.PropertyNo WHERE i.PropertyID IN ('a', 'b') UNION ALL SELECT t.StorageLocNo FROM "
          "Vehicle i) AS b INNER JOIN StorageLocation s ON s.IdNo = b.StorageLocNo WHERE s.Name = 'Row 2'"})
        ExpectUntouched(text);
}

TEST(TransactSqlRewriter, SplitsStatementsAtSemicolons) {
    EXPECT_EQ(Rewritten("  SELECT 1 ;; ; SELECT\n2 ;"), (Texts{"SELECT 1", "SELECT\n2"}));
    EXPECT_EQ(Rewritten(""), Texts{});
    EXPECT_EQ(Rewritten(" ; "), Texts{});
}

TEST(TransactSqlRewriter, EachStatementNamesItsTemporaryTables) {
    const auto statements = RewriteTransactSql(
        "CREATE TABLE #A (Value INT);SELECT 1 FROM #a INNER JOIN #B ON 1=1 WHERE Name = '#C';"
        "DECLARE @x INT;SELECT @x = MAX(Value) FROM #D WHERE Value=1 GROUP BY Value;UPDATE Setting SET Value=@x");
    std::vector<std::vector<std::string>> names;
    for (const RewrittenStatement& statement : statements) names.push_back(statement.temporaryTables);
    EXPECT_EQ(names, (std::vector<std::vector<std::string>>{{"\"#A\""}, {"\"#a\"", "\"#B\""}, {"\"#D\""}}));
}

TEST(TransactSqlRewriter, ReportsTheKindOfEachStatement) {
    const auto statements = RewriteTransactSql(
        "CREATE TABLE #a (b INT);DROP TABLE #a;SELECT 1;INSERT INTO t VALUES (1);UPDATE t SET a=1;DELETE FROM t");
    std::vector<StatementKind> kinds;
    for (const RewrittenStatement& statement : statements) kinds.push_back(statement.kind);
    using Kind = StatementKind;
    EXPECT_EQ(kinds, (std::vector<Kind>{Kind::Creation, Kind::Removal, Kind::Query, Kind::Change, Kind::Change,
                                        Kind::Change}));
}

TEST(TransactSqlRewriter, VariablesAreCaseInsensitive) {
    EXPECT_EQ(
        Rewritten("declare @a int; select @A = max(b) from t where c=1 group by C; insert into u values (@a, @A)"),
        Texts{"insert into u values ((SELECT max(b) from t where c=1), (SELECT max(b) from t where c=1))"});
}

TEST(TransactSqlRewriter, AVariableThatWasNeverSetIsNull) {
    EXPECT_EQ(Rewritten("DECLARE @a INT;INSERT INTO t VALUES (@a)"), Texts{"INSERT INTO t VALUES (NULL)"});
}

TEST(TransactSqlRewriter, KeepsTwoVariablesApart) {
    EXPECT_EQ(
        Rewritten("DECLARE @a INT;DECLARE @b AS INT;SELECT @a = MAX(x) FROM t WHERE k=1 GROUP BY k;"
                  "SELECT @b = MAX(y)+2 FROM #t WHERE k='a' GROUP BY k;UPDATE u SET c = @b, d = @a"),
        Texts{"UPDATE u SET c = (SELECT MAX(y)+2 FROM \"#t\" WHERE k='a'), d = (SELECT MAX(x) FROM t WHERE k=1)"});
}

TEST(TransactSqlRewriter, OnlyThePrefixOfANationalLiteralIsRemoved) {
    EXPECT_EQ(Rewritten("SELECT N'it''s', n'x', 'N''y' FROM t"), Texts{"SELECT 'it''s', 'x', 'N''y' FROM t"});
}

TEST(TransactSqlRewriter, NeverChangesTheInsideOfLiterals) {
    ExpectUntouched("UPDATE t SET a='#NextSeqNo @x TOP [b] GETDATE(); -- DROP TABLE t /* */ {0} N''q''' WHERE b=1");
    ExpectUntouched("UPDATE t SET a='a;b\r\nc\\' WHERE b=''");
    ExpectUntouched("UPDATE t SET a='\xF0\x9F\x9A\x97'");
}

TEST(TransactSqlRewriter, RefusesVariablesThatItCannotReplace) {
    const std::string rest = " FROM t WHERE k=1 GROUP BY k;UPDATE u SET b=@x";
    ExpectRefused("SELECT a FROM t WHERE b=@x", "@x");
    ExpectRefused("SELECT @x = MAX(a)" + rest, "@x");
    ExpectRefused("DECLARE @x INT;DECLARE @X INT", "@X");
    ExpectRefused("DECLARE @x INT, @y INT", ",");
    ExpectRefused("DECLARE @x INT = 5", "=");
    ExpectRefused("DECLARE x INT", "x");
    ExpectRefused("DECLARE", "DECLARE");
    ExpectRefused("DECLARE @x", "@x");
    ExpectRefused("DECLARE @x NVARCHAR(50)", "NVARCHAR");
    ExpectRefused("SET @x = 5", "SET");
    ExpectRefused("DECLARE @x INT;SELECT @x", "@x");
    ExpectRefused("DECLARE @x INT;SELECT @x = 5", "5");
    ExpectRefused("DECLARE @x INT;SELECT @x = a" + rest, "a");
    ExpectRefused("DECLARE @x INT;SELECT @x = COUNT(a)" + rest, "COUNT");
    ExpectRefused("DECLARE @x INT;SELECT @x = MAX(a), b" + rest, ",");
    ExpectRefused("DECLARE @x INT;SELECT @x = MAX(a)+'1'" + rest, "'1'");
    ExpectRefused("DECLARE @x INT;SELECT @x = MAX(a))" + rest, ")");
    ExpectRefused("DECLARE @x INT;SELECT @x = MAX(a) FROM t WHERE k=@x GROUP BY k", "@x");
}

TEST(TransactSqlRewriter, RefusesAVariableWhoseSelectCouldReturnSeveralRows) {
    const std::string declared = "DECLARE @x INT;SELECT @x = MAX(a) FROM t ";
    ExpectRefused(declared + "GROUP BY b;UPDATE u SET c=@x", "GROUP");
    ExpectRefused(declared + "WHERE c=1 GROUP BY b;UPDATE u SET c=@x", "b");
    ExpectRefused(declared + "WHERE b<>1 GROUP BY b;UPDATE u SET c=@x", "<>");
    ExpectRefused(declared + "WHERE b=1 OR c=1 GROUP BY b;UPDATE u SET c=@x", "OR");
    ExpectRefused(declared + "WHERE b=1 GROUP BY b, c;UPDATE u SET c=@x", ",");
    ExpectRefused(declared + "UNION SELECT 1;UPDATE u SET c=@x", "UNION");
}

TEST(TransactSqlRewriter, RefusesAVariableWhoseRowsMayHaveChangedBeforeItsUse) {
    const std::string assigned = "DECLARE @x INT;SELECT @x = MAX(a) FROM t WHERE b=1 GROUP BY b;";
    ExpectRefused(assigned + "INSERT INTO u VALUES (1);UPDATE v SET c=@x", "@x");
    ExpectRefused(assigned + "UPDATE t SET a=@x", "@x");
    ExpectRefused(assigned + "INSERT INTO T VALUES (@x)", "@x");
    ExpectRefused(assigned + "DELETE FROM t WHERE a=@x", "@x");
    ExpectRefused(assigned + "SELECT @x = MAX(b) FROM t WHERE b=1 GROUP BY b", "@x");
}

TEST(TransactSqlRewriter, ParametersInTheSelectOfAVariableAreNumbered) {
    ExpectRefused("DECLARE @x INT;SELECT @x = MAX(a) FROM t WHERE b=? GROUP BY b;UPDATE u SET c=?, d=@x", "?");
    EXPECT_EQ(Rewritten("DECLARE @x INT;SELECT @x = MAX(a) FROM t WHERE b=?1 GROUP BY b;UPDATE u SET c=?2, d=@x"),
              Texts{"UPDATE u SET c=?2, d=(SELECT MAX(a) FROM t WHERE b=?1)"});
}
