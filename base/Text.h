#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quellbrook {

// Small text functions on UTF-8.

std::string_view Trim(std::string_view text);  // leading and trailing spaces only, as databases do
std::string Replace(std::string_view text, std::string_view what, std::string_view with);  // every occurrence
std::string Join(const std::vector<std::string>& parts, std::string_view separator);

// Appends a character by its code point; U+FFFD if it is not a valid one.
void AppendUtf8(std::string& text, uint32_t codePoint);

// Case-insensitive comparison. Folds only ASCII letters, as all engines do.
bool EqualsNoCase(std::string_view a, std::string_view b);
std::string FoldCase(std::string_view text);

// Whether a comes before b in natural order: runs of digits compare by their value, so "Bin 2" comes before "Bin 10",
// and case does not matter. Neither comes first if they differ only in case or in leading zeros.
bool ComesBefore(std::string_view a, std::string_view b);

// Whether the text, without leading and trailing spaces, is an optional sign and digits, in any range.
bool IsNumeric(std::string_view text);

// The number. Error 13 if the text is not numeric, Error 6 if it does not fit 32 bits.
int32_t ParseInt32(std::string_view text);

}  // namespace quellbrook
