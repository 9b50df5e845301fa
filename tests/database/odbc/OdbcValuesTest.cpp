#include "database/odbc/OdbcValues.h"

#include <gtest/gtest.h>

#include <set>

namespace quellbrook {
namespace {

TEST(NumberFromText, WholeNumbersAreIntegers) {
    EXPECT_EQ(NumberFromText("12"), TaggedValue(12));
    EXPECT_EQ(NumberFromText("-12.000"), TaggedValue(-12));
    EXPECT_EQ(NumberFromText("0.00"), TaggedValue(0));
    EXPECT_EQ(NumberFromText("5000000000"), TaggedValue::FromInteger(5'000'000'000));
}

TEST(NumberFromText, FractionsAreExact) {
    EXPECT_EQ(NumberFromText("12.50"), TaggedValue(Decimal{125, 1}));
    EXPECT_EQ(NumberFromText("-0.0001"), TaggedValue(Decimal{-1, 4}));
    EXPECT_EQ(NumberFromText(".5"), TaggedValue(Decimal{5, 1}));
}

TEST(NumberFromText, NumbersWithTooManyDigitsAreRounded) {
    EXPECT_EQ(NumberFromText("123456789012345678901234"), TaggedValue(123456789012345678901234.0));
    EXPECT_EQ(NumberFromText("0.1234567890123456789"), TaggedValue(0.1234567890123456789));
}

TEST(BoundTypes, DifferWhereAPreparedStatementWould) {
    EXPECT_EQ(BoundTypes({}), "");
    EXPECT_EQ(BoundTypes({1, true, 0.5, "a", Null()}), BoundTypes({2, false, 1.5, "b", Null()}));
    const std::vector<TaggedValue> values = {
        1, true, 0.5, "a", Null(), DateTime(), Decimal{125, 1}, Decimal{125, 2}, std::string(5000, 'x')};
    std::set<std::string> types;
    for (const TaggedValue& value : values) types.insert(BoundTypes({value}));
    EXPECT_EQ(types.size(), values.size());
}

}  // namespace
}  // namespace quellbrook
