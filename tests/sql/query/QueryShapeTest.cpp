#include "sql/query/QueryShape.h"

#include "tests/support/TestDatabase.h"

#include "host/HostDatabase.h"

#include <gtest/gtest.h>

namespace quellbrook::sql {

using Keys = std::vector<QueryKey>;

TEST(QueryShape, KeysBehindAnEqualsSignBecomeMarkers) {
    const QueryShape shape = FindQueryShape("SELECT a FROM t WHERE b = 4711 AND c=12 AND d = N'it''s' ORDER BY 1");
    EXPECT_EQ(shape.text, "SELECT a FROM t WHERE b = ?1 AND c=?2 AND d = ?3 ORDER BY 1");
    EXPECT_EQ(shape.keys, (Keys{4711, 12, "it's"}));
}

TEST(QueryShape, EveryOtherLiteralStays) {
    const char* const text =
        "SELECT 1 AS x, '=5' FROM t WHERE b > 7 AND c LIKE '9%' AND d <> 'e' AND f = 1.5 AND g = -3 AND h >= 5 AND "
        "i != 6";
    const QueryShape shape = FindQueryShape(text);
    EXPECT_EQ(shape.text, text);
    EXPECT_TRUE(shape.keys.empty());
}

TEST(QueryShape, AKeyThatIsPartOfASumStays) {
    for (const char* text : {"SELECT a FROM t WHERE b = 5 + c", "SELECT a FROM t WHERE b = 'x' + c"})
        EXPECT_EQ(FindQueryShape(text).text, text) << "\"+\" beside a text is refused, as it stands and as a shape";
    EXPECT_EQ(FindQueryShape("SELECT a FROM t WHERE b = 5 - c").text, "SELECT a FROM t WHERE b = ?1 - c");
}

TEST(QueryShape, AMarkerTakesNothingOfWhatFollowsIt) {
    EXPECT_EQ(FindQueryShape("SELECT a FROM t WHERE b='x'5").text, "SELECT a FROM t WHERE b=?1 5");
    EXPECT_EQ(FindQueryShape("SELECT a FROM t WHERE b='x'AND c=1").text, "SELECT a FROM t WHERE b=?1AND c=?2");
}

TEST(QueryShape, QueriesThatDifferInKeysAloneHaveOneShape) {
    EXPECT_EQ(FindQueryShape("SELECT a FROM t WHERE b = 1").text,
              FindQueryShape("SELECT a FROM t WHERE b = 999999").text);
}

TEST(QueryShape, ATextWithMarkersOrAnotherStatementIsItsOwnShape) {
    EXPECT_EQ(FindQueryShape("SELECT a FROM t WHERE b = ? AND c = 5").text, "SELECT a FROM t WHERE b = ? AND c = 5");
    EXPECT_TRUE(FindQueryShape("PRAGMA user_version = 5").keys.empty());
}

TEST(QueryShape, AKeyTooLongForAWholeNumberStays) {
    const char* const text = "SELECT a FROM t WHERE b = 9999999999999999999";
    EXPECT_EQ(FindQueryShape(text).text, text);
}

}  // namespace quellbrook::sql

namespace quellbrook {

TEST(QueryShape, AKeptQueryAnswersForEachKeyAnew) {
    testing::TestDatabase department;
    const int32_t first = department.AddLocation("Aisle", StorageLocationTypes::Internal);
    const int32_t second = department.AddLocation("Bench", StorageLocationTypes::Internal);
    const auto nameOf = [](int32_t id) {
        const auto row = HostDatabase().QueryRow("SELECT Name FROM StorageLocation WHERE IdNo = " + std::to_string(id));
        return row ? ToText(row->Value("Name")) : "nothing";
    };
    EXPECT_EQ(nameOf(first), "Aisle");
    EXPECT_EQ(nameOf(second), "Bench");
    EXPECT_EQ(nameOf(second + 1), "nothing");
    EXPECT_EQ(nameOf(first), "Aisle");
}

}  // namespace quellbrook
