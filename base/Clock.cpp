#include "base/Clock.h"

#include <chrono>
#include <ctime>

namespace quellbrook {

namespace {

class SystemClock : public Clock {
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

const SystemClock systemClock;
const Clock* current = &systemClock;

}  // namespace

const Clock& GetClock() { return *current; }
void SetClock(const Clock* clock) { current = clock ? clock : &systemClock; }

}  // namespace quellbrook
