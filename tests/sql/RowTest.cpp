#include "sql/Row.h"

#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

using namespace quellbrook;
using namespace quellbrook::testing;

TEST(Row, FindsColumnsWithoutRegardToCase) {
    const Row row = Row::Of({{"PropertyNo", 7}, {"Description", "bicycle"}});
    EXPECT_EQ(row.Value("propertyno"), TaggedValue(7));
    EXPECT_EQ(row.Value("DESCRIPTION"), TaggedValue("bicycle"));
    EXPECT_TRUE(row.Has("Description"));
    EXPECT_TRUE(row.Has("PropertyNo"));
    EXPECT_FALSE(row.Has("Descriptio"));
}

TEST(Row, OfTwoColumnsWithOneNameTheFirstCounts) {
    const Row row = Row::Of({{"Path", "a"}, {"PATH", "b"}});
    EXPECT_EQ(row.Value("path"), TaggedValue("a"));
    EXPECT_EQ(row.At(1), TaggedValue("b"));
}

TEST(Row, AnAbsentColumnIsNamedInTheFailure) {
    const Row row = Row::Of({{"A", 1}});
    const Error error = RaisedBy([&] { row.Value("Quantity"); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "The result has no column 'Quantity'.");
}

TEST(ColumnSet, GivesPositions) {
    const ColumnSet columns({"A", "B"});
    EXPECT_EQ(columns.Find("b"), 1);
    EXPECT_EQ(columns.Find("c"), -1);
    EXPECT_EQ(columns.Find(""), -1);
}
