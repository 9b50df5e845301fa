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

void MeasureLocationTree(std::vector<Result>& results) {
    size_t count = 0;
    const double time = Measure(
        [&] {
            count = 0;
            for (const StorageLocationRef& root : GetStorageLocationStatic().Roots()) count += Walk(*root);
            benchmark::DoNotOptimize(count);
        },
        21, 1);
    results.push_back({"whole location tree walked, as objects", static_cast<int>(count), "ms", time / 1000, {}, 10});
}

}  // namespace quellbrook::bench
