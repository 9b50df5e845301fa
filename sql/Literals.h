#pragma once

#include "base/TaggedValue.h"
#include "sql/Dialect.h"

#include <string>
#include <string_view>

namespace quellbrook::sql {

// Finished SQL literals. Error 5 for a text with a NUL character.

std::string TextLiteral(std::string_view text, const Dialect& dialect);

// For the right side of LIKE: "*" matches any run of characters, all others match themselves. An ESCAPE clause is added
// only if the text contains a special character of LIKE on one of the engines.
std::string LikeLiteral(std::string_view pattern, const Dialect& dialect);

// A plain value: NULL for no value, booleans as bits, dates as DateTime::ToText. Error 13 for an object, Error 6 for a
// floating point value that is not finite.
std::string ValueLiteral(const TaggedValue& value, const Dialect& dialect);

}  // namespace quellbrook::sql
