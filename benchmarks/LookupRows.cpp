#include "benchmarks/Rows.h"

#include "data/StoredItemSearch.h"

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>

namespace quellbrook::bench {

namespace {

// A search by a number, with the minimal conditions for property, for vehicles, or for both.
struct Lookup {
    std::string name;
    NumberSearchTypes type;
    std::string values;  // a query for numbers that exist
    std::string property;
    std::string vehicle;
};

std::string LinkedTo(const std::string& kind, const std::string& column) {
    const std::string key = kind + "No";
    return "(SELECT l." + key + " FROM Incident i CROSS JOIN Incd" + kind +
           " l ON l.IncidentNo = i.IncidentNo WHERE i." + column + " = ?1)";
}

std::vector<Lookup> Lookups() {
    const std::string incidents = " FROM Incident i INNER JOIN IncdProperty l ON l.IncidentNo = i.IncidentNo ";
    const std::string keys = "SELECT ItemNo FROM CurrentPlace WHERE ItemType = ";
    return {
        {"key of a property", NumberSearchTypes::PropertyPK, keys + "1 ORDER BY ItemNo", "p.PropertyNo = ?1", ""},
        {"key of a vehicle", NumberSearchTypes::VehiclePK, keys + "2 ORDER BY ItemNo", "", "v.VehicleNo = ?1"},
        {"incident number", NumberSearchTypes::IncidentId,
         "SELECT DISTINCT i.IncidentId" + incidents + "ORDER BY i.IncidentNo",
         "p.PropertyNo IN " + LinkedTo("Property", "IncidentId"),
         "v.VehicleNo IN " + LinkedTo("Vehicle", "IncidentId")},
        {"case number", NumberSearchTypes::CaseNumber,
         "SELECT DISTINCT i.CaseNbr" + incidents + "WHERE i.CaseNbr IS NOT NULL ORDER BY i.IncidentNo",
         "p.PropertyNo IN " + LinkedTo("Property", "CaseNbr"), "v.VehicleNo IN " + LinkedTo("Vehicle", "CaseNbr")},
        {"property identifier", NumberSearchTypes::PropertyID,
         "SELECT PropertyID FROM Property WHERE PropertyID IS NOT NULL ORDER BY PropertyNo", "p.PropertyID = ?1", ""},
        {"vehicle tag", NumberSearchTypes::VehicleTag,
         "SELECT RegNumber FROM Vehicle WHERE RegNumber IS NOT NULL ORDER BY VehicleNo", "", "v.RegNumber = ?1"},
    };
}

std::string MinimalText(const Lookup& lookup) {
    const std::string property =
        Baseline::PropertyColumns + (" WHERE " + lookup.property) + " AND t.StorageLocNo IS NOT NULL";
    const std::string vehicle =
        Baseline::VehicleColumns + (" WHERE " + lookup.vehicle) + " AND t.StorageLocNo IS NOT NULL";
    if (lookup.vehicle.empty()) return property;
    if (lookup.property.empty()) return vehicle;
    return property + " UNION ALL " + vehicle;
}

// Only a text without wildcards can be compared by equality.
bool IsPlain(const std::string& value) { return !value.empty() && value.find('*') == std::string::npos; }

}  // namespace

Statement BestLookup(Baseline& baseline, NumberSearchTypes type) {
    for (const Lookup& lookup : Lookups())
        if (lookup.type == type) return baseline.Prepare(MinimalText(lookup));
    throw std::invalid_argument("There is no baseline for this type of number.");
}

void MeasureLookups(Baseline& baseline, std::vector<Result>& results) {
    for (const Lookup& lookup : Lookups()) {
        std::vector<std::string> values = Spread(baseline.Texts(lookup.values), 500);
        std::erase_if(values, [](const std::string& value) { return !IsPlain(value); });
        Statement statement = baseline.Prepare(MinimalText(lookup));
        size_t next = 0, theirNext = 0;
        const auto ours = [&](const std::string& value) {
            return StoredItemSearch().WithNumber(lookup.type, value).ExecuteRaw();
        };
        const auto theirs = [&](const std::string& value) { return Baseline::ReadItems(statement.Bind(1, value)); };
        for (const std::string& value : values)
            Require(ours(value).size() == theirs(value).size(),
                    "The baseline finds other items by " + lookup.name + ".");
        const PairedTimes times =
            MeasurePair([&] { benchmark::DoNotOptimize(ours(values[next++ % values.size()]).size()); },
                        [&] { benchmark::DoNotOptimize(theirs(values[theirNext++ % values.size()]).size()); }, 21, 100);
        results.push_back({"search by " + lookup.name + ", as rows", 1, "us", times.ours, times.baseline, 2.5});
    }
}

}  // namespace quellbrook::bench
