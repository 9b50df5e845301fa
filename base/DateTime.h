#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quellbrook {

// A local date and time without a time zone: milliseconds since 1970-01-01T00:00:00 local time.
struct DateTime {
    int64_t milliseconds = 0;

    auto operator<=>(const DateTime&) const = default;

    struct Parts {
        int year, month, day, hour, minute, second, millisecond;
    };

    // Accepts any day of the proleptic Gregorian calendar. Does not check ranges.
    static DateTime FromParts(const Parts& parts);
    Parts ToParts() const;

    // "2026-11-20T13:14:15.123", the format of dates in statements and databases.
    std::string ToText() const;

    // Reads that format. Also accepts a space instead of the "T", any or no fraction of a second, and a date alone.
    // Empty for any other text and for an impossible date.
    static std::optional<DateTime> Parse(std::string_view text);
};

}  // namespace quellbrook
