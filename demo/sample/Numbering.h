#pragma once

#include <cstdint>
#include <string>

namespace quellbrook::sample {

// A number above or equal to 0 with leading zeros up to the width.
inline std::string Padded(int32_t number, size_t width) {
    std::string digits = std::to_string(number);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

}  // namespace quellbrook::sample
