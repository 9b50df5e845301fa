#include "base/FormatCount.h"

#include "base/Text.h"

#include <cmath>

namespace quellbrook {

std::string FormatNumber(int64_t value) {
    std::string text = std::to_string(value);
    const size_t firstDigit = value < 0 ? 1 : 0;
    for (size_t at = text.size(); at > firstDigit + 3;) {
        at -= 3;
        text.insert(at, 1, ',');
    }
    return text;
}

std::string FormatNumber(double value) { return FormatNumber(static_cast<int64_t>(std::llround(value))); }

std::string FormatCount(int64_t value, std::string_view singular, std::string_view plural) {
    return Replace(value == 1 ? singular : plural, "%d", FormatNumber(value));
}

}  // namespace quellbrook
