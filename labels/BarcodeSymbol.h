#pragma once

#include <string>
#include <vector>

namespace quellbrook {

// A linear symbol as its modules from left to right, true for a bar, without the quiet zones.
struct BarcodeSymbol {
    std::vector<bool> modules;

    // Modules that must stay empty on either side of a symbol.
    static constexpr int QuietZone = 10;
    int WidthWithQuietZones() const { return static_cast<int>(modules.size()) + 2 * QuietZone; }
};

// Code 128, which encodes ASCII with its control characters. The text of an item or location, 13 characters, has 145
// modules. Raises error 5 for a text that is empty, not ASCII, or too long for a symbol.
BarcodeSymbol EncodeCode128(const std::string& text);

// The readable text under a symbol: the text without its control characters.
std::string ReadableText(const std::string& text);

}  // namespace quellbrook
