#pragma once

#include "benchmarks/Baseline.h"
#include "benchmarks/Paired.h"

#include <vector>

namespace quellbrook::bench {

// The rows of the table, each beside what it is measured against. The department is installed in HostServices.
void MeasureItemByKey(Baseline& baseline, std::vector<Result>& results);
void MeasureLocationContents(Baseline& baseline, std::vector<Result>& results);
void MeasureTransfers(Baseline& baseline, std::vector<Result>& results);
void MeasureLocationTree(std::vector<Result>& results);

}  // namespace quellbrook::bench
