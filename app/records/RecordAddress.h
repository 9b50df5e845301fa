#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quellbrook {

enum class RecordKind { Property, Vehicle };

// The address under which the desktop and other programs ask the host for a record:
// "tessarine://miproperty/open/42", "tessarine://mivehicle/open/42".
struct RecordAddress {
    RecordKind kind = RecordKind::Property;
    int32_t number = 0;  // 1 to 2147483647

    bool operator==(const RecordAddress&) const = default;
    std::string ToText() const;
};

inline constexpr std::string_view RecordScheme = "tessarine";
// No address is longer, the slash that a desktop may add included.
inline constexpr size_t LongestRecordAddress = 39;

// Scheme and module word in any case, since openers of addresses change it, and one slash more at the end, since some
// desktops add it. Error 5 with a sentence for any other text; the sentence quotes it in printable characters, cut
// where it is long.
RecordAddress ParseRecordAddress(std::string_view text);

// Whether the text begins as an address does, so that it was meant for one.
bool HasRecordScheme(std::string_view text);

}  // namespace quellbrook
