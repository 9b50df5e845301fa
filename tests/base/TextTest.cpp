#include "base/Text.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

namespace quellbrook {
namespace {

using testing::RaisedBy;

TEST(Text, TrimRemovesSpacesOnly) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\n"), "\ta\n");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(Text, ReplaceReplacesEveryOccurrenceOnce) {
    EXPECT_EQ(Replace("a.b.c", ".", "--"), "a--b--c");
    EXPECT_EQ(Replace("aaa", "aa", "a"), "aa");
    EXPECT_EQ(Replace("it's", "'", "''"), "it''s");
    EXPECT_EQ(Replace("abc", "", "x"), "abc");
    EXPECT_EQ(Replace("", "a", "x"), "");
}

TEST(Text, JoinPutsTheSeparatorBetween) {
    EXPECT_EQ(Join({}, ", "), "");
    EXPECT_EQ(Join({"a"}, ", "), "a");
    EXPECT_EQ(Join({"a", "", "c"}, ", "), "a, , c");
}

TEST(Text, CaseIsFoldedForAsciiLettersOnly) {
    EXPECT_TRUE(EqualsNoCase("Shelf A", "sHELF a"));
    EXPECT_FALSE(EqualsNoCase("Shelf", "Shelf "));
    EXPECT_FALSE(EqualsNoCase("\xC3\x89", "\xC3\xA9"));
    EXPECT_EQ(FoldCase("AZ[@`{\xC3\x89"), "az[@`{\xC3\x89");
}

TEST(Text, NumericIsOneSignAndDigits) {
    for (const char* text : {"0", " 12 ", "-5", "+007", "123456789012345678901234567890"})
        EXPECT_TRUE(IsNumeric(text)) << text;
    for (const char* text : {"", " ", "-", "+-1", "1.5", "1e3", "0x1", "1 2", "\xD9\xA1"})
        EXPECT_FALSE(IsNumeric(text)) << text;
}

TEST(Text, ParseInt32KnowsItsRange) {
    EXPECT_EQ(ParseInt32(" -2147483648 "), INT32_MIN);
    EXPECT_EQ(ParseInt32("+2147483647"), INT32_MAX);
    EXPECT_EQ(ParseInt32("0000000000000000000000042"), 42);
    EXPECT_EQ(RaisedBy([] { ParseInt32("2147483648"); }).Number(), ErrorNumber::Overflow);
    EXPECT_EQ(RaisedBy([] { ParseInt32("-2147483649"); }).Number(), ErrorNumber::Overflow);
    EXPECT_EQ(RaisedBy([] { ParseInt32("99999999999999999999999"); }).Number(), ErrorNumber::Overflow);
    EXPECT_EQ(RaisedBy([] { ParseInt32("abc"); }).Number(), ErrorNumber::TypeMismatch);
}

TEST(AppendUtf8, WritesCharactersOfEveryLength) {
    std::string text = "<";
    for (const uint32_t codePoint : {0x41u, 0xE9u, 0x20ACu, 0x1F4E6u}) AppendUtf8(text, codePoint);
    EXPECT_EQ(text, "<A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x93\xA6");
}

TEST(AppendUtf8, WhatIsNoCharacterBecomesTheReplacementCharacter) {
    for (const uint32_t codePoint : {0xD800u, 0xDFFFu, 0x110000u, 0xFFFFFFFFu}) {
        std::string text;
        AppendUtf8(text, codePoint);
        EXPECT_EQ(text, "\xEF\xBF\xBD");
    }
}

}  // namespace
}  // namespace quellbrook
