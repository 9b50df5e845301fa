#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quellbrook {

// A moment on the workstation's calendar, without a time zone: milliseconds since 1970-01-01T00:00:00 local time.
struct DateTime {
    int64_t milliseconds = 0;

    auto operator<=>(const DateTime&) const = default;

    struct Parts {
        int year, month, day, hour, minute, second, millisecond;
    };

    // Any day of the proleptic Gregorian calendar; no range check.
    static DateTime FromParts(const Parts& parts);
    Parts ToParts() const;

    // "2026-11-20T13:14:15.123", the form in which dates go into a statement and come back from a database.
    std::string ToText() const;

    // Reads that form, a blank in place of the "T", any fraction of a second or none, and a date alone.
    // Nothing for any other text or an impossible day.
    static std::optional<DateTime> Parse(std::string_view text);
};

}  // namespace quellbrook
