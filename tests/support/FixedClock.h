#pragma once

#include "base/Clock.h"

#include <cstdint>

namespace quellbrook::testing {

// A clock that changes only when a test sets it.
class FixedClock : public Clock {
public:
    FixedClock() = default;
    explicit FixedClock(DateTime now) : m_now(now) {}

    DateTime Now() const override { return m_now; }
    void Set(DateTime now) { m_now = now; }
    void Advance(int64_t milliseconds) { m_now.milliseconds += milliseconds; }

private:
    DateTime m_now = DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123});
};

}  // namespace quellbrook::testing
