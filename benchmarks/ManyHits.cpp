#include "benchmarks/Rows.h"

#include "data/StoredItemSearch.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <string>

namespace quellbrook::bench {

namespace {

constexpr int32_t rowsOnAPage = 50;

const std::string bareText =
    Baseline::PropertyColumns + std::string(" WHERE p.Description LIKE '%' AND t.StorageLocNo IS NOT NULL UNION ALL ") +
    Baseline::VehicleColumns + " WHERE " + Baseline::VehicleDescription + " LIKE '%' AND t.StorageLocNo IS NOT NULL";

std::shared_ptr<StoredItemList> FindAll() {
    auto items = StoredItemSearch().WithDescription("*").Execute();
    for (int32_t row = 0; row < rowsOnAPage; ++row) benchmark::DoNotOptimize(items->ItemAt(row).get());
    return items;
}

double BytesInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

}  // namespace

// Finds everything in storage that has a description.
void MeasureManyHits(Baseline& baseline, std::vector<Result>& results) {
    Statement statement = baseline.Prepare(bareText);
    int count = 0;
    const PairedTimes times = MeasurePair([&] { count = FindAll()->Count(); },
                                          [&] {
                                              int rows = 0;
                                              while (statement.Step()) ++rows;
                                              Require(rows == count, "The baseline steps through other rows.");
                                          },
                                          3, 1);
    results.push_back({"very many hits to the first page, over bare steps", count, "ms", times.ours / 1000,
                       times.baseline / 1000, 2});

    const double idle = BytesInUse();
    const auto items = FindAll();
    results.push_back({"memory of very many hits, bytes a hit",
                       items->Count(),
                       "B",
                       (BytesInUse() - idle) / items->Count(),
                       {},
                       300});
}

}  // namespace quellbrook::bench
