#include "base/DateTime.h"

#include <chrono>
#include <cstdio>

namespace quellbrook {

using namespace std::chrono;

DateTime DateTime::FromParts(const Parts& p) {
    const auto date =
        sys_days(year(p.year) / month(static_cast<unsigned>(p.month)) / day(static_cast<unsigned>(p.day)));
    const auto time = hours(p.hour) + minutes(p.minute) + seconds(p.second) + std::chrono::milliseconds(p.millisecond);
    return {duration_cast<std::chrono::milliseconds>(date.time_since_epoch() + time).count()};
}

DateTime::Parts DateTime::ToParts() const {
    const sys_time<std::chrono::milliseconds> moment{std::chrono::milliseconds(milliseconds)};
    const auto dayStart = floor<days>(moment);
    const year_month_day date(dayStart);
    const hh_mm_ss time(moment - dayStart);
    return {int(date.year()),
            int(unsigned(date.month())),
            int(unsigned(date.day())),
            int(time.hours().count()),
            int(time.minutes().count()),
            int(time.seconds().count()),
            int(time.subseconds().count())};
}

std::string DateTime::ToText() const {
    const Parts p = ToParts();
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%04d-%02d-%02dT%02d:%02d:%02d.%03d", p.year, p.month, p.day, p.hour, p.minute,
                  p.second, p.millisecond);
    return buffer;
}

namespace {

class Reader {
public:
    explicit Reader(std::string_view text) : m_rest(text) {}

    bool Digits(int count, int& value) {
        if (m_rest.size() < static_cast<size_t>(count)) return false;
        value = 0;
        for (int i = 0; i < count; ++i) {
            const char c = m_rest[static_cast<size_t>(i)];
            if (c < '0' || c > '9') return false;
            value = value * 10 + (c - '0');
        }
        m_rest.remove_prefix(static_cast<size_t>(count));
        return true;
    }

    bool Sign(char a, char b = '\0') {
        if (m_rest.empty() || (m_rest[0] != a && (b == '\0' || m_rest[0] != b))) return false;
        m_rest.remove_prefix(1);
        return true;
    }

    bool Fraction(int& millisecond) {
        int weight = 100;
        bool any = false;
        while (!m_rest.empty() && m_rest[0] >= '0' && m_rest[0] <= '9') {
            millisecond += (m_rest[0] - '0') * weight;
            weight /= 10;
            m_rest.remove_prefix(1);
            any = true;
        }
        return any;
    }

    bool AtEnd() const { return m_rest.empty(); }

private:
    std::string_view m_rest;
};

}  // namespace

std::optional<DateTime> DateTime::Parse(std::string_view text) {
    Reader reader(text);
    Parts p{};
    if (!reader.Digits(4, p.year) || !reader.Sign('-') || !reader.Digits(2, p.month) || !reader.Sign('-') ||
        !reader.Digits(2, p.day))
        return std::nullopt;
    if (!year_month_day(year(p.year) / month(static_cast<unsigned>(p.month)) / day(static_cast<unsigned>(p.day))).ok())
        return std::nullopt;
    if (!reader.AtEnd()) {
        if (!reader.Sign('T', ' ') || !reader.Digits(2, p.hour) || !reader.Sign(':') || !reader.Digits(2, p.minute))
            return std::nullopt;
        if (reader.Sign(':')) {
            if (!reader.Digits(2, p.second)) return std::nullopt;
            if (reader.Sign('.') && !reader.Fraction(p.millisecond)) return std::nullopt;
        }
    }
    if (!reader.AtEnd() || p.hour > 23 || p.minute > 59 || p.second > 59) return std::nullopt;
    return FromParts(p);
}

}  // namespace quellbrook
