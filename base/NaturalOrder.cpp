#include "base/Text.h"

#include <algorithm>

namespace quellbrook {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

char Fold(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Removes the digits at the start of the text and returns them without leading zeros.
std::string_view TakeNumber(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    std::string_view number = text.substr(0, static_cast<size_t>(end - text.begin()));
    text.remove_prefix(number.size());
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

}  // namespace

bool ComesBefore(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        if (IsDigit(a.front()) && IsDigit(b.front())) {
            const std::string_view left = TakeNumber(a), right = TakeNumber(b);
            if (left.size() != right.size()) return left.size() < right.size();
            if (left != right) return left < right;
        } else {
            const auto left = static_cast<unsigned char>(Fold(a.front()));
            const auto right = static_cast<unsigned char>(Fold(b.front()));
            if (left != right) return left < right;
            a.remove_prefix(1);
            b.remove_prefix(1);
        }
    }
    return a.empty() && !b.empty();
}

}  // namespace quellbrook
