#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quellbrook {

// "###,##0": a comma between thousands, at least one digit, in every locale.
std::string FormatNumber(int64_t value);
// Rounded half away from zero.
std::string FormatNumber(double value);

// The singular text for exactly 1, otherwise the plural, with each "%d" replaced by the formatted value.
std::string FormatCount(int64_t value, std::string_view singular, std::string_view plural);

}  // namespace quellbrook
