#include "sql/tsql/TransactSqlShape.h"

#include <gtest/gtest.h>

using namespace quellbrook;
using namespace quellbrook::sql;

namespace {

using Values = std::vector<std::variant<int64_t, std::string_view>>;

}  // namespace

TEST(TransactSqlShape, WholeNumbersAndTextsBecomeMarkers) {
    StatementShape shape;
    ASSERT_TRUE(FindShape("UPDATE Property SET HasFinalDisposition=1,DisposalNote='it''s' WHERE PropertyNo=7", shape));
    EXPECT_EQ(shape.text, "UPDATE Property SET HasFinalDisposition=?1,DisposalNote=?2 WHERE PropertyNo=?3");
    EXPECT_EQ(shape.values, (Values{int64_t{1}, "it's", int64_t{7}}));
}

TEST(TransactSqlShape, TextsThatDifferInValuesHaveOneShape) {
    StatementShape first, second;
    ASSERT_TRUE(FindShape("INSERT INTO T (A,B) VALUES (1,N'x')", first));
    ASSERT_TRUE(FindShape("INSERT INTO T (A,B) VALUES (234,'')", second));
    EXPECT_EQ(first.text, second.text);
}

TEST(TransactSqlShape, AMarkerTakesNothingOfWhatFollowsIt) {
    StatementShape shape;
    ASSERT_FALSE(FindShape("INSERT INTO T VALUES (6#t)", shape));
    ASSERT_TRUE(FindShape("INSERT INTO T VALUES ('b'c,'d'5,'a'#t,7 'e')", shape));
    EXPECT_EQ(shape.text, "INSERT INTO T VALUES (?1 c,?2?3,?4 #t,?5 ?6)");
}

TEST(TransactSqlShape, NullStays) {
    StatementShape shape;
    ASSERT_TRUE(FindShape("INSERT INTO T VALUES (NULL,-5)", shape));
    EXPECT_EQ(shape.text, "INSERT INTO T VALUES (NULL,-?1)");
}

TEST(TransactSqlShape, PatternsStay) {
    StatementShape shape;
    ASSERT_TRUE(FindShape("DELETE FROM T WHERE A LIKE '/0/%' ESCAPE '\\' AND B=3", shape));
    EXPECT_EQ(shape.text, "DELETE FROM T WHERE A LIKE '/0/%' ESCAPE '\\' AND B=?1");
}

TEST(TransactSqlShape, NumbersOfASumBecomeMarkers) {
    StatementShape shape;
    ASSERT_TRUE(FindShape("UPDATE T SET A=1 + B + 2 WHERE C='x' AND D=+3", shape));
    EXPECT_EQ(shape.text, "UPDATE T SET A=?1 + B + ?2 WHERE C=?3 AND D=+?4");
}

TEST(TransactSqlShape, ALiteralThatIsANameStays) {
    StatementShape shape;
    ASSERT_TRUE(FindShape("INSERT INTO T (A,B) SELECT 'a', 'b' AS 'odd' FROM U AS V", shape));
    EXPECT_EQ(shape.text, "INSERT INTO T (A,B) SELECT ?1, ?2 AS 'odd' FROM U AS V");
}

TEST(TransactSqlShape, DeclarationsStay) {
    StatementShape shape;
    ASSERT_TRUE(FindShape("DECLARE @x AS NVARCHAR(5);SELECT @x = MAX(A)+1 FROM T WHERE B=9;UPDATE U SET V=@x", shape));
    EXPECT_EQ(shape.text, "DECLARE @x AS NVARCHAR(5);SELECT @x = MAX(A)+?1 FROM T WHERE B=?2;UPDATE U SET V=@x");
}

TEST(TransactSqlShape, SomeTextsAreTakenAsTheyStand) {
    StatementShape shape;
    for (const char* text : {"",
                             "  ",
                             "SELECT 1",
                             "CREATE TABLE #a (b INT)",
                             "DROP TABLE #a",
                             "UPDATE T SET A=? WHERE B=1",
                             "INSERT INTO T SELECT A FROM U ORDER BY 1",
                             "UPDATE T SET A=1;DROP TABLE #a",
                             "UPDATE T SET A=1.5",
                             "UPDATE T SET A=.5",
                             "UPDATE T SET A=2e3",
                             "UPDATE T SET A=1234567890123456789",
                             "UPDATE [T] SET A=1",
                             "UPDATE T SET A=1 -- x",
                             "UPDATE T SET A=1 /* x */",
                             "UPDATE T SET A=X'00'",
                             "UPDATE T SET A='x' 'y'",
                             "UPDATE T SET A='x",
                             "UPDATE T SET A=@@x",
                             "UPDATE ##T SET A=1",
                             "UPDATE \"T\" SET A=1",
                             "UPDATE T SET A=b$c",
                             "UPDATE T SET A=A + 'x'",
                             "UPDATE T SET A='x' + A",
                             "UPDATE T SET A=1 + N'x'",
                             "5",
                             "'x'",
                             ";UPDATE T SET A=1",
                             "UPDATED T"})
        EXPECT_FALSE(FindShape(text, shape)) << text;
    EXPECT_FALSE(FindShape(std::string("UPDATE T SET A='x\0y'", 21), shape));
}

TEST(TransactSqlShape, NationalTextsBecomeMarkersToo) {
    StatementShape shape;
    ASSERT_TRUE(FindShape("UPDATE T SET A=N'it''s',B=n''", shape));
    EXPECT_EQ(shape.text, "UPDATE T SET A=?1,B=?2");
    EXPECT_EQ(shape.values, (Values{"it's", ""}));
}
