#include "benchmarks/Rows.h"

#include "data/StorageLocationStatic.h"
#include "data/StoredItemSearch.h"

#include <benchmark/benchmark.h>

#include <string>

namespace quellbrook::bench {

namespace {

const std::string inStorage = " AND t.StorageLocNo IS NOT NULL";

// Takes candidates from CurrentPlace and checks them against the item's current custody row.
std::string StoredIn(const std::string& key, const char* type) {
    return " WHERE " + key + " IN (SELECT ItemNo FROM CurrentPlace WHERE StorageLocNo = ?1 AND ItemType = " + type +
           ") AND +t.StorageLocNo = ?1";
}

const std::string contentsText = Baseline::PropertyColumns + StoredIn("p.PropertyNo", "1") + " UNION ALL " +
                                 Baseline::VehicleColumns + StoredIn("v.VehicleNo", "2");

const std::string countText =
    "SELECT (SELECT COUNT(*) FROM Property p INNER JOIN PropertyTracking t ON t.PropertyNo = p.PropertyNo AND "
    "t.SeqNo = p.CurrTrackSeq" +
    StoredIn("p.PropertyNo", "1") +
    ") + (SELECT COUNT(*) FROM Vehicle v INNER JOIN VehicleTracking t ON t.VehicleNo = v.VehicleNo AND "
    "t.SeqNo = v.CurrTrackSeq" +
    StoredIn("v.VehicleNo", "2") + ")";

}  // namespace

int32_t UsualLocation(Baseline& baseline) {
    return baseline
        .Integers(
            "SELECT StorageLocNo FROM CurrentPlace GROUP BY StorageLocNo "
            "ORDER BY ABS(COUNT(*) - 190), StorageLocNo LIMIT 1")
        .at(0);
}

void MeasureItemByKey(Baseline& baseline, std::vector<Result>& results) {
    const auto keysOf = [&](const char* type) {
        return Spread(baseline.Integers(std::string("SELECT ItemNo FROM CurrentPlace WHERE ItemType = ") + type +
                                        " ORDER BY ItemNo"),
                      500);
    };
    const auto properties = keysOf("1"), vehicles = keysOf("2");
    Statement property = baseline.Prepare(Baseline::PropertyColumns + (" WHERE p.PropertyNo = ?1" + inStorage));
    Statement vehicle = baseline.Prepare(Baseline::VehicleColumns + (" WHERE v.VehicleNo = ?1" + inStorage));
    size_t ours = 0, theirs = 0;
    const auto find = [](NumberSearchTypes type, int32_t key) {
        const auto items = StoredItemSearch().WithNumber(type, std::to_string(key)).Execute();
        Require(items->Count() == 1, "An item was not found by its key.");
        benchmark::DoNotOptimize(items->ItemAt(0)->DisplayID().size());
    };
    const auto read = [](Statement& statement, int32_t key) {
        const Baseline::Items items = Baseline::ReadItems(statement.Bind(1, key));
        Require(items.size() == 1, "The baseline did not find an item.");
        benchmark::DoNotOptimize(items[0]->displayId.size());
    };
    const PairedTimes times = MeasurePair(
        [&] {
            find(NumberSearchTypes::PropertyPK, properties[ours % properties.size()]);
            find(NumberSearchTypes::VehiclePK, vehicles[ours++ % vehicles.size()]);
        },
        [&] {
            read(property, properties[theirs % properties.size()]);
            read(vehicle, vehicles[theirs++ % vehicles.size()]);
        },
        21, 200);
    results.push_back({"item by key, property and vehicle, as objects", 2, "us", times.ours, times.baseline, 4});
}

void MeasureLocationContents(Baseline& baseline, std::vector<Result>& results) {
    const int32_t locationId = UsualLocation(baseline);
    const StorageLocationRef location = GetStorageLocationStatic().FindByID(locationId);
    Require(location != nullptr, "The location with 190 items is not in the location document.");
    Statement contents = baseline.Prepare(contentsText);
    Statement counter = baseline.Prepare(countText);
    int count = 0;
    const PairedTimes listed = MeasurePair(
        [&] {
            const auto items = location->StoredItems();
            count = items->Count();
            std::vector<StoredItemRef> objects;
            for (int32_t i = 0; i < count; ++i) objects.push_back(items->ItemAt(i));
            benchmark::DoNotOptimize(objects.data());
        },
        [&] {
            const Baseline::Items items = Baseline::ReadItems(contents.Bind(1, locationId));
            Require(count == static_cast<int>(items.size()), "The baseline reads other contents.");
            benchmark::DoNotOptimize(items.data());
        },
        31, 10);
    results.push_back({"contents of a location, as objects", count, "us", listed.ours, listed.baseline, 2});

    const PairedTimes counted = MeasurePair(
        [&] { Require(location->StoredItemsCount() == count, "The count is another than that of the contents."); },
        [&] {
            counter.Bind(1, locationId).Step();
            Require(counter.Integer(0) == count, "The baseline counts other contents.");
            counter.Step();
        },
        31, 20);
    results.push_back({"count of a location's contents", count, "us", counted.ours, counted.baseline, 2});
}

}  // namespace quellbrook::bench
