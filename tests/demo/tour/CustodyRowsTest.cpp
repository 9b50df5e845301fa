#include "demo/tour/CustodyRows.h"

#include "database/SqliteEngine.h"
#include "tests/demo/sample/SampleFile.h"
#include "tests/support/ScratchFolder.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {

TEST(CustodyRows, ReturnsOnlyRowsWrittenSinceConstruction) {
    const ScratchFolder directory;
    const std::string path = directory.In("copy.sqlite");
    CopySample(path);
    const tour::CustodyRows rows(SqliteEngine::Open(path));
    EXPECT_TRUE(rows.Written().empty());

    SQLite::Database database(path, SQLite::OPEN_READWRITE);
    const int32_t next =
        database.execAndGet("SELECT MAX(SeqNo) + 1 FROM PropertyTracking WHERE PropertyNo = 1").getInt();
    database.exec("INSERT INTO PropertyTracking (PropertyNo, SeqNo, LastUpdated) VALUES (1, " + std::to_string(next) +
                  ", '2026-11-20T09:00:00.000')");
    // The first row of an item that has had none.
    database.exec(
        "INSERT INTO VehicleTracking (VehicleNo, SeqNo, LastUpdated) SELECT VehicleNo, 1, "
        "'2026-11-20T09:00:00.000' FROM Vehicle WHERE RegNumber = 'LVN2077'");
    const RowList written = rows.Written();
    ASSERT_EQ(written.size(), 2u);
    EXPECT_EQ(ToInt32(written[0].Value("PropertyNo")), 1);
    EXPECT_EQ(ToInt32(written[0].Value("SeqNo")), next);
    EXPECT_EQ(ToInt32(written[1].Value("SeqNo")), 1);
    EXPECT_TRUE(written[1].Has("VehicleNo"));
}

TEST(CustodyRows, ReadsASingleValue) {
    const tour::CustodyRows rows(SqliteEngine::Open(TheSample().Path()));
    EXPECT_EQ(ToInt32(rows.Ask("SELECT COUNT(*) AS N FROM Vehicle")), 40);
    EXPECT_TRUE(rows.Ask("SELECT VehicleNo FROM Vehicle WHERE VehicleNo = 0").IsEmpty());
}

}  // namespace quellbrook::testing
