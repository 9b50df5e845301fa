#pragma once

#include <cstdint>
#include <string>

namespace quellbrook::sample {

// A non-negative number with leading zeros.
inline std::string Padded(int32_t number, size_t width) {
    std::string digits = std::to_string(number);
    if (digits.size() < width) digits.insert(0, width - digits.size(), '0');
    return digits;
}

}  // namespace quellbrook::sample
