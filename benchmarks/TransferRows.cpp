#include "benchmarks/Rows.h"
#include "benchmarks/TransferBatch.h"

#include "data/StorageLocationStatic.h"

#include <string>

namespace quellbrook::bench {

namespace {

constexpr int batchesInTurn = 8;

// Items at a location with a short chain, which most items have.
std::vector<int32_t> ItemsWithShortChains(Baseline& baseline, const std::string& kind, const std::string& itemType) {
    return baseline.Integers("SELECT ItemNo FROM CurrentPlace INNER JOIN " + kind + " ON " + kind +
                             "No = ItemNo WHERE ItemType = " + itemType + " AND CurrTrackSeq <= 30 ORDER BY ItemNo");
}

// The two statements of one item type: the custody row, and the item's pointer to it.
struct KindStatements {
    KindStatements(Baseline& baseline, const std::string& kind)
        : insert(baseline.Prepare(
              "INSERT INTO " + kind + "Tracking (" + kind + "No, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, " +
              "CustodyReasonNo, StorageLocNo, LastUpdated) SELECT ?1, COALESCE(MAX(SeqNo), 0) + 1, ?2, ?3, ?4, ?5, " +
              "?6, ?4 FROM " + kind + "Tracking WHERE " + kind + "No = ?1")),
          update(baseline.Prepare("UPDATE " + kind + " SET CurrTrackSeq = (SELECT MAX(SeqNo) FROM " + kind +
                                  "Tracking WHERE " + kind + "No = ?1) WHERE " + kind + "No = ?1")) {}
    Statement insert;
    Statement update;
};

// The same transfer in one transaction, with two statements per item.
class HandWritten {
public:
    explicit HandWritten(Baseline& baseline)
        : m_baseline(baseline), m_property(baseline, "Property"), m_vehicle(baseline, "Vehicle") {}

    void Transfer(const std::vector<TransferBatch::Item>& items, int32_t location, int32_t by, int32_t from,
                  int32_t reason, const std::string& moment) {
        m_baseline.Run("BEGIN IMMEDIATE");
        for (const TransferBatch::Item& item : items) {
            KindStatements& kind = item.isVehicle ? m_vehicle : m_property;
            kind.insert.Bind(1, item.id).Bind(2, by).Bind(3, from).Bind(4, moment).Bind(5, reason).Bind(6, location);
            kind.insert.Step();
            kind.update.Bind(1, item.id).Step();
        }
        m_baseline.Run("COMMIT");
    }

private:
    Baseline& m_baseline;
    KindStatements m_property;
    KindStatements m_vehicle;
};

}  // namespace

void MeasureTransfers(Baseline& baseline, std::vector<Result>& results) {
    const auto locations = baseline.Integers(
        "SELECT IdNo FROM StorageLocation WHERE Type = 2 AND COALESCE(ActiveFlag, 1) = 1 ORDER BY IdNo");
    const auto persons = baseline.Integers("SELECT PersonNo FROM Person ORDER BY PersonNo");
    const int32_t reason = baseline.Integers("SELECT Code FROM CodeTable WHERE TableNumber = 38 ORDER BY Code").at(0);
    HandWritten handWritten(baseline);
    const auto properties = ItemsWithShortChains(baseline, "Property", "1");
    const auto vehicles = ItemsWithShortChains(baseline, "Vehicle", "2");
    TransferBatch::TrackSeqs trackSeqs;
    size_t turn = 0;
    for (const int count : {1, 10, 100, 1000}) {
        std::vector<TransferBatch> batches;
        for (int k = 0; k < batchesInTurn; ++k)
            batches.emplace_back(properties, vehicles, count, (17 + k) * count, trackSeqs);
        TransferData xfer;
        xfer.DateReceived = xfer.Timestamp();
        xfer.ReceivedBy = persons.at(0);
        xfer.ReceivedFrom = persons.at(1);
        xfer.Reason = reason;
        const auto batch = [&]() -> const TransferBatch& { return batches[turn / 2 % batches.size()]; };
        const auto nextLocation = [&] { return locations[turn++ * 31 % locations.size()]; };
        const std::string moment = xfer.Timestamp().ToText();
        const PairedTimes times = MeasurePair(
            [&] {
                xfer.Location = GetStorageLocationStatic().FindByID(nextLocation());
                ExecuteTransfer(batch(), xfer);
                batch().CountTransfer();
            },
            [&] {
                const int32_t location = nextLocation();
                handWritten.Transfer(batch().Items(), location, persons[0], persons[1], reason, moment);
                batch().CountTransfer();
            },
            count <= 10    ? 81
            : count == 100 ? 41
                           : 11,
            1);
        results.push_back({"transfer in one batch", count, "us", times.ours, times.baseline, count <= 10 ? 1.75 : 1.4});
    }
}

}  // namespace quellbrook::bench
