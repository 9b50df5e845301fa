#include "base/FormatCount.h"

#include <gtest/gtest.h>

#include <limits>

namespace quellbrook {
namespace {

std::string Items(int64_t count) { return FormatCount(count, "%d item", "%d items"); }

TEST(FormatCount, OnlyOneIsSingular) {
    EXPECT_EQ(Items(1), "1 item");
    EXPECT_EQ(Items(0), "0 items");
    EXPECT_EQ(Items(2), "2 items");
    EXPECT_EQ(Items(-1), "-1 items");
}

TEST(FormatCount, SeparatesThousandsByCommas) {
    EXPECT_EQ(Items(999), "999 items");
    EXPECT_EQ(Items(1234), "1,234 items");
    EXPECT_EQ(Items(1000000), "1,000,000 items");
    EXPECT_EQ(Items(-123456), "-123,456 items");
}

TEST(FormatCount, ReplacesEveryPlaceholder) { EXPECT_EQ(FormatCount(5, "", "%d of %d (100%)"), "5 of 5 (100%)"); }

TEST(FormatCount, LeavesATextWithoutPlaceholderAsItIs) { EXPECT_EQ(FormatCount(1, "one", "many"), "one"); }

TEST(FormatNumber, KeepsAtLeastOneDigit) {
    EXPECT_EQ(FormatNumber(int64_t{0}), "0");
    EXPECT_EQ(FormatNumber(0.2), "0");
}

TEST(FormatNumber, RoundsHalfAwayFromZero) {
    EXPECT_EQ(FormatNumber(0.5), "1");
    EXPECT_EQ(FormatNumber(2.5), "3");
    EXPECT_EQ(FormatNumber(-2.5), "-3");
    EXPECT_EQ(FormatNumber(1234.4), "1,234");
}

TEST(FormatNumber, WritesTheSmallestNumber) {
    EXPECT_EQ(FormatNumber(std::numeric_limits<int64_t>::min()), "-9,223,372,036,854,775,808");
}

}  // namespace
}  // namespace quellbrook
