#pragma once

#include "tests/demo/sample/SampleFile.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {

// Checks that apply to every chain of custody of a department.
inline void ExpectSoundChains(const SampleFile& file) {
    for (const auto& [item, key] : {std::pair("Property", "PropertyNo"), std::pair("Vehicle", "VehicleNo")}) {
        const std::string table = std::string(item) + "Tracking";
        SCOPED_TRACE(table);
        // The current row is the last one; an item without rows has none.
        EXPECT_EQ(file.Number("SELECT COUNT(*) FROM " + std::string(item) +
                              " i WHERE i.CurrTrackSeq IS NOT (SELECT "
                              "MAX(SeqNo) FROM " +
                              table + " t WHERE t." + key + " = i." + key + ")"),
                  0);
        // Numbered from 1 without a gap.
        EXPECT_EQ(file.Number("SELECT COUNT(*) FROM (SELECT " + std::string(key) + " FROM " + table +
                              " GROUP BY 1 "
                              "HAVING MIN(SeqNo) <> 1 OR MAX(SeqNo) <> COUNT(*))"),
                  0);
        // Later rows were received and written later.
        EXPECT_EQ(
            file.Number("SELECT COUNT(*) FROM " + table + " a INNER JOIN " + table + " b ON b." + key + " = a." + key +
                        " AND b.SeqNo = a.SeqNo + 1 WHERE b.DateReceived <= a.DateReceived OR "
                        "b.LastUpdated <= a.LastUpdated"),
            0);
        EXPECT_EQ(file.Number("SELECT COUNT(*) FROM " + table + " WHERE LastUpdated < DateReceived"), 0);
        // In the three years before the last day.
        EXPECT_EQ(file.Number("SELECT COUNT(*) FROM " + table +
                              " WHERE DateReceived < '2023-11-20T00:00:00.000' OR "
                              "LastUpdated >= '2026-11-20T00:00:00.000'"),
                  0);
        // An item is received from the person who received it before, if both are known.
        EXPECT_EQ(file.Number("SELECT COUNT(*) FROM " + table + " a INNER JOIN " + table + " b ON b." + key + " = a." +
                              key + " AND b.SeqNo = a.SeqNo + 1 WHERE b.ReceivedFrom <> a.ReceivedBy AND b." + key +
                              " NOT IN (SELECT PropertyNo FROM Property WHERE PropertyID = '2026-0417-03')"),
                  0);
        // Every reason and every person is known.
        EXPECT_EQ(file.Number("SELECT COUNT(*) FROM " + table +
                              " t LEFT JOIN CodeTable c ON c.TableNumber = 38 AND "
                              "c.Code = t.CustodyReasonNo WHERE c.Code IS NULL"),
                  0);
        EXPECT_EQ(file.Number("SELECT COUNT(*) FROM " + table +
                              " WHERE ReceivedBy NOT IN (SELECT PersonNo FROM "
                              "Person) OR ReceivedFrom NOT IN (SELECT PersonNo FROM Person)"),
                  0);
        // Exactly the disposed items are marked.
        EXPECT_EQ(
            file.Number("SELECT COUNT(*) FROM " + std::string(item) + " i LEFT JOIN " + table + " t ON t." + key +
                        " = i." + key +
                        " AND t.SeqNo = i.CurrTrackSeq LEFT JOIN StorageLocation s ON s.IdNo = "
                        "t.StorageLocNo WHERE s.Type = 8 AND (i.HasFinalDisposition = 0 OR i.CurrStatusNo IS NULL) "
                        "OR s.Type <> 8 AND i.HasFinalDisposition = 1"),
            0);
    }
    EXPECT_EQ(
        file.Number("SELECT COUNT(*) FROM CurrentPlace"),
        file.Number("SELECT COUNT(*) FROM Property i INNER JOIN PropertyTracking t ON t.PropertyNo = i.PropertyNo "
                    "AND t.SeqNo = i.CurrTrackSeq AND t.StorageLocNo IS NOT NULL") +
            file.Number("SELECT COUNT(*) FROM Vehicle i INNER JOIN VehicleTracking t ON t.VehicleNo = i.VehicleNo "
                        "AND t.SeqNo = i.CurrTrackSeq AND t.StorageLocNo IS NOT NULL"));
    EXPECT_TRUE(file.Rows("PRAGMA foreign_key_check").empty());
    EXPECT_EQ(file.Rows("PRAGMA integrity_check"), std::vector<std::string>{"ok"});
}

}  // namespace quellbrook::testing
