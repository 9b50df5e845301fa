#include "host/MomentText.h"

#include <algorithm>

namespace quellbrook {

namespace {

struct Formatter {
    DateTime::Parts parts;
    bool hasTwelveHours;

    // The text of `length` equal characters of a pattern.
    std::string Field(char letter, size_t length) const {
        const auto number = [&](int value) { return (length > 1 && value < 10 ? "0" : "") + std::to_string(value); };
        switch (letter) {
        case 'd': return number(parts.day);
        case 'M': return number(parts.month);
        case 'y': return length > 2 ? std::to_string(parts.year) : number(parts.year % 100);
        case 'h':
            if (hasTwelveHours) return number(parts.hour % 12 == 0 ? 12 : parts.hour % 12);
            [[fallthrough]];
        case 'H': return number(parts.hour);
        case 'm': return number(parts.minute);
        case 's': return number(parts.second);
        case 'A':
        case 'a': return parts.hour < 12 ? "AM" : "PM";
        default: return std::string(length, letter);
        }
    }

    std::string Text(const std::string& pattern) const {
        std::string text;
        for (size_t at = 0; at < pattern.size();) {
            if (pattern[at] == '\'') {
                const size_t end = std::min(pattern.find('\'', at + 1), pattern.size());
                text += end == at + 1 ? "'" : pattern.substr(at + 1, end - at - 1);
                at = end + 1;
                continue;
            }
            const size_t end = std::min(pattern.find_first_not_of(pattern[at], at), pattern.size());
            text += Field(pattern[at], end - at);
            at = end;
            const bool followsA = pattern[end - 1] == 'A' || pattern[end - 1] == 'a';
            if (followsA && (pattern[at] == 'P' || pattern[at] == 'p')) ++at;
        }
        return text;
    }
};

}  // namespace

std::string MomentText(const DateTime& moment, const HostFormats& formats) {
    const bool hasTwelveHours = formats.time.find_first_of("Aa") != std::string::npos;
    const Formatter formatter{moment.ToParts(), hasTwelveHours};
    return formatter.Text(formats.date) + " " + formatter.Text(formats.time);
}

}  // namespace quellbrook
