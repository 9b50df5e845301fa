#include "base/Text.h"

#include "base/Error.h"

#include <algorithm>
#include <limits>

namespace quellbrook {

namespace {

char FoldChar(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Removes the digits at the start of the text and returns them without leading zeros.
std::string_view TakeNumber(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    std::string_view number = text.substr(0, static_cast<size_t>(end - text.begin()));
    text.remove_prefix(number.size());
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

}  // namespace

std::string_view Trim(std::string_view text) {
    const size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string Replace(std::string_view text, std::string_view what, std::string_view with) {
    std::string result;
    if (what.empty()) return std::string(text);
    size_t from = 0;
    for (size_t at = text.find(what); at != std::string_view::npos; at = text.find(what, from)) {
        result.append(text, from, at - from).append(with);
        from = at + what.size();
    }
    return result.append(text.substr(from));
}

std::string Join(const std::vector<std::string>& parts, std::string_view separator) {
    std::string result;
    for (size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) result += separator;
        result += parts[i];
    }
    return result;
}

void AppendUtf8(std::string& text, uint32_t codePoint) {
    const bool isSurrogate = codePoint >= 0xD800 && codePoint < 0xE000;
    if (codePoint > 0x10FFFF || isSurrogate) codePoint = 0xFFFD;
    const int more = codePoint < 0x80 ? 0 : codePoint < 0x800 ? 1 : codePoint < 0x10000 ? 2 : 3;
    constexpr unsigned char leads[] = {0x00, 0xC0, 0xE0, 0xF0};
    text.push_back(static_cast<char>(leads[more] | codePoint >> (6 * more)));
    for (int i = more - 1; i >= 0; --i) text.push_back(static_cast<char>(0x80 | (codePoint >> (6 * i) & 0x3F)));
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return FoldChar(x) == FoldChar(y); });
}

std::string FoldCase(std::string_view text) {
    std::string folded(text);
    std::transform(folded.begin(), folded.end(), folded.begin(), FoldChar);
    return folded;
}

bool ComesBefore(std::string_view a, std::string_view b) {
    while (!a.empty() && !b.empty()) {
        if (IsDigit(a.front()) && IsDigit(b.front())) {
            const std::string_view left = TakeNumber(a), right = TakeNumber(b);
            if (left.size() != right.size()) return left.size() < right.size();
            if (left != right) return left < right;
        } else {
            const auto left = static_cast<unsigned char>(FoldChar(a.front()));
            const auto right = static_cast<unsigned char>(FoldChar(b.front()));
            if (left != right) return left < right;
            a.remove_prefix(1);
            b.remove_prefix(1);
        }
    }
    return a.empty() && !b.empty();
}

bool IsNumeric(std::string_view text) {
    text = Trim(text);
    if (!text.empty() && (text[0] == '+' || text[0] == '-')) text.remove_prefix(1);
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

int32_t ParseInt32(std::string_view text) {
    if (!IsNumeric(text)) Raise(ErrorNumber::TypeMismatch, "ParseInt32");
    text = Trim(text);
    const bool negative = text[0] == '-';
    if (text[0] == '+' || text[0] == '-') text.remove_prefix(1);
    int64_t value = 0;
    for (const char c : text) {
        value = value * 10 + (c - '0');
        if (value > int64_t{std::numeric_limits<int32_t>::max()} + 1) Raise(ErrorNumber::Overflow, "ParseInt32");
    }
    if (negative) value = -value;
    if (value > std::numeric_limits<int32_t>::max()) Raise(ErrorNumber::Overflow, "ParseInt32");
    return static_cast<int32_t>(value);
}

}  // namespace quellbrook
