#pragma once

#include "base/TaggedValue.h"
#include "sql/Dialect.h"

#include <string>
#include <string_view>

namespace quellbrook::sql {

// Finished SQL literals. A text that holds NUL is refused with Error 5.

std::string TextLiteral(std::string_view text, const Dialect& dialect);

// For the right side of LIKE: "*" stands for any run of characters, all else for itself. An ESCAPE clause follows only
// where the text holds a character that LIKE knows on one of the engines.
std::string LikeLiteral(std::string_view pattern, const Dialect& dialect);

// A plain value: NULL for no value, booleans as bits, dates as DateTime::ToText. Error 13 for an object, Error 6 for a
// floating point value that is no number.
std::string ValueLiteral(const TaggedValue& value, const Dialect& dialect);

}  // namespace quellbrook::sql
