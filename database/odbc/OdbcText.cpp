#include "database/odbc/OdbcText.h"

#include "base/Text.h"

#include <cstdint>

namespace quellbrook {

namespace {

constexpr uint32_t replacement = 0xFFFD;
constexpr uint32_t firstSupplementary = 0x10000;

bool IsHighSurrogate(uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLowSurrogate(uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

// Takes one character from the front of the text.
uint32_t TakeCharacter(std::string_view& text) {
    const auto byteAt = [&](size_t at) { return static_cast<unsigned char>(text[at]); };
    const uint32_t first = byteAt(0);
    const size_t length = first < 0x80   ? 1
                          : first < 0xC2 ? 0
                          : first < 0xE0 ? 2
                          : first < 0xF0 ? 3
                          : first < 0xF5 ? 4
                                         : 0;
    uint32_t character = length == 1 ? first : length == 0 ? replacement : first & (0xFFu >> (length + 1));
    size_t taken = 1;
    for (; taken < length; ++taken) {
        if (taken >= text.size() || (byteAt(taken) & 0xC0u) != 0x80u) {
            character = replacement;
            break;
        }
        character = (character << 6) | (byteAt(taken) & 0x3Fu);
    }
    text.remove_prefix(taken);
    const bool isTooLong = (length == 3 && character < 0x800) || (length == 4 && character < firstSupplementary);
    const bool isSurrogate = IsHighSurrogate(character) || IsLowSurrogate(character);
    return isTooLong || isSurrogate || character > 0x10FFFF ? replacement : character;
}

}  // namespace

std::u16string ToUtf16(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    while (!text.empty()) {
        const uint32_t character = TakeCharacter(text);
        if (character < firstSupplementary) {
            units += static_cast<char16_t>(character);
        } else {
            units += static_cast<char16_t>(0xD800 + ((character - firstSupplementary) >> 10));
            units += static_cast<char16_t>(0xDC00 + ((character - firstSupplementary) & 0x3FF));
        }
    }
    return units;
}

std::string ToUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (size_t at = 0; at < text.size(); ++at) {
        uint32_t character = text[at];
        const bool hasNext = at + 1 < text.size();
        if (IsHighSurrogate(character) && hasNext && IsLowSurrogate(text[at + 1]))
            character = firstSupplementary + ((character - 0xD800) << 10) + (text[++at] - 0xDC00u);
        AppendUtf8(bytes, character);
    }
    return bytes;
}

}  // namespace quellbrook
