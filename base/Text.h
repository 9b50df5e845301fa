#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quellbrook {

// Small text functions on UTF-8.

std::string_view Trim(std::string_view text);  // leading and trailing blanks only, as the database understands them
std::string Replace(std::string_view text, std::string_view what, std::string_view with);  // every occurrence
std::string Join(const std::vector<std::string>& parts, std::string_view separator);

// One character more, by its code point; what is none gives U+FFFD.
void AppendUtf8(std::string& text, uint32_t codePoint);

// Comparison without regard to case, by the one folding that all engines share: ASCII letters.
bool EqualsNoCase(std::string_view a, std::string_view b);
std::string FoldCase(std::string_view text);

// Trimmed blanks, one optional sign, digits; nothing else counts as a number. No range.
bool IsNumeric(std::string_view text);

// A number by that grammar; otherwise Error 13, beyond 32 bits Error 6.
int32_t ParseInt32(std::string_view text);

}  // namespace quellbrook
