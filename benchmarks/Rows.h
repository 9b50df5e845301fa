#pragma once

#include "benchmarks/Baseline.h"
#include "benchmarks/Paired.h"

#include <string>
#include <vector>

namespace quellbrook::bench {

// The rows of the table, each beside what it is measured against. The department is installed in HostServices.
void MeasureItemByKey(Baseline& baseline, std::vector<Result>& results);
void MeasureLookups(Baseline& baseline, std::vector<Result>& results);
void MeasureLocationContents(Baseline& baseline, std::vector<Result>& results);
void MeasureDescriptions(Baseline& baseline, std::vector<Result>& results);
void MeasureManyHits(Baseline& baseline, std::vector<Result>& results);
void MeasureTransfers(Baseline& baseline, std::vector<Result>& results);
void MeasureChain(Baseline& baseline, std::vector<Result>& results);
void MeasureRelations(Baseline& baseline, std::vector<Result>& results);
// The component's own, not the department's: whether dialogs and views keep their pace and leave nothing behind.
void MeasureShell(bool quick, std::vector<Result>& results);
// What an event that is no key pays for the hook on the keys. Needs the application, and no hook in place.
void MeasureKeyHook(std::vector<Result>& results);
// walkBar: in milliseconds, for the whole tree.
void MeasureLocationTree(Baseline& baseline, double walkBar, std::vector<Result>& results);

// `count` of the values, spread over all of them.
template <typename Value>
std::vector<Value> Spread(const std::vector<Value>& values, size_t count) {
    std::vector<Value> spread;
    for (size_t i = 0; i < count; ++i) spread.push_back(values.at(i * 7919 % values.size()));
    return spread;
}

}  // namespace quellbrook::bench
