#include "data/BarcodeText.h"

#include <gtest/gtest.h>

#include <limits>

namespace quellbrook {

TEST(BarcodeText, AKeyIsPaddedToTenDigits) {
    EXPECT_EQ(MakeBarcodeText("L", 12), "\x02L0000000012\x03");
    EXPECT_EQ(MakeBarcodeText("L", 12).size(), 13u);
    EXPECT_EQ(MakeBarcodeText("V", 4711), "\x02V0000004711\x03");
}

TEST(BarcodeText, KeyZeroIsTenZeros) { EXPECT_EQ(MakeBarcodeText("P", 0), "\x02P0000000000\x03"); }

TEST(BarcodeText, TheGreatestKeyNeedsNoPadding) {
    EXPECT_EQ(MakeBarcodeText("P", std::numeric_limits<int32_t>::max()), "\x02P2147483647\x03");
}

TEST(BarcodeText, ANegativeKeyKeepsItsLastTenCharacters) {
    EXPECT_EQ(MakeBarcodeText("P", -5), "\x02P00000000-5\x03");
    EXPECT_EQ(MakeBarcodeText("P", std::numeric_limits<int32_t>::min()), "\x02P2147483648\x03");
}

TEST(BarcodeText, TheTypeLetterMayHaveAnyLength) {
    EXPECT_EQ(MakeBarcodeText("", 1),
              "\x02"
              "0000000001\x03");
    EXPECT_EQ(MakeBarcodeText("LOC", 1), "\x02LOC0000000001\x03");
}

}  // namespace quellbrook
