#include "database/odbc/OdbcText.h"

#include "tests/support/HostileTexts.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

const std::string replacement = "\xEF\xBF\xBD";

TEST(OdbcText, TextsSurviveBothWays) {
    for (const HostileText& hostile : HostileTexts())
        EXPECT_EQ(ToUtf8(ToUtf16(hostile.text)), hostile.text) << hostile.description;
}

TEST(OdbcText, CharactersOutsideTheBasicPlaneTakeTwoUnits) {
    EXPECT_EQ(ToUtf16("\xF0\x9F\x9A\x97"), u"\U0001F697");
    EXPECT_EQ(ToUtf16("\xF0\x9F\x9A\x97").size(), 2u);
}

TEST(OdbcText, MalformedBytesAreReplaced) {
    for (const char* malformed : {"\x80", "\xFF", "\xC3", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80"})
        EXPECT_TRUE(ToUtf8(ToUtf16(malformed)).starts_with(replacement));
    EXPECT_EQ(ToUtf8(ToUtf16("a\xC3(b")), "a" + replacement + "(b");
}

TEST(OdbcText, ALoneSurrogateIsReplaced) {
    const char16_t units[] = {'a', 0xD83D, 'b', 0};
    EXPECT_EQ(ToUtf8(units), "a" + replacement + "b");
}

}  // namespace
}  // namespace quellbrook::testing
