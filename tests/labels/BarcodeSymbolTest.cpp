#include "labels/BarcodeSymbol.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

const std::string itemText = "\x02P0000004711\x03";

std::string Drawn(const BarcodeSymbol& symbol) {
    std::string text;
    for (const bool bar : symbol.modules) text += bar ? '#' : '.';
    return text;
}

TEST(BarcodeSymbol, AnItemsTextHas145Modules) {
    const BarcodeSymbol symbol = EncodeCode128(itemText);
    EXPECT_EQ(symbol.modules.size(), 145u);
    EXPECT_EQ(symbol.WidthWithQuietZones(), 165);
}

TEST(BarcodeSymbol, StartsInCodeSetAAndEndsWithStop) {
    const std::string drawn = Drawn(EncodeCode128(itemText));
    EXPECT_EQ(drawn.substr(0, 11), "##.#....#..") << "Start A";
    EXPECT_EQ(drawn.substr(11, 11), "#..#....##.") << "STX";
    EXPECT_EQ(drawn.substr(drawn.size() - 13), "##...###.#.##");
}

TEST(BarcodeSymbol, EveryKeyHasTheSameWidth) {
    for (const char* digits : {"0000000000", "0000000001", "1111111111", "2147483647", "0102030405"})
        EXPECT_EQ(EncodeCode128("\x02L" + std::string(digits) + "\x03").modules.size(), 145u) << digits;
}

TEST(BarcodeSymbol, DifferentTextsHaveDifferentSymbols) {
    EXPECT_NE(EncodeCode128(itemText).modules, EncodeCode128("\x02V0000004711\x03").modules);
    EXPECT_NE(EncodeCode128(itemText).modules, EncodeCode128("P0000004711").modules);
}

TEST(BarcodeSymbol, RejectsWhatCantBeEncoded) {
    EXPECT_EQ(RaisedBy([] { EncodeCode128(""); }).Description(), "The barcode has no text.");
    EXPECT_EQ(RaisedBy([] {
                  EncodeCode128(
                      "\x02Stra\xC3\x9F"
                      "e\x03");
              }).Description(),
              "The text 'Stra\xC3\x9F"
              "e' contains a character that a barcode can't encode.");
    const Error tooLong = RaisedBy([] { EncodeCode128(std::string(400, 'x')); });
    EXPECT_EQ(tooLong.Number(), ErrorNumber::General);
    EXPECT_NE(tooLong.Description().find("can't be encoded as a barcode"), std::string::npos) << tooLong.Description();
}

TEST(BarcodeSymbol, ReadableTextOmitsControlCharacters) {
    EXPECT_EQ(ReadableText(itemText), "P0000004711");
    EXPECT_EQ(ReadableText("\x02\x03\x7F"), "");
}

}  // namespace
}  // namespace quellbrook::testing
