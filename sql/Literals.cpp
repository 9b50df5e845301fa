#include "sql/Literals.h"

#include "base/Error.h"
#include "base/Text.h"

#include <cmath>

namespace quellbrook::sql {

std::string TextLiteral(std::string_view text, const Dialect& dialect) {
    if (text.find('\0') != std::string_view::npos)
        Raise(ErrorNumber::General, "TextLiteral", "A text with a NUL character can't be stored or searched for.");
    return dialect.textPrefix + "'" + Replace(text, "'", "''") + "'";
}

std::string LikeLiteral(std::string_view pattern, const Dialect& dialect) {
    std::string escaped;
    bool escapes = false;
    for (const char c : pattern) {
        if (c == '%' || c == '_' || c == '[' || c == ']' || c == '\\') {
            escaped += '\\';
            escapes = true;
        }
        escaped += c == '*' ? '%' : c;
    }
    return TextLiteral(escaped, dialect) + (escapes ? " ESCAPE '\\'" : "");
}

std::string ValueLiteral(const TaggedValue& value, const Dialect& dialect) {
    if (value.HasNoValue()) return "NULL";
    if (const auto* text = value.If<std::string>()) return TextLiteral(*text, dialect);
    if (const auto* flag = value.If<bool>()) return *flag ? "1" : "0";
    if (const auto* moment = value.If<DateTime>()) return "'" + moment->ToText() + "'";
    if (const auto* number = value.If<double>(); number && !std::isfinite(*number))
        Raise(ErrorNumber::Overflow, "ValueLiteral");
    return ToText(value);
}

}  // namespace quellbrook::sql
