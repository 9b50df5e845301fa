#include "benchmarks/OdbcBaseline.h"
#include "benchmarks/Rows.h"
#include "benchmarks/TransferBatch.h"

#include "data/StorageLocationStatic.h"
#include "data/StoredItemSearch.h"
#include "demo/sample/SampleDepartment.h"

#include <benchmark/benchmark.h>
#include <fmt/core.h>
#include <fmt/ranges.h>

#include <string>
#include <vector>

namespace quellbrook::bench {

namespace {

constexpr double millisecond = 1000;  // microseconds

struct Lookup {
    std::string name;
    NumberSearchTypes type;
    std::string values;  // a query for numbers that exist
    std::string property;
    std::string vehicle;
    double bar = 2.5;
};

std::string IsText(const std::string& column) {
    return "LOWER(" + column + " COLLATE \"C\") = LOWER(CAST(? AS TEXT) COLLATE \"C\")";
}

std::string LinkedTo(const std::string& kind, const std::string& column) {
    const std::string key = kind + "No";
    return "(SELECT l." + key + " FROM Incident i INNER JOIN Incd" + kind + " l ON l.IncidentNo = i.IncidentNo WHERE " +
           IsText("i." + column) + ")";
}

const std::vector<Lookup>& Lookups() {
    static const std::string keys = "SELECT ItemNo FROM CurrentPlace WHERE ItemType = ";
    static const std::string incidents =
        " FROM Incident i WHERE EXISTS (SELECT 1 FROM IncdProperty l WHERE l.IncidentNo = i.IncidentNo) AND ";
    static const std::vector<Lookup> lookups = {
        {"key of a property", NumberSearchTypes::PropertyPK, keys + "1 ORDER BY ItemNo", "p.PropertyNo = ?", "", 2},
        {"key of a vehicle", NumberSearchTypes::VehiclePK, keys + "2 ORDER BY ItemNo", "", "v.VehicleNo = ?", 2},
        {"incident number", NumberSearchTypes::IncidentId,
         "SELECT i.IncidentId" + incidents + "i.IncidentId IS NOT NULL ORDER BY i.IncidentNo",
         "p.PropertyNo IN " + LinkedTo("Property", "IncidentId"),
         "v.VehicleNo IN " + LinkedTo("Vehicle", "IncidentId")},
        {"case number", NumberSearchTypes::CaseNumber,
         "SELECT i.CaseNbr" + incidents + "i.CaseNbr IS NOT NULL ORDER BY i.IncidentNo",
         "p.PropertyNo IN " + LinkedTo("Property", "CaseNbr"), "v.VehicleNo IN " + LinkedTo("Vehicle", "CaseNbr")},
        {"property identifier", NumberSearchTypes::PropertyID,
         "SELECT PropertyID FROM Property WHERE PropertyID IS NOT NULL ORDER BY PropertyNo", IsText("p.PropertyID"),
         ""},
        {"vehicle tag", NumberSearchTypes::VehicleTag,
         "SELECT RegNumber FROM Vehicle WHERE RegNumber IS NOT NULL ORDER BY VehicleNo", "", IsText("v.RegNumber")},
    };
    return lookups;
}

// Each condition is empty for a kind that is not searched.
std::string MinimalText(const std::string& property, const std::string& vehicle) {
    std::vector<std::string> halves;
    if (!property.empty())
        halves.push_back(Baseline::PropertyColumns + (" WHERE " + property) + " AND t.StorageLocNo IS NOT NULL");
    if (!vehicle.empty())
        halves.push_back(Baseline::VehicleColumns + (" WHERE " + vehicle) + " AND t.StorageLocNo IS NOT NULL");
    return fmt::format("{}", fmt::join(halves, " UNION ALL "));
}

OdbcBaseline::Query BestNumber(OdbcBaseline& baseline, const Lookup& lookup) {
    const bool isKey = lookup.type == NumberSearchTypes::PropertyPK || lookup.type == NumberSearchTypes::VehiclePK;
    return {baseline, MinimalText(lookup.property, lookup.vehicle), isKey};
}

OdbcBaseline::Query BestDescriptionOnServer(OdbcBaseline& baseline) {
    const auto isLike = [](const std::string& text) {
        return "LOWER((" + text + ") COLLATE \"C\") LIKE LOWER(CAST(? AS TEXT) COLLATE \"C\")";
    };
    return {baseline, MinimalText(isLike("p.Description"), isLike(Baseline::VehicleDescription)), false};
}

void MeasureLookupsOnServer(OdbcBaseline& baseline, std::vector<Result>& results) {
    for (const Lookup& lookup : Lookups()) {
        std::vector<std::string> values = Spread(baseline.Texts(lookup.values), 300);
        std::erase_if(values, [](const std::string& value) {
            return value.find_first_not_of(' ') == value.npos || value.find('*') != value.npos;
        });
        OdbcBaseline::Query best = BestNumber(baseline, lookup);
        const auto ours = [&](const std::string& value) {
            return StoredItemSearch().WithNumber(lookup.type, value).ExecuteRaw().size();
        };
        for (const std::string& value : values)
            Require(ours(value) == best.Read(value).size(), "The baseline finds other items by " + lookup.name + ".");
        size_t next = 0, theirNext = 0;
        const PairedTimes times = MeasurePair(
            [&] { benchmark::DoNotOptimize(ours(values[next++ % values.size()])); },
            [&] { benchmark::DoNotOptimize(best.Read(values[theirNext++ % values.size()]).size()); }, 21, 40);
        results.push_back(
            {"PostgreSQL: search by " + lookup.name + ", as rows", 1, "us", times.ours, times.baseline, lookup.bar});
    }
}

void MeasureFiveSearchesOnServer(OdbcBaseline& baseline, std::vector<Result>& results) {
    constexpr NumberSearchTypes types[] = {NumberSearchTypes::PropertyID, NumberSearchTypes::VehicleTag,
                                           NumberSearchTypes::IncidentId, NumberSearchTypes::CaseNumber};
    const std::string identifier =
        baseline.Texts("SELECT PropertyID FROM Property WHERE PropertyID LIKE '____-%' ORDER BY PropertyNo LIMIT 1")
            .at(0);
    std::vector<OdbcBaseline::Query> numbers;
    for (const NumberSearchTypes type : types)
        for (const Lookup& lookup : Lookups())
            if (lookup.type == type) numbers.push_back(BestNumber(baseline, lookup));
    OdbcBaseline::Query description = BestDescriptionOnServer(baseline);
    for (const std::string& text : {identifier, std::string("red handles")}) {
        int found = 0, theirs = 0;
        const PairedTimes times = MeasurePair(
            [&] {
                found = 0;
                for (const NumberSearchTypes type : types)
                    found += StoredItemSearch().WithNumber(type, text).Execute()->Count();
                found += StoredItemSearch().WithDescription("*" + text + "*").Execute()->Count();
            },
            [&] {
                theirs = 0;
                for (OdbcBaseline::Query& number : numbers) theirs += static_cast<int>(number.Read(text).size());
                theirs += static_cast<int>(description.Read("%" + text + "%").size());
            },
            11, 1);
        Require(found == theirs, "The baseline finds other items by '" + text + "'.");
        results.push_back({"PostgreSQL: the five searches of '" + text + "'", found, "ms", times.ours / millisecond,
                           times.baseline / millisecond, 1.5});
    }
}

struct Custody {
    int32_t location, by, from, reason;
    std::string moment;
};

using Items = std::vector<TransferBatch::Item>;

std::string KeysOf(const Items& items, bool vehicles) {
    std::vector<int32_t> keys;
    for (const TransferBatch::Item& item : items)
        if (item.isVehicle == vehicles) keys.push_back(item.id);
    return fmt::format("{}", fmt::join(keys, ","));
}

// The statements of the batch, in the server's own words.
std::string SameStatements(const Items& items, const Custody& custody) {
    std::string text =
        fmt::format("BEGIN;SELECT Type, ActiveFlag FROM StorageLocation WHERE IdNo = {} FOR UPDATE;", custody.location);
    for (const bool vehicles : {false, true}) {
        const std::string keys = KeysOf(items, vehicles);
        if (!keys.empty())
            text += fmt::format("SELECT {0}No, CurrTrackSeq FROM {0} WHERE {0}No IN ({1}) ORDER BY 1 FOR UPDATE;",
                                vehicles ? "Vehicle" : "Property", keys);
    }
    text += "CREATE TEMPORARY TABLE NextSeqNo (Value INT NOT NULL);INSERT INTO NextSeqNo (Value) VALUES (0);";
    for (const TransferBatch::Item& item : items)
        text += fmt::format(
            "UPDATE NextSeqNo SET Value = COALESCE((SELECT MAX(SeqNo) + 1 FROM {0}Tracking WHERE {0}No = {1}), 1);"
            "INSERT INTO {0}Tracking ({0}No, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo, "
            "StorageLocNo, LastUpdated) VALUES ({1}, (SELECT Value FROM NextSeqNo), {2}, {3}, '{4}', {5}, {6}, '{4}');"
            "UPDATE {0} SET CurrTrackSeq = (SELECT Value FROM NextSeqNo) WHERE {0}No = {1};",
            item.isVehicle ? "Vehicle" : "Property", item.id, custody.by, custody.from, custody.moment, custody.reason,
            custody.location);
    return text + "DROP TABLE NextSeqNo;COMMIT";
}

// Two statements for all items of a kind.
std::string SetBased(const Items& items, const Custody& custody) {
    std::string text = "BEGIN;";
    for (const bool vehicles : {false, true}) {
        const std::string keys = KeysOf(items, vehicles);
        if (!keys.empty())
            text += fmt::format(
                "INSERT INTO {0}Tracking ({0}No, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo, "
                "StorageLocNo, LastUpdated) SELECT {0}No, COALESCE(CurrTrackSeq, 0) + 1, {2}, {3}, TIMESTAMP '{4}', "
                "{5}, {6}, TIMESTAMP '{4}' FROM {0} WHERE {0}No IN ({1});"
                "UPDATE {0} SET CurrTrackSeq = COALESCE(CurrTrackSeq, 0) + 1 WHERE {0}No IN ({1});",
                vehicles ? "Vehicle" : "Property", keys, custody.by, custody.from, custody.moment, custody.reason,
                custody.location);
    }
    return text + "COMMIT";
}

// The items that MeasureBusyLocation reads stay where they are.
std::vector<int32_t> ShortChains(OdbcBaseline& baseline, const std::string& kind, const std::string& itemType) {
    return baseline.Integers("SELECT ItemNo FROM CurrentPlace INNER JOIN " + kind + " ON " + kind +
                             "No = ItemNo INNER JOIN StorageLocation ON IdNo = StorageLocNo WHERE ItemType = " +
                             itemType + " AND CurrTrackSeq <= 30 AND Name NOT IN ('" + SampleNames::SignInCounter +
                             "', '" + SampleNames::FullShelf + "') ORDER BY ItemNo");
}

void MeasureTransfersOnServer(OdbcBaseline& baseline, std::vector<Result>& results) {
    const auto properties = ShortChains(baseline, "Property", "1"), vehicles = ShortChains(baseline, "Vehicle", "2");
    const auto locations = baseline.Integers(
        "SELECT IdNo FROM StorageLocation WHERE Type = 2 AND COALESCE(ActiveFlag, 1) = 1 AND Name NOT IN ('" +
        std::string(SampleNames::SignInCounter) + "', '" + SampleNames::FullShelf + "') ORDER BY IdNo");
    const auto persons = baseline.Integers("SELECT PersonNo FROM Person ORDER BY PersonNo");
    const int32_t reason = baseline.Integers("SELECT Code FROM CodeTable WHERE TableNumber = 38 ORDER BY Code").at(0);
    TransferBatch::TrackSeqs trackSeqs;
    size_t turn = 0;
    for (const int count : {1, 10, 20, 100, 1000}) {
        TransferData xfer;
        xfer.DateReceived = xfer.Timestamp();
        xfer.ReceivedBy = persons.at(0);
        xfer.ReceivedFrom = persons.at(1);
        xfer.Reason = reason;
        std::vector<TransferBatch> batches;
        for (int k = 0; k < 8; ++k) batches.emplace_back(properties, vehicles, count, (17 + k) * count, trackSeqs);
        const auto nextLocation = [&] { return locations[turn++ * 31 % locations.size()]; };
        const auto batch = [&]() -> const TransferBatch& { return batches[turn / 2 % batches.size()]; };
        const auto ours = [&] {
            xfer.Location = GetStorageLocationStatic().FindByID(nextLocation());
            ExecuteTransfer(batch(), xfer);
            batch().CountTransfer();
        };
        const auto handWritten = [&](const auto& text) {
            const Custody custody{nextLocation(), persons[0], persons[1], reason, xfer.Timestamp().ToText()};
            baseline.Run(text(batch().Items(), custody));
            batch().CountTransfer();
        };
        const int turns = count <= 20 ? 81 : count == 100 ? 31 : 11;
        const PairedTimes same = MeasurePair(
            ours, [&] { handWritten(SameStatements); }, turns, 1);
        results.push_back({"PostgreSQL: transfer in one batch", count, "us", same.ours, same.baseline, 1.3});
        const PairedTimes sets = MeasurePair(
            ours, [&] { handWritten(SetBased); }, turns, 1);
        results.push_back(
            {"PostgreSQL: transfer in one batch, over sets", count, "us", sets.ours, sets.baseline, std::nullopt});
    }
}

}  // namespace

void MeasureBusyLocation(const std::string& engine, std::vector<Result>& results) {
    const StorageLocationRef root = GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal);
    StorageLocationRef busy, usual;
    const std::function<void(const StorageLocationRef&)> find = [&](const StorageLocationRef& location) {
        if (location->Name() == SampleNames::SignInCounter) busy = location;
        if (location->Name() == SampleNames::FullShelf) usual = location;
        if (busy && usual) return;
        for (const StorageLocationRef& child : location->SubLocations()) find(child);
    };
    find(root);
    Require(busy && usual, "The department lacks a location.");
    const auto read = [](StorageLocation& location) {
        benchmark::DoNotOptimize(location.StoredItemsCount());
        const auto items = location.StoredItems();
        for (int32_t i = 0; i < items->Count(); ++i) benchmark::DoNotOptimize(items->ItemAt(i).get());
    };
    const PairedTimes times = MeasurePair([&] { read(*busy); }, [&] { read(*usual); }, 21, 5);
    results.push_back({engine + ": a location that every item has passed, over another one", busy->StoredItemsCount(),
                       "us", times.ours, times.baseline, 3});
}

void MeasureServer(const std::string& connectionString, std::vector<Result>& results) {
    OdbcBaseline baseline(connectionString);
    MeasureLookupsOnServer(baseline, results);
    MeasureFiveSearchesOnServer(baseline, results);
    MeasureBusyLocation("PostgreSQL", results);
    MeasureTransfersOnServer(baseline, results);
}

}  // namespace quellbrook::bench
