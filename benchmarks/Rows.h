#pragma once

#include "benchmarks/Baseline.h"
#include "benchmarks/Paired.h"

#include "data/StoredItemQuery.h"

#include <string>
#include <vector>

class QWidget;

namespace quellbrook::bench {

// Each function appends its rows of the table. The department must be installed in HostServices.
void MeasureItemByKey(Baseline& baseline, std::vector<Result>& results);
void MeasureLookups(Baseline& baseline, std::vector<Result>& results);
void MeasureLocationContents(Baseline& baseline, std::vector<Result>& results);
void MeasureDescriptions(Baseline& baseline, std::vector<Result>& results);
void MeasureBroadCriteria(Baseline& baseline, std::vector<Result>& results);
void MeasureManyHits(Baseline& baseline, std::vector<Result>& results);
void MeasureTransfers(Baseline& baseline, std::vector<Result>& results);
void MeasureChain(Baseline& baseline, std::vector<Result>& results);
void MeasureRelations(Baseline& baseline, std::vector<Result>& results);
// Whether dialogs and views stay fast and free their memory; then MeasureExplorer.
void MeasureShell(bool quick, Baseline& baseline, std::vector<Result>& results);
// What the user waits for in the explorer of a visible shell.
void MeasureExplorer(QWidget& shell, Baseline& baseline, std::vector<Result>& results);
// How long the rows of a chain of custody keep the message loop from running.
void MeasureChainOnScreen(std::vector<Result>& results);
// The cost of the keyboard hook for an event that is not a key. Requires an application without a hook.
void MeasureKeyHook(std::vector<Result>& results);
// A location that every item has passed, over one that few have passed, with about as many items. For a generated
// department.
void MeasureBusyLocation(const std::string& engine, std::vector<Result>& results);
// Everything on a database server. Transfers remain in the department.
void MeasureServer(const std::string& connectionString, std::vector<Result>& results);
// walkBar: in milliseconds, for the whole tree.
void MeasureLocationTree(Baseline& baseline, double walkBar, std::vector<Result>& results);

// The best statements for a number and for a description. Bind the value or the pattern as parameter 1.
Statement BestLookup(Baseline& baseline, NumberSearchTypes type);
Statement BestDescription(Baseline& baseline);

// The location with about 190 items.
int32_t UsualLocation(Baseline& baseline);

// Selects `count` values, spread over all of them.
template <typename Value>
std::vector<Value> Spread(const std::vector<Value>& values, size_t count) {
    std::vector<Value> spread;
    for (size_t i = 0; i < count; ++i) spread.push_back(values.at(i * 7919 % values.size()));
    return spread;
}

}  // namespace quellbrook::bench
