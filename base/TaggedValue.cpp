#include "base/TaggedValue.h"

#include "base/Error.h"
#include "base/Text.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace quellbrook {

namespace {

int64_t PowerOfTen(int exponent) {
    int64_t power = 1;
    while (exponent-- > 0) power *= 10;
    return power;
}

int32_t NarrowToInt32(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<int32_t>::min() && rounded <= std::numeric_limits<int32_t>::max()))
        Raise(ErrorNumber::Overflow, "TaggedValue.ToInt32");
    return static_cast<int32_t>(rounded);
}

double ParseDouble(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    double number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure == std::errc::result_out_of_range) Raise(ErrorNumber::Overflow, "TaggedValue.ToDouble");
    if (failure != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) RaiseTypeMismatch();
    return number;
}

std::string DoubleToText(double value) {
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    return std::string(buffer, end);
}

}  // namespace

double Decimal::ToDouble() const { return static_cast<double>(units) / static_cast<double>(PowerOfTen(scale)); }

std::string Decimal::ToText() const {
    const bool negative = units < 0;
    const uint64_t magnitude = negative ? 0 - static_cast<uint64_t>(units) : static_cast<uint64_t>(units);
    std::string digits = std::to_string(magnitude);
    if (scale > 0) {
        if (digits.size() <= scale) digits.insert(0, scale + 1 - digits.size(), '0');
        digits.insert(digits.size() - scale, 1, '.');
    }
    return negative ? "-" + digits : digits;
}

TaggedValue TaggedValue::FromInteger(int64_t value) {
    if (value >= std::numeric_limits<int32_t>::min() && value <= std::numeric_limits<int32_t>::max())
        return TaggedValue(static_cast<int32_t>(value));
    return TaggedValue(Decimal{value, 0});
}

void RaiseTypeMismatch() { Raise(ErrorNumber::TypeMismatch, "TaggedValue"); }
void RaiseNullObject() { Raise(ErrorNumber::NullObject, "TaggedValue"); }

int32_t ToInt32(const TaggedValue& value) {
    if (const auto* number = value.If<int32_t>()) return *number;
    if (value.IsNull()) Raise(ErrorNumber::InvalidUseOfNull, "TaggedValue.ToInt32");
    if (value.IsEmpty()) return 0;
    if (const auto* flag = value.If<bool>()) return *flag ? -1 : 0;
    if (const auto* number = value.If<double>()) return NarrowToInt32(*number);
    if (const auto* number = value.If<Decimal>()) return NarrowToInt32(number->ToDouble());
    if (const auto* text = value.If<std::string>()) return ParseInt32(*text);
    RaiseTypeMismatch();
}

int16_t ToInt16(const TaggedValue& value) {
    const int32_t wide = ToInt32(value);
    if (wide < std::numeric_limits<int16_t>::min() || wide > std::numeric_limits<int16_t>::max())
        Raise(ErrorNumber::Overflow, "TaggedValue.ToInt16");
    return static_cast<int16_t>(wide);
}

double ToDouble(const TaggedValue& value) {
    if (const auto* number = value.If<double>()) return *number;
    if (const auto* number = value.If<Decimal>()) return number->ToDouble();
    if (const auto* text = value.If<std::string>()) return ParseDouble(Trim(*text));
    return ToInt32(value);
}

bool ToBool(const TaggedValue& value) {
    if (const auto* flag = value.If<bool>()) return *flag;
    if (value.IsNull()) Raise(ErrorNumber::InvalidUseOfNull, "TaggedValue.ToBool");
    if (const auto* text = value.If<std::string>()) {
        const std::string_view trimmed = Trim(*text);
        if (EqualsNoCase(trimmed, "true")) return true;
        if (EqualsNoCase(trimmed, "false")) return false;
    }
    return ToDouble(value) != 0;
}

std::string ToText(const TaggedValue& value) {
    if (const auto* text = value.If<std::string>()) return *text;
    if (value.IsNull()) Raise(ErrorNumber::InvalidUseOfNull, "TaggedValue.ToText");
    if (value.IsEmpty()) return {};
    if (const auto* number = value.If<int32_t>()) return std::to_string(*number);
    if (const auto* flag = value.If<bool>()) return *flag ? "True" : "False";
    if (const auto* number = value.If<double>()) return DoubleToText(*number);
    if (const auto* number = value.If<Decimal>()) return number->ToText();
    if (const auto* moment = value.If<DateTime>()) return moment->ToText();
    RaiseTypeMismatch();
}

std::string ToTextOrEmpty(const TaggedValue& value) { return value.IsNull() ? std::string() : ToText(value); }

DateTime ToDateTime(const TaggedValue& value) {
    if (const auto* moment = value.If<DateTime>()) return *moment;
    if (value.IsNull()) Raise(ErrorNumber::InvalidUseOfNull, "TaggedValue.ToDateTime");
    if (const auto* text = value.If<std::string>())
        if (const auto moment = DateTime::Parse(Trim(*text))) return *moment;
    RaiseTypeMismatch();
}

}  // namespace quellbrook
