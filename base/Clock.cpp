#include "base/Environment.h"

#include <chrono>
#include <ctime>

namespace quellbrook {

namespace {

class LocalClock : public Clock {
public:
    DateTime Now() const override {
        using namespace std::chrono;
        const auto now = system_clock::now();
        const std::time_t seconds = system_clock::to_time_t(now);
        std::tm local{};
        localtime_r(&seconds, &local);
        const auto fraction = duration_cast<milliseconds>(now.time_since_epoch()).count() % 1000;
        return DateTime::FromParts({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                                    local.tm_sec > 59 ? 59 : local.tm_sec, static_cast<int>(fraction)});
    }
};

}  // namespace

const Clock& SystemClock() {
    static const LocalClock clock;
    return clock;
}

}  // namespace quellbrook
