#pragma once

#include "base/DateTime.h"

namespace quellbrook {

// The workstation's wall clock. Logic never reads the time but through GetClock.
class Clock {
public:
    virtual ~Clock() = default;
    virtual DateTime Now() const = 0;  // local time, to the millisecond
};

// The clock in use: the system's, until another is installed. The caller keeps ownership; null puts the system's back.
const Clock& GetClock();
void SetClock(const Clock* clock);

}  // namespace quellbrook
