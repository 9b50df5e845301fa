#pragma once

#include "base/DateTime.h"

namespace quellbrook {

// The workstation's wall clock. Logic reads the time only through GetClock.
class Clock {
public:
    virtual ~Clock() = default;
    virtual DateTime Now() const = 0;  // local time, to the millisecond
};

// The clock of the environment.
const Clock& GetClock();

}  // namespace quellbrook
