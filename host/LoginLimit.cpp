#include "host/LoginLimit.h"

#include "base/Clock.h"
#include "base/Error.h"
#include "base/FormatCount.h"

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int failuresWithoutWait = 3;
constexpr int64_t second = 1000, longestWait = 60 * second;

}  // namespace

int64_t LoginLimit::WaitAfterLastFailure() const {
    if (m_failures < failuresWithoutWait) return 0;
    const int doublings = std::min(m_failures - failuresWithoutWait, 6);
    return std::min(2 * second << doublings, longestWait);
}

void LoginLimit::RequireTurn() const {
    const int64_t passed = GetClock().Now().milliseconds - m_lastFailure.milliseconds;
    const int64_t wait = WaitAfterLastFailure();
    if (passed < 0 || passed >= wait) return;  // below 0, the clock has been set back
    const auto seconds = static_cast<int32_t>((wait - passed + second - 1) / second);
    Raise(ErrorNumber::General, "LoginLimit.RequireTurn",
          "Too many logins have failed. " + FormatCount(seconds, "Wait %d second", "Wait %d seconds") +
              " and try again.");
}

void LoginLimit::Failed() {
    ++m_failures;
    m_lastFailure = GetClock().Now();
}

}  // namespace quellbrook
