#include "benchmarks/Rows.h"

#include "data/StorageLocationStatic.h"
#include "data/StoredItemSearch.h"

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

namespace quellbrook::bench {

namespace {

std::vector<int32_t> Sample(const std::vector<int32_t>& keys, size_t count) {
    std::vector<int32_t> sample;
    for (size_t i = 0; i < count; ++i) sample.push_back(keys.at(i * 7919 % keys.size()));
    return sample;
}

void Require(bool found, const char* what) {
    if (!found) throw std::runtime_error(what);
}

}  // namespace

void MeasureItemByKey(Baseline& baseline, std::vector<Result>& results) {
    const auto properties = Sample(
        baseline.Integers("SELECT ItemNo FROM CurrentPlace WHERE ItemType = 1 ORDER BY ItemNo"), 500);
    const auto vehicles = Sample(
        baseline.Integers("SELECT ItemNo FROM CurrentPlace WHERE ItemType = 2 ORDER BY ItemNo"), 500);
    size_t ours = 0, theirs = 0;
    const auto find = [](NumberSearchTypes type, int32_t key) {
        const auto items = StoredItemSearch().WithNumber(type, std::to_string(key)).Execute();
        Require(items->Count() == 1, "An item was not found by its key.");
        benchmark::DoNotOptimize(items->ItemAt(0)->DisplayID().size());
    };
    const PairedTimes times = MeasurePair(
        [&] {
            find(NumberSearchTypes::PropertyPK, properties[ours % properties.size()]);
            find(NumberSearchTypes::VehiclePK, vehicles[ours++ % vehicles.size()]);
        },
        [&] {
            const auto property = baseline.Property(properties[theirs % properties.size()]);
            const auto vehicle = baseline.Vehicle(vehicles[theirs++ % vehicles.size()]);
            Require(property && vehicle, "The baseline did not find an item.");
            benchmark::DoNotOptimize(property->displayId.size() + vehicle->displayId.size());
        },
        21, 200);
    results.push_back({"item by key, property and vehicle, as objects", 2, "us", times.ours, times.baseline, 4});
}

void MeasureLocationContents(Baseline& baseline, std::vector<Result>& results) {
    const auto places = baseline.Integers(
        "SELECT StorageLocNo FROM CurrentPlace GROUP BY StorageLocNo ORDER BY ABS(COUNT(*) - 190), StorageLocNo LIMIT 1");
    const StorageLocationRef location = GetStorageLocationStatic().FindByID(places.at(0));
    Require(location != nullptr, "The location with 190 items is not in the location document.");
    int count = 0;
    const PairedTimes times = MeasurePair(
        [&] {
            const auto items = location->StoredItems();
            count = items->Count();
            std::vector<StoredItemRef> objects;
            for (int32_t i = 0; i < count; ++i) objects.push_back(items->ItemAt(i));
            benchmark::DoNotOptimize(objects.data());
        },
        [&] {
            const auto items = baseline.Contents(places[0]);
            Require(count == static_cast<int>(items.size()), "The baseline reads other contents.");
            benchmark::DoNotOptimize(items.data());
        },
        31, 10);
    results.push_back({"contents of a location, as objects", count, "us", times.ours, times.baseline, 3});
}

}  // namespace quellbrook::bench
