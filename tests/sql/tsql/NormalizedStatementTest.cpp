#include "sql/tsql/NormalizedStatement.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

using namespace quellbrook;
using namespace quellbrook::sql;
using namespace quellbrook::testing;

namespace {

using Values = std::vector<std::variant<int64_t, std::string_view>>;

std::string Normalized(const std::string& source) {
    NormalizedStatement statement;
    return NormalizeStatement(source, statement) ? statement.text : "(unchanged)";
}

}  // namespace

TEST(NormalizedStatement, WholeNumbersAndTextsBecomeParameters) {
    NormalizedStatement statement;
    ASSERT_TRUE(NormalizeStatement(
        "UPDATE Property SET HasFinalDisposition=1,DisposalNote='it''s',Other=N'''' WHERE PropertyNo=7", statement));
    EXPECT_EQ(statement.text,
              "UPDATE Property SET HasFinalDisposition=?1,DisposalNote=?2,Other=?3 WHERE PropertyNo=?4");
    EXPECT_EQ(statement.values, (Values{int64_t{1}, "it's", "'", int64_t{7}}));
}

TEST(NormalizedStatement, StatementsThatDifferOnlyInValuesHaveTheSameText) {
    EXPECT_EQ(Normalized("INSERT INTO T (A,B) VALUES (1,N'x')"), Normalized("INSERT INTO T (A,B) VALUES (234,'')"));
}

TEST(NormalizedStatement, AResultCanBeUsedAgain) {
    NormalizedStatement statement;
    ASSERT_TRUE(NormalizeStatement("UPDATE T SET A='it''s' WHERE B=1", statement));
    ASSERT_TRUE(NormalizeStatement("DELETE FROM T WHERE A=5", statement));
    EXPECT_EQ(statement.text, "DELETE FROM T WHERE A=?1");
    EXPECT_EQ(statement.values, Values{int64_t{5}});
    EXPECT_TRUE(statement.unquoted.empty());
}

TEST(NormalizedStatement, AParameterIsSeparateFromWhatFollowsIt) {
    EXPECT_EQ(Normalized("UPDATE T SET A='b'WHERE C='d'AND E=6"), "UPDATE T SET A=?1 WHERE C=?2 AND E=?3");
    EXPECT_EQ(Normalized("INSERT INTO T VALUES ('d'5)"), "INSERT INTO T VALUES (?1 ?2)");
}

TEST(NormalizedStatement, NullFractionsAndLongNumbersStay) {
    EXPECT_EQ(Normalized("INSERT INTO T VALUES (NULL,1.5,2e3,1234567890123456789)"),
              "INSERT INTO T VALUES (NULL,1.5,2e3,1234567890123456789)");
    EXPECT_EQ(Normalized("INSERT INTO T VALUES (123456789012345678)"), "INSERT INTO T VALUES (?1)");
}

TEST(NormalizedStatement, PatternsStay) {
    EXPECT_EQ(Normalized("DELETE FROM T WHERE A LIKE '/0/%' ESCAPE '\\' AND B=3"),
              "DELETE FROM T WHERE A LIKE '/0/%' ESCAPE '\\' AND B=?1");
}

TEST(NormalizedStatement, LiteralsAfterASignStay) {
    EXPECT_EQ(Normalized("UPDATE T SET A=-5 WHERE B=7"), "UPDATE T SET A=-5 WHERE B=?1");
    EXPECT_EQ(Normalized("UPDATE T SET A=A + 'x'"), "UPDATE T SET A=A + 'x'");
}

TEST(NormalizedStatement, TheSequenceNumberOfATransferKeepsItsVariable) {
    EXPECT_EQ(Normalized("DECLARE @x AS INT;SELECT @x = MAX(A)+1 FROM T WHERE B=9 GROUP BY B;UPDATE #U SET V=@x"),
              "DECLARE @x AS INT;SELECT @x = MAX(A)+1 FROM T WHERE B=?1 GROUP BY B;UPDATE #U SET V=@x");
}

TEST(NormalizedStatement, OtherStatementsAreNotNormalized) {
    for (const char* text :
         {"", "  ", "SELECT 1", "CREATE TABLE #a (b INT)", "DROP TABLE #a", "UPDATE T SET A=? WHERE B=1",
          "UPDATE T SET A=?1", "UPDATE T SET A=1;DROP TABLE #a", "5", "'x'", ";UPDATE T SET A=1", "UPDATED T"})
        EXPECT_EQ(Normalized(text), "(unchanged)") << text;
}

TEST(NormalizedStatement, RefusesWhatIsNoToken) {
    for (const std::string& text : {std::string("UPDATE [T] SET A=1"), std::string("UPDATE T SET A='x"),
                                    std::string("UPDATE T SET A=@@x"), std::string("UPDATE T SET A='x\0y'", 21)})
        EXPECT_EQ(RaisedBy([&] { Normalized(text); }).Number(), ErrorNumber::General) << text;
}
