#pragma once

#include "base/ErrorLog.h"

#include <string>

namespace quellbrook::testing {

// For tests in which failures are part of the scenario, and their number depends on chance.
class IgnoredErrorLog : public ErrorLog {
public:
    void Log(const std::string&, const std::string&, const std::string&) override {}
};

}  // namespace quellbrook::testing
