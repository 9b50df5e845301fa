#include "database/odbc/OdbcValues.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace quellbrook
