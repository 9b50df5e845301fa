#include "benchmarks/Rows.h"

#include "data/CustodyRecords.h"
#include "data/StoredItemSearch.h"

#include <benchmark/benchmark.h>

#include <string>

namespace quellbrook::bench {

namespace {

constexpr int32_t chainLength = 1000;
constexpr size_t itemsOfARun = 100;

// The first piece of property in storage, after extending its chain to this length.
int32_t ItemWithALongChain(Baseline& baseline) {
    const int32_t item =
        baseline.Integers("SELECT MIN(ItemNo) FROM CurrentPlace WHERE ItemType = 1 AND ItemNo > 1000").at(0);
    const std::string key = " WHERE PropertyNo = " + std::to_string(item);
    const int32_t length = baseline.Integers("SELECT COUNT(*) FROM PropertyTracking" + key).at(0);
    if (length >= chainLength) return item;
    baseline.Run(
        "BEGIN IMMEDIATE;"
        "INSERT INTO PropertyTracking SELECT t.PropertyNo, n.value + t.SeqNo, t.ReceivedBy, t.ReceivedFrom, "
        "strftime('%Y-%m-%dT%H:%M:%f', t.DateReceived, '+' || n.value || ' minutes'), t.CustodyReasonNo, "
        "t.StorageLocNo, t.LastUpdated FROM (WITH RECURSIVE c(value) AS (SELECT 1 UNION ALL SELECT value + 1 "
        "FROM c WHERE value < " +
        std::to_string(chainLength - length) +
        ") SELECT value FROM c) n, "
        "(SELECT * FROM PropertyTracking" +
        key +
        " ORDER BY SeqNo DESC LIMIT 1) t;"
        "UPDATE Property SET CurrTrackSeq = (SELECT MAX(SeqNo) FROM PropertyTracking" +
        key + ")" + key + ";COMMIT");
    return item;
}

struct Record {
    int32_t item, sequence, receivedBy, receivedFrom, reason, location;
    std::string received, updated;
};

std::vector<StoredItemRef> SomeItems(Baseline& baseline, std::vector<int32_t>& keys) {
    keys = Spread(baseline.Integers("SELECT ItemNo FROM CurrentPlace WHERE ItemType = 1 ORDER BY ItemNo"), itemsOfARun);
    std::vector<StoredItemRef> items;
    for (const int32_t key : keys)
        items.push_back(
            StoredItemSearch().WithNumber(NumberSearchTypes::PropertyPK, std::to_string(key)).Execute()->ItemAt(0));
    return items;
}

}  // namespace

void MeasureChain(Baseline& baseline, std::vector<Result>& results) {
    const int32_t key = ItemWithALongChain(baseline);
    const StoredItemRef item =
        StoredItemSearch().WithNumber(NumberSearchTypes::PropertyPK, std::to_string(key)).Execute()->ItemAt(0);
    Statement statement = baseline.Prepare(
        "SELECT PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, CustodyReasonNo, StorageLocNo, DateReceived, LastUpdated "
        "FROM PropertyTracking WHERE PropertyNo = ?1 ORDER BY DateReceived DESC, LastUpdated DESC");
    size_t count = 0;
    const PairedTimes times = MeasurePair(
        [&] {
            const TrackingRecordList records = item->TrackingRecords();
            count = records.size();
            benchmark::DoNotOptimize(records.data());
        },
        [&] {
            std::vector<std::unique_ptr<Record>> records;
            statement.Bind(1, key);
            while (statement.Step())
                records.push_back(std::make_unique<Record>(
                    Record{statement.Integer(0), statement.Integer(1), statement.Integer(2), statement.Integer(3),
                           statement.Integer(4), statement.Integer(5), statement.Text(6), statement.Text(7)}));
            Require(records.size() == count, "The baseline reads another chain.");
            benchmark::DoNotOptimize(records.data());
        },
        31, 5);
    results.push_back({"a chain of custody, as objects", static_cast<int>(count), "us", times.ours, times.baseline, 2});
}

void MeasureRelations(Baseline& baseline, std::vector<Result>& results) {
    constexpr int turns = 21;
    // An item caches its data, so every iteration uses new items.
    std::vector<std::vector<StoredItemRef>> fresh;
    std::vector<int32_t> keys;
    for (int turn = 0; turn <= turns; ++turn) fresh.push_back(SomeItems(baseline, keys));
    Statement incidents = baseline.Prepare(
        "SELECT DISTINCT i.IncidentNo, i.IncidentId, i.IsSecured FROM IncdProperty l INNER JOIN Incident i ON "
        "i.IncidentNo = l.IncidentNo WHERE l.PropertyNo = ?1");
    Statement cases = baseline.Prepare(
        "SELECT DISTINCT i.CaseNbr FROM IncdProperty l INNER JOIN Incident i ON i.IncidentNo = l.IncidentNo "
        "WHERE l.PropertyNo = ?1");
    struct Incident {
        int32_t number;
        std::string id;
        bool secured;
    };
    size_t turn = 0, found = 0;
    const PairedTimes times = MeasurePair(
        [&] {
            found = 0;
            for (const StoredItemRef& item : fresh.at(turn))
                found += item->RelatedIncidents().size() + item->RelatedCases().size();
            ++turn;
        },
        [&] {
            size_t read = 0;
            for (const int32_t key : keys) {
                std::vector<std::unique_ptr<Incident>> related;
                std::vector<std::string> numbers;
                incidents.Bind(1, key);
                while (incidents.Step())
                    related.push_back(std::make_unique<Incident>(
                        Incident{incidents.Integer(0), incidents.Text(1), incidents.Integer(2) != 0}));
                cases.Bind(1, key);
                while (cases.Step()) numbers.push_back(cases.Text(0));
                read += related.size() + numbers.size();
            }
            Require(read == found, "The baseline reads other incidents and cases.");
        },
        turns, 1);
    results.push_back({"incidents and cases of items, as objects", static_cast<int>(itemsOfARun), "us", times.ours,
                       times.baseline, 2});
}

}  // namespace quellbrook::bench
