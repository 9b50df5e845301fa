#include "base/TaggedValue.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <type_traits>

namespace quellbrook {
namespace {

using testing::RaisedBy;

class Thing : public Object {
public:
    std::string TypeName() const override { return "Thing"; }
};
class OtherThing : public Object {
public:
    std::string TypeName() const override { return "OtherThing"; }
};

// A raw pointer must not become a boolean.
static_assert(!std::is_constructible_v<TaggedValue, Thing*>);
static_assert(!std::is_constructible_v<TaggedValue, const int*>);
static_assert(!std::is_constructible_v<TaggedValue, void*>);
static_assert(!std::is_constructible_v<TaggedValue, void (*)()>);
static_assert(!std::is_constructible_v<TaggedValue, std::nullptr_t>);
static_assert(std::is_constructible_v<TaggedValue, const char*>);
static_assert(std::is_constructible_v<TaggedValue, char*>);
static_assert(std::is_constructible_v<TaggedValue, bool>);
static_assert(std::is_constructible_v<TaggedValue, std::shared_ptr<Thing>>);

template <typename Conversion>
int32_t NumberRaised(Conversion convert, const TaggedValue& value) {
    return RaisedBy([&] { convert(value); }).Number();
}

const DateTime moment = DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123});

TEST(TaggedValue, IsEmptyUntilItIsSet) {
    EXPECT_TRUE(TaggedValue().IsEmpty());
    EXPECT_FALSE(TaggedValue().IsNull());
    EXPECT_TRUE(TaggedValue().HasNoValue());
}

TEST(TaggedValue, NullIsNoValueButNotEmpty) {
    EXPECT_TRUE(TaggedValue(Null()).IsNull());
    EXPECT_FALSE(TaggedValue(Null()).IsEmpty());
    EXPECT_TRUE(TaggedValue(Null()).HasNoValue());
    EXPECT_NE(TaggedValue(Null()), TaggedValue());
}

TEST(TaggedValue, TextZeroAndFalseAreValues) {
    EXPECT_FALSE(TaggedValue("").HasNoValue());
    EXPECT_FALSE(TaggedValue(0).HasNoValue());
    EXPECT_FALSE(TaggedValue(false).HasNoValue());
}

TEST(TaggedValue, KeepsTheTypeItWasCreatedWith) {
    EXPECT_TRUE(TaggedValue("text").Holds<std::string>());
    EXPECT_TRUE(TaggedValue(true).Holds<bool>());
    EXPECT_TRUE(TaggedValue(1).Holds<int32_t>());
    EXPECT_TRUE(TaggedValue(1.0).Holds<double>());
    EXPECT_TRUE(TaggedValue(moment).Holds<DateTime>());
    EXPECT_TRUE(TaggedValue(std::make_shared<Thing>()).Holds<ObjectRef>());
    EXPECT_NE(TaggedValue(1), TaggedValue(1.0));
}

TEST(TaggedValue, WholeNumbersBeyond32BitsBecomeDecimals) {
    EXPECT_EQ(TaggedValue::FromInteger(2147483647), TaggedValue(2147483647));
    EXPECT_EQ(TaggedValue::FromInteger(2147483648), TaggedValue(Decimal{2147483648, 0}));
    EXPECT_EQ(TaggedValue::FromInteger(-2147483648LL), TaggedValue(std::numeric_limits<int32_t>::min()));
}

TEST(DecimalText, KeepsItsScale) {
    EXPECT_EQ((Decimal{-1250, 2}).ToText(), "-12.50");
    EXPECT_EQ((Decimal{5, 3}).ToText(), "0.005");
    EXPECT_EQ((Decimal{-5, 2}).ToText(), "-0.05");
    EXPECT_EQ((Decimal{0, 2}).ToText(), "0.00");
    EXPECT_EQ((Decimal{25, 2}).ToText(), "0.25");
    EXPECT_EQ((Decimal{42, 0}).ToText(), "42");
    EXPECT_EQ((Decimal{std::numeric_limits<int64_t>::min(), 18}).ToText(), "-9.223372036854775808");
    EXPECT_DOUBLE_EQ((Decimal{1250, 2}).ToDouble(), 12.5);
}

