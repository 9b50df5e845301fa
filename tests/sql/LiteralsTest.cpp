#include "sql/Literals.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quellbrook;
using namespace quellbrook::sql;
using namespace quellbrook::testing;

TEST(TextLiteral, DoublesQuotationMarksAndAddsThePrefixOfTheDialect) {
    EXPECT_EQ(TextLiteral("O'Neil's", {}), "'O''Neil''s'");
    EXPECT_EQ(TextLiteral("", {}), "''");
    EXPECT_EQ(TextLiteral("x", {.textPrefix = "N"}), "N'x'");
}

TEST(TextLiteral, NulIsRefused) {
    const Error error = RaisedBy([] { TextLiteral(std::string_view("a\0b", 3), {}); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Source(), "TextLiteral");
    EXPECT_EQ(error.Description(), "A text with a NUL character can't be stored or searched for.");
}

TEST(LikeLiteral, AnAsteriskIsTheWildcardAndNoEscapeIsAddedWithoutNeed) {
    EXPECT_EQ(LikeLiteral("a*b", {}), "'a%b'");
    EXPECT_EQ(LikeLiteral("it's", {.textPrefix = "N"}), "N'it''s'");
}

TEST(LikeLiteral, EverySpecialCharacterIsEscaped) {
    for (const char special : {'%', '_', '[', ']', '\\'}) {
        const std::string text(1, special);
        EXPECT_EQ(LikeLiteral("a" + text + "*", {}), "'a\\" + text + "%' ESCAPE '\\'");
    }
}

TEST(ValueLiteral, EachKindHasItsForm) {
    EXPECT_EQ(ValueLiteral(Null(), {}), "NULL");
    EXPECT_EQ(ValueLiteral(TaggedValue(), {}), "NULL");
    EXPECT_EQ(ValueLiteral("it's", {}), "'it''s'");
    EXPECT_EQ(ValueLiteral(true, {}), "1");
    EXPECT_EQ(ValueLiteral(false, {}), "0");
    EXPECT_EQ(ValueLiteral(-7, {}), "-7");
    EXPECT_EQ(ValueLiteral(1.5, {}), "1.5");
    EXPECT_EQ(ValueLiteral(DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123}), {}), "'2026-11-20T13:14:15.123'");
}

TEST(ValueLiteral, ANumberThatIsNotFiniteIsRefused) {
    const Error error = RaisedBy([] { ValueLiteral(std::numeric_limits<double>::infinity(), {}); });
    EXPECT_EQ(error.Number(), ErrorNumber::Overflow);
    EXPECT_EQ(error.Source(), "ValueLiteral");
}

TEST(Dialect, AssumesNothingAboutTheEngine) { EXPECT_EQ(Dialect(), (Dialect{"+", "", false, false, false, false})); }
