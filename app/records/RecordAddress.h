#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quellbrook {

enum class RecordKind { Property, Vehicle };

// The address of a record for the desktop and other programs: "tessarine://miproperty/open/42",
// "tessarine://mivehicle/open/42".
struct RecordAddress {
    RecordKind kind = RecordKind::Property;
    int32_t number = 0;  // 1 to 2147483647

    bool operator==(const RecordAddress&) const = default;
    std::string ToText() const;
};

inline constexpr std::string_view RecordScheme = "tessarine";
// The maximum length, including a slash that a desktop may add.
inline constexpr size_t LongestRecordAddress = 39;

// Scheme and module word are case-insensitive, and one trailing slash is allowed, since desktops change both. Error 5
// for any other text, with a sentence that quotes the beginning of the text in printable characters.
RecordAddress ParseRecordAddress(std::string_view text);

// Whether the text starts with the scheme and is therefore meant as an address.
bool HasRecordScheme(std::string_view text);

}  // namespace quellbrook
