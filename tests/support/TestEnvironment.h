#pragma once

#include "base/Environment.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RecordingErrorLog.h"
#include "tests/support/RecordingScreen.h"

namespace quellbrook::testing {

// The current environment with a recording screen, a fixed clock and a log that accepts only announced entries,
// installed for its own lifetime. A test changes single members through ->.
class TestEnvironment : public EnvironmentScope {
public:
    TestEnvironment() {
        (*this)->screen = &screen;
        (*this)->clock = &clock;
        (*this)->errorLog = &log;
    }

    RecordingScreen screen;
    FixedClock clock;
    RecordingErrorLog log;
};

}  // namespace quellbrook::testing
