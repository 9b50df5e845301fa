#include "base/Environment.h"

#include <gtest/gtest.h>

#include <sys/time.h>
#include <cstdlib>
#include <ctime>

namespace quellbrook::testing {
namespace {

// Sets the time zone of the process for its own lifetime.
class TimeZone {
public:
    explicit TimeZone(const char* zone) {
        setenv("TZ", zone, 1);
        tzset();
    }
    ~TimeZone() {
        unsetenv("TZ");
        tzset();
    }
    TimeZone(const TimeZone&) = delete;
    TimeZone& operator=(const TimeZone&) = delete;
};

int64_t MillisecondsOfUniversalTime() {
    timeval now{};
    gettimeofday(&now, nullptr);
    return static_cast<int64_t>(now.tv_sec) * 1000 + now.tv_usec / 1000;
}

TEST(SystemClock, IsTheLocalTimeToTheMillisecond) {
    constexpr int64_t hour = 3'600'000;
    for (const auto& [zone, offset] : {std::pair("EAST-05:30", 11 * hour / 2), std::pair("WEST+08:00", -8 * hour)}) {
        const TimeZone scope(zone);
        const int64_t before = MillisecondsOfUniversalTime();
        const int64_t now = SystemClock().Now().milliseconds - offset;
        EXPECT_LE(before, now) << zone;
        EXPECT_LE(now, MillisecondsOfUniversalTime()) << zone;
    }
}

TEST(SystemClock, GoesOn) {
    const DateTime start = SystemClock().Now();
    DateTime now = start;
    while (now == start) now = SystemClock().Now();
    EXPECT_LT(now.milliseconds - start.milliseconds, 60'000);
}

}  // namespace
}  // namespace quellbrook::testing
