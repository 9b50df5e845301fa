#pragma once

#include "benchmarks/Paired.h"

#include <string>
#include <vector>

namespace quellbrook::bench {

// How long a user waits for the login form after the start of the program, and for the explorer after the login, beside
// an empty window of Qt. Each run is a new process of this program.
void MeasureStart(const std::string& departmentPath, bool quick, std::vector<Result>& results);

// Such a process: shows the department, or the empty window for an empty path, and prints how long each wait took in
// microseconds, the first one since the start time that the parent passes. Returns only if it fails.
int RunStart(const std::string& departmentPath, const std::string& startTime);

}  // namespace quellbrook::bench