TEST(ToInt32, ReadsTextByOneGrammar) {
    EXPECT_EQ(ToInt32("  -17 "), -17);
    EXPECT_EQ(ToInt32("+0042"), 42);
    EXPECT_EQ(ToInt32("-2147483648"), std::numeric_limits<int32_t>::min());
    for (const char* text : {"", " ", "+", "--1", "1 2", "1.0", "1,000", "0x10", "1e3", "five", "\t1"})
        EXPECT_EQ(NumberRaised(ToInt32, text), ErrorNumber::TypeMismatch) << text;
    EXPECT_EQ(NumberRaised(ToInt32, "2147483648"), ErrorNumber::Overflow);
    EXPECT_EQ(NumberRaised(ToInt32, "-2147483649"), ErrorNumber::Overflow);
    EXPECT_EQ(NumberRaised(ToInt32, std::string(400, '9')), ErrorNumber::Overflow);
}

TEST(ToInt32, AFailureNamesItsSource) {
    EXPECT_EQ(testing::RaisedBy([] { ToInt32(3e9); }).Source(), "TaggedValue.ToInt32");
    EXPECT_EQ(testing::RaisedBy([] { ToText(Null()); }).Source(), "TaggedValue.ToText");
}

TEST(ToInt32, RoundsFractionsHalfToEven) {
    EXPECT_EQ(ToInt32(0.5), 0);
    EXPECT_EQ(ToInt32(1.5), 2);
    EXPECT_EQ(ToInt32(-2.5), -2);
    EXPECT_EQ(ToInt32(Decimal{25, 1}), 2);
}

TEST(ToInt32, RefusesWhatDoesNotFit) {
    EXPECT_EQ(NumberRaised(ToInt32, 2147483648.0), ErrorNumber::Overflow);
    EXPECT_EQ(NumberRaised(ToInt32, -1e300), ErrorNumber::Overflow);
    EXPECT_EQ(NumberRaised(ToInt32, std::numeric_limits<double>::quiet_NaN()), ErrorNumber::Overflow);
    EXPECT_EQ(NumberRaised(ToInt32, Decimal{3000000000, 0}), ErrorNumber::Overflow);
}

TEST(ToInt32, ReadsNoValueAsZeroOnlyWhereItIsEmpty) {
    EXPECT_EQ(ToInt32(TaggedValue()), 0);
    EXPECT_EQ(NumberRaised(ToInt32, Null()), ErrorNumber::InvalidUseOfNull);
}

TEST(ToInt32, ReadsBooleansAsMinusOneAndZero) {
    EXPECT_EQ(ToInt32(true), -1);
    EXPECT_EQ(ToInt32(false), 0);
}

TEST(ToInt32, RefusesDatesAndObjects) {
    EXPECT_EQ(NumberRaised(ToInt32, moment), ErrorNumber::TypeMismatch);
    EXPECT_EQ(NumberRaised(ToInt32, std::make_shared<Thing>()), ErrorNumber::TypeMismatch);
}

TEST(ToInt16, NarrowsOrRefuses) {
    EXPECT_EQ(ToInt16(32767), 32767);
    EXPECT_EQ(ToInt16("-32768"), -32768);
    EXPECT_EQ(NumberRaised(ToInt16, 32768), ErrorNumber::Overflow);
    EXPECT_EQ(NumberRaised(ToInt16, -32769), ErrorNumber::Overflow);
}

TEST(ToDouble, ReadsTextWithAPointInAnyLocale) {
    EXPECT_EQ(ToDouble(" -12.5 "), -12.5);
    EXPECT_EQ(ToDouble("+1e3"), 1000.0);
    for (const char* text : {"", "1,5", "12abc", "inf", "nan", "+-1", "+"})
        EXPECT_EQ(NumberRaised(ToDouble, text), ErrorNumber::TypeMismatch) << text;
    EXPECT_EQ(NumberRaised(ToDouble, "1e999"), ErrorNumber::Overflow);
}

TEST(ToDouble, ConvertsNumbersOfEveryType) {
    EXPECT_EQ(ToDouble(7), 7.0);
    EXPECT_EQ(ToDouble(Decimal{125, 2}), 1.25);
    EXPECT_EQ(ToDouble(true), -1.0);
    EXPECT_EQ(NumberRaised(ToDouble, Null()), ErrorNumber::InvalidUseOfNull);
}

TEST(ToBool, ReadsWordsInAnyCaseAndNumbers) {
    for (const char* text : {"True", "TRUE", " true ", "1", "-1", "0.5", "+1"}) EXPECT_TRUE(ToBool(text)) << text;
    for (const char* text : {"False", "fALSE", "0", "-0"}) EXPECT_FALSE(ToBool(text)) << text;
    EXPECT_TRUE(ToBool(2));
    EXPECT_FALSE(ToBool(0.0));
    EXPECT_FALSE(ToBool(TaggedValue()));
    EXPECT_EQ(NumberRaised(ToBool, "yes"), ErrorNumber::TypeMismatch);
    EXPECT_EQ(NumberRaised(ToBool, ""), ErrorNumber::TypeMismatch);
    EXPECT_EQ(NumberRaised(ToBool, Null()), ErrorNumber::InvalidUseOfNull);
}

