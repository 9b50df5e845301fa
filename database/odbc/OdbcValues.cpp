#include "database/odbc/OdbcValues.h"

#include "base/Error.h"
#include "database/odbc/OdbcText.h"

#include <sql.h>
#include <sqlext.h>

#include <charconv>
#include <string>
#include <variant>

namespace quellbrook {

namespace {

const char* const source = "OdbcParameters.Bind";

// SQL Server has a type of its own for longer texts.
constexpr size_t longestPlainText = 4000;
constexpr SQLULEN digitsOfInt64 = 19;
// "2026-11-20 13:14:15.123"
constexpr SQLULEN charactersOfDate = 23;
constexpr SQLSMALLINT digitsOfFraction = 3;
constexpr SQLUINTEGER nanosecondsOfMillisecond = 1'000'000;
constexpr int mostDigits = 18;

SQL_TIMESTAMP_STRUCT ToTimestamp(const DateTime& moment) {
    const DateTime::Parts parts = moment.ToParts();
    SQL_TIMESTAMP_STRUCT timestamp{};
    timestamp.year = static_cast<SQLSMALLINT>(parts.year);
    timestamp.month = static_cast<SQLUSMALLINT>(parts.month);
    timestamp.day = static_cast<SQLUSMALLINT>(parts.day);
    timestamp.hour = static_cast<SQLUSMALLINT>(parts.hour);
    timestamp.minute = static_cast<SQLUSMALLINT>(parts.minute);
    timestamp.second = static_cast<SQLUSMALLINT>(parts.second);
    timestamp.fraction = static_cast<SQLUINTEGER>(parts.millisecond) * nanosecondsOfMillisecond;
    return timestamp;
}

}  // namespace

struct OdbcParameters::Value {
    std::variant<std::monostate, SQLINTEGER, double, std::string, std::u16string, SQL_TIMESTAMP_STRUCT> content;
    SQLSMALLINT cType = SQL_C_WCHAR;
    SQLSMALLINT type = SQL_WVARCHAR;
    SQLULEN size = 1;
    SQLSMALLINT digits = 0;
    SQLLEN length = SQL_NULL_DATA;

    void Set(const TaggedValue& value, ServerKind server) {
        if (value.HasNoValue()) return;
        if (const auto* number = value.If<int32_t>()) return SetWhole(*number, SQL_INTEGER);
        if (const auto* flag = value.If<bool>())
            return SetWhole(*flag ? 1 : 0, server == ServerKind::PostgreSql ? SQL_SMALLINT : SQL_BIT);
        if (const auto* text = value.If<std::string>()) return SetText(*text);
        if (const auto* moment = value.If<DateTime>()) {
            Set(ToTimestamp(*moment), SQL_C_TYPE_TIMESTAMP, SQL_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT));
            size = charactersOfDate;
            digits = digitsOfFraction;
        } else if (const auto* exact = value.If<Decimal>()) {
            const std::string text = exact->ToText();
            Set(text, SQL_C_CHAR, SQL_DECIMAL, static_cast<SQLLEN>(text.size()));
            size = digitsOfInt64;
            digits = exact->scale;
        } else {
            Set(ToDouble(value), SQL_C_DOUBLE, SQL_DOUBLE, sizeof(double));
        }
    }

    template <typename Content>
    void Set(Content newContent, SQLSMALLINT newCType, SQLSMALLINT newType, SQLLEN newLength) {
        content = std::move(newContent);
        cType = newCType;
        type = newType;
        length = newLength;
    }

    void SetWhole(int32_t number, SQLSMALLINT newType) {
        Set(static_cast<SQLINTEGER>(number), SQL_C_SLONG, newType, sizeof(SQLINTEGER));
    }

    void SetText(const std::string& text) {
        if (text.find('\0') != std::string::npos)
            Raise(ErrorNumber::General, source, "A text with a NUL character can't be stored or searched for.");
        std::u16string units = ToUtf16(text);
        const size_t count = units.size();
        Set(std::move(units), SQL_C_WCHAR, count > longestPlainText ? SQL_WLONGVARCHAR : SQL_WVARCHAR,
            static_cast<SQLLEN>(count * sizeof(char16_t)));
        size = count > 0 ? count : 1;
    }

    void* Data() {
        return std::visit(
            [](auto& held) -> void* {
                if constexpr (requires { held.data(); })
                    return held.data();
                else
                    return &held;
            },
            content);
    }
};

OdbcParameters::OdbcParameters() = default;
OdbcParameters::~OdbcParameters() = default;

void OdbcParameters::Bind(void* statement, const std::vector<TaggedValue>& values, ServerKind server) {
    m_values = std::vector<Value>(values.size());
    for (size_t i = 0; i < values.size(); ++i) {
        Value& value = m_values[i];
        value.Set(values[i], server);
        const SQLRETURN result =
            SQLBindParameter(statement, static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, value.cType, value.type,
                             value.size, value.digits, value.Data(), 0, &value.length);
        if (!SQL_SUCCEEDED(result)) Raise(ErrorNumber::General, source, "The driver refused a value of a statement.");
    }
}

std::string BoundTypes(const std::vector<TaggedValue>& values) {
    std::string types;
    for (const TaggedValue& value : values) {
        if (value.HasNoValue())
            types += 'n';
        else if (value.Holds<int32_t>())
            types += 'i';
        else if (value.Holds<bool>())
            types += 'b';
        else if (const auto* text = value.If<std::string>())
            types += text->size() > longestPlainText && ToUtf16(*text).size() > longestPlainText ? 'l' : 't';
        else if (value.Holds<DateTime>())
            types += 'd';
        else if (const auto* exact = value.If<Decimal>())
            types += "x" + std::to_string(exact->scale);
        else
            types += 'f';
    }
    return types;
}

TaggedValue NumberFromText(std::string_view text) {
    Decimal decimal;
    const size_t point = text.find('.');
    std::string digits(text.substr(0, point));
    if (point != std::string_view::npos) {
        std::string_view fraction = text.substr(point + 1);
        while (fraction.ends_with('0')) fraction.remove_suffix(1);
        digits += fraction;
        decimal.scale = static_cast<uint8_t>(std::min<size_t>(fraction.size(), mostDigits + 1));
    }
    const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), decimal.units);
    const bool isExact = failure == std::errc() && end == digits.data() + digits.size() && decimal.scale <= mostDigits;
    if (!isExact) return ToDouble(TaggedValue(text));
    return decimal.scale == 0 ? TaggedValue::FromInteger(decimal.units) : TaggedValue(decimal);
}

}  // namespace quellbrook
