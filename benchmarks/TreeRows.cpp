#include "benchmarks/Rows.h"

#include "data/StorageLocationStatic.h"

#include <benchmark/benchmark.h>

namespace quellbrook::bench {

namespace {

size_t Walk(const StorageLocation& location) {
    size_t count = 0;
    for (const StorageLocationRef& sub : location.SubLocations()) count += 1 + Walk(*sub);
    return count;
}

}  // namespace

void MeasureLocationTree(Baseline& baseline, double walkBar, std::vector<Result>& results) {
    Statement statement = baseline.Prepare("SELECT * FROM StorageLocation ORDER BY Name, IdNo");
    int count = 0;
    const PairedTimes loaded = MeasurePair([] { HostLocationData().Reload(); },
                                           [&] {
                                               count = 0;
                                               while (statement.Step()) ++count;
                                           },
                                           11, 1);
    results.push_back({"locations loaded, over bare steps", count, "us", loaded.ours, loaded.baseline, 8});

    size_t walked = 0;
    const double time = Measure(
        [&] {
            walked = 0;
            for (const StorageLocationRef& root : GetStorageLocationStatic().Roots()) walked += Walk(*root);
            benchmark::DoNotOptimize(walked);
        },
        21, 1);
    Require(static_cast<int>(walked) == count, "The walk did not meet every location.");
    results.push_back({"whole location tree walked, as objects", count, "ms", time / 1000, {}, walkBar});
}

}  // namespace quellbrook::bench