TEST(ToText, WritesInvariantly) {
    EXPECT_EQ(ToText("as it is "), "as it is ");
    EXPECT_EQ(ToText(-1234567), "-1234567");
    EXPECT_EQ(ToText(0.1), "0.1");
    EXPECT_EQ(ToText(Decimal{-1250, 2}), "-12.50");
    EXPECT_EQ(ToText(true), "True");
    EXPECT_EQ(ToText(false), "False");
    EXPECT_EQ(ToText(moment), "2026-11-20T13:14:15.123");
    EXPECT_EQ(ToText(TaggedValue()), "");
}

TEST(ToText, RefusesNullAndObjects) {
    EXPECT_EQ(NumberRaised([](const TaggedValue& v) { return ToText(v); }, Null()), ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(NumberRaised([](const TaggedValue& v) { return ToText(v); }, std::make_shared<Thing>()),
              ErrorNumber::TypeMismatch);
    EXPECT_EQ(ToTextOrEmpty(Null()), "");
    EXPECT_EQ(ToTextOrEmpty(5), "5");
}

TEST(ToDateTime, ConvertsDatesAndTheirText) {
    EXPECT_EQ(ToDateTime(moment), moment);
    EXPECT_EQ(ToDateTime(" 2026-11-20T13:14:15.123 "), moment);
    EXPECT_EQ(NumberRaised(ToDateTime, "yesterday"), ErrorNumber::TypeMismatch);
    EXPECT_EQ(NumberRaised(ToDateTime, 5), ErrorNumber::TypeMismatch);
    EXPECT_EQ(NumberRaised(ToDateTime, TaggedValue()), ErrorNumber::TypeMismatch);
    EXPECT_EQ(NumberRaised(ToDateTime, Null()), ErrorNumber::InvalidUseOfNull);
}

TEST(ToObject, ReturnsTheObjectAsTheRequestedClass) {
    const auto thing = std::make_shared<Thing>();
    EXPECT_EQ(ToObject<Thing>(thing), thing);
    EXPECT_EQ(NumberRaised(ToObject<OtherThing>, thing), ErrorNumber::TypeMismatch);
    EXPECT_EQ(NumberRaised(ToObject<Thing>, "text"), ErrorNumber::TypeMismatch);
    EXPECT_EQ(NumberRaised(ToObject<Thing>, TaggedValue()), ErrorNumber::TypeMismatch);
    EXPECT_EQ(NumberRaised(ToObject<Thing>, std::shared_ptr<Thing>()), ErrorNumber::NullObject);
}

TEST(Errors, CarryNumberSourceAndDescription) {
    const Error error = RaisedBy([] { Raise(ErrorNumber::InvalidPropertyValue, "Class.Operation"); });
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPropertyValue);
    EXPECT_EQ(error.Source(), "Class.Operation");
    EXPECT_EQ(error.Description(), "Invalid property value.");
    EXPECT_STREQ(error.what(), "Invalid property value.");
}

TEST(Errors, AnyExceptionBecomesAnError) {
    const auto seen = [](auto thrown) {
        try {
            throw thrown;
        } catch (...) {
            return CurrentError();
        }
    };
    EXPECT_EQ(seen(Error(7, "A.B", "text")).Number(), 7);
    EXPECT_EQ(seen(std::runtime_error("broken")).Number(), ErrorNumber::General);
    EXPECT_EQ(seen(std::runtime_error("broken")).Description(), "broken");
    EXPECT_EQ(seen(std::bad_alloc()).Description(), "There is not enough memory. Close other programs and try again.");
    EXPECT_EQ(seen(42).Description(), "An unexpected error occurred.");
}

TEST(Errors, RequireRefusesNull) {
    std::shared_ptr<Thing> nothing;
    const Error error = RaisedBy([&] { Require(nothing, "Class.Operation"); });
    EXPECT_EQ(error.Number(), ErrorNumber::NullObject);
    EXPECT_EQ(error.Description(), "A record that is needed for this is missing. Refresh and try again.");
}

}  // namespace
}  // namespace quellbrook
