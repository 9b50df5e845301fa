#include "tests/sql/tsql/TransactSqlTexts.h"

namespace quellbrook::testing {

namespace {

Texts Folded(const std::string& text, const std::vector<TaggedValue>& parameters = {}) {
    Texts texts;
    for (const sql::RewrittenStatement& statement : sql::RewriteWithoutCase(text, parameters))
        texts.push_back(statement.text);
    return texts;
}

void ExpectUnfolded(const std::string& text, const std::vector<TaggedValue>& parameters = {}) {
    EXPECT_EQ(Folded(text, parameters), Texts{text});
}

TEST(RewriteWithoutCase, PatternsCompareFolded) {
    EXPECT_EQ(
        Folded("SELECT 1 FROM Property p WHERE p.PropertyID LIKE N'P-%' AND p.Description LIKE '%\\_%' ESCAPE '\\'"),
        Texts{"SELECT 1 FROM Property p WHERE LOWER(p.PropertyID COLLATE \"C\") LIKE LOWER('P-%' COLLATE \"C\") "
              "AND LOWER(p.Description COLLATE \"C\") LIKE LOWER('%\\_%' COLLATE \"C\") ESCAPE '\\'"});
    EXPECT_EQ(Folded("SELECT 1 FROM Property WHERE PropertyID LIKE ?", {"P*"}),
              Texts{"SELECT 1 FROM Property WHERE LOWER(PropertyID COLLATE \"C\") LIKE LOWER(? COLLATE \"C\")"});
}

TEST(RewriteWithoutCase, EqualityWithATextComparesFolded) {
    EXPECT_EQ(Folded("UPDATE Account SET PasswordHash = 'A' WHERE Username = 'Ann' AND PersonNo <> 4"),
              Texts{"UPDATE Account SET PasswordHash = 'A' WHERE LOWER(Username COLLATE \"C\") = LOWER('Ann' COLLATE "
                    "\"C\") AND PersonNo <> 4"});
    EXPECT_EQ(Folded("SELECT 1 FROM Setting WHERE Name IN ('a', 'B')"),
              Texts{"SELECT 1 FROM Setting WHERE LOWER(Name COLLATE \"C\") IN (LOWER('a' COLLATE \"C\"), "
                    "LOWER('B' COLLATE \"C\"))"});
}

TEST(RewriteWithoutCase, AMarkerForATextCountsAsText) {
    EXPECT_EQ(Folded("SELECT 1 FROM Account WHERE PersonNo = ? AND Username = ? AND IsActive = ?", {7, "ann", true}),
              Texts{"SELECT 1 FROM Account WHERE PersonNo = ? AND LOWER(Username COLLATE \"C\") = LOWER(? COLLATE "
                    "\"C\") AND IsActive = ?"});
}

TEST(RewriteWithoutCase, JoinedTextsAreFoldedAsAWhole) {
    EXPECT_EQ(Folded("SELECT 1 FROM t WHERE a || b || '/' = 'x'"),
              Texts{"SELECT 1 FROM t WHERE LOWER((a || b || '/') COLLATE \"C\") = LOWER('x' COLLATE \"C\")"});
}

TEST(RewriteWithoutCase, ConditionsOfInnerQueriesAreFoldedToo) {
    EXPECT_EQ(Folded("DELETE FROM t WHERE No IN (SELECT No FROM i WHERE Id LIKE 'A%') AND COALESCE(Name, '') = 'x'"),
              Texts{"DELETE FROM t WHERE No IN (SELECT No FROM i WHERE LOWER(Id COLLATE \"C\") LIKE LOWER('A%' COLLATE "
                    "\"C\")) AND LOWER(COALESCE(Name, '') COLLATE \"C\") = LOWER('x' COLLATE \"C\")"});
}

TEST(RewriteWithoutCase, NumbersDatesAndColumnsStayAsTheyAre) {
    ExpectUnfolded("SELECT a FROM t INNER JOIN u ON t.No = u.No WHERE t.No = 5 AND u.No IN (1, ?) AND x IS NULL", {3});
    ExpectUnfolded("UPDATE t SET Name = 'Box' WHERE LastUpdated = '2026-11-20T13:14:15.123'");
    ExpectUnfolded("INSERT INTO t (Name, Place) VALUES ('Box', ?)", {"x"});
    EXPECT_NE(Folded("SELECT 1 FROM t WHERE Name = '2026-11-20'"), Texts{"SELECT 1 FROM t WHERE Name = '2026-11-20'"});
}

TEST(RewriteWithoutCase, VariablesAndTemporaryTablesAreRewrittenAsForSqlite) {
    EXPECT_EQ(Folded("CREATE TABLE #n (Value INT NOT NULL);DECLARE @n AS INT;SELECT @n = MAX(SeqNo)+1 FROM t WHERE "
                     "No=7 GROUP BY No;UPDATE #n SET VALUE = COALESCE(@n, 1)"),
              (Texts{"CREATE TEMPORARY TABLE \"#n\" (Value INT NOT NULL)",
                     "UPDATE \"#n\" SET VALUE = COALESCE((SELECT MAX(SeqNo)+1 FROM t WHERE No=7), 1)"}));
}

}  // namespace

}  // namespace quellbrook::testing
