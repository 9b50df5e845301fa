#include "benchmarks/Rows.h"

#include "data/StoredItemSearch.h"

#include <benchmark/benchmark.h>

#include <string>

namespace quellbrook::bench {

namespace {

// Property uses the trigram index. A vehicle's description is composed for each row.
const std::string bestText =
    Baseline::PropertyColumns +
    std::string(
        " WHERE p.PropertyNo IN (SELECT rowid FROM PropertyDescription WHERE Description LIKE ?1) AND "
        "t.StorageLocNo IS NOT NULL UNION ALL ") +
    Baseline::VehicleColumns + " WHERE " + Baseline::VehicleDescription + " LIKE ?1 AND t.StorageLocNo IS NOT NULL";

}  // namespace

Statement BestDescription(Baseline& baseline) { return baseline.Prepare(bestText); }

void MeasureDescriptions(Baseline& baseline, std::vector<Result>& results) {
    for (const char* const words : {"red handles", "silver", "no such thing"}) {
        Statement statement = BestDescription(baseline);
        const std::string pattern = "%" + std::string(words) + "%";
        size_t count = 0;
        const PairedTimes times = MeasurePair(
            [&] { count = StoredItemSearch().WithDescription("*" + std::string(words) + "*").ExecuteRaw().size(); },
            [&] {
                Require(Baseline::ReadItems(statement.Bind(1, pattern)).size() == count,
                        "The baseline finds other descriptions.");
            },
            11, 1);
        results.push_back({"description with '" + std::string(words) + "', as rows", static_cast<int>(count), "us",
                           times.ours, times.baseline, 1.5});
    }
}

}  // namespace quellbrook::bench
