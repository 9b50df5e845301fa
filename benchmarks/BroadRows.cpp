#include "benchmarks/Rows.h"

#include "data/StorageLocationStatic.h"
#include "data/StoredItemSearch.h"

#include <benchmark/benchmark.h>

#include <string>

namespace quellbrook::bench {

namespace {

// Reads the vehicles before their custody rows.
std::string EveryVehicleText() {
    std::string text = Baseline::VehicleColumns;
    const std::string leftJoin = "LEFT JOIN VehicleTracking";
    text.replace(text.find(leftJoin), leftJoin.size(), "CROSS JOIN VehicleTracking");
    return text + " WHERE t.StorageLocNo IS NOT NULL";
}

// Whether an item is linked to an incident whose number matches ?1.
std::string IsLinked(const std::string& link, const std::string& key, const std::string& item) {
    return "EXISTS (SELECT 1 FROM " + link + " l CROSS JOIN Incident i WHERE l." + key + " = " + item +
           " AND i.IncidentNo = l.IncidentNo AND i.IncidentId LIKE ?1)";
}

const std::string isLinkedProperty = IsLinked("IncdProperty", "PropertyNo", "p.PropertyNo");
const std::string isLinkedVehicle = IsLinked("IncdVehicle", "VehicleNo", "v.VehicleNo");

std::string StoredIn(const std::string& key, const char* type) {
    return " WHERE " + key + " IN (SELECT ItemNo FROM CurrentPlace WHERE StorageLocNo = ?2 AND ItemType = " + type +
           ") AND +t.StorageLocNo = ?2 AND ";
}

const std::string atLocationText = Baseline::PropertyColumns + StoredIn("p.PropertyNo", "1") + isLinkedProperty +
                                   " UNION ALL " + Baseline::VehicleColumns + StoredIn("v.VehicleNo", "2") +
                                   isLinkedVehicle;

const std::string untrackedText = Baseline::PropertyColumns + std::string(" WHERE p.CurrTrackSeq IS NULL AND ") +
                                  isLinkedProperty + " UNION ALL " + Baseline::VehicleColumns +
                                  " WHERE v.CurrTrackSeq IS NULL AND " + isLinkedVehicle;

const std::string pattern = "%7%";

void MeasureSearch(const char* name, const std::function<StoredItemSearch()>& search, Statement& best,
                   const std::function<void(Statement&)>& bind, int turns, std::vector<Result>& results) {
    size_t count = 0;
    const PairedTimes times = MeasurePair([&] { count = search().ExecuteRaw().size(); },
                                          [&] {
                                              bind(best);
                                              Require(Baseline::ReadItems(best).size() == count,
                                                      std::string("The baseline finds other items: ") + name);
                                          },
                                          turns, 1);
    results.push_back({name, static_cast<int>(count), "us", times.ours, times.baseline, 2});
}

}  // namespace

// Searches whose criteria match very many rows of one table and few of another.
void MeasureBroadCriteria(Baseline& baseline, std::vector<Result>& results) {
    Statement vehicles = baseline.Prepare(EveryVehicleText());
    MeasureSearch(
        "every vehicle, as rows", [] { return StoredItemSearch().OfType(StoredItemTypes::vehicle); }, vehicles,
        [](Statement&) {}, 5, results);

    const int32_t locationId = UsualLocation(baseline);
    const StorageLocationRef location = GetStorageLocationStatic().FindByID(locationId);
    Statement atLocation = baseline.Prepare(atLocationText);
    MeasureSearch(
        "location and a part of an incident number, as rows",
        [&] { return StoredItemSearch().InLocation(location).WithNumber(NumberSearchTypes::IncidentId, "*7*"); },
        atLocation, [&](Statement& best) { best.Bind(1, pattern).Bind(2, locationId); }, 21, results);

    Statement untracked = baseline.Prepare(untrackedText);
    MeasureSearch(
        "untracked and a part of an incident number, as rows",
        [] { return StoredItemSearch().Untracked().WithNumber(NumberSearchTypes::IncidentId, "*7*"); }, untracked,
        [](Statement& best) { best.Bind(1, pattern); }, 5, results);
}

}  // namespace quellbrook::bench
