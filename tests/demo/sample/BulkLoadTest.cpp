#include "base/Error.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"
#include "demo/sample/BulkLoad.h"
#include "tests/support/ScratchFolder.h"

#include <memory>

#include <gtest/gtest.h>

namespace quellbrook::sample {

namespace {

// A location and an item of either kind that has lain there; the tests add or break rows by statements of their own.
class BulkLoadTest : public ::testing::Test {
protected:
    void SetUp() override {
        CreateDatabase(m_path);
        m_load = std::make_unique<BulkLoad>(m_path);
        Run("INSERT INTO StorageLocation (IdNo, Name, Type, Path, DateEntered, LastUpdated) VALUES (1, 'Room', 2, "
            "'/0/', "
            "'2026-01-01T00:00:00.000', '2026-01-01T00:00:00.000')");
        for (const std::string kind : {"Property", "Vehicle"}) {
            Run("INSERT INTO " + kind + " (" + kind + "No, CurrTrackSeq) VALUES (5, 1)");
            Run("INSERT INTO " + kind + "Tracking (" + kind +
                "No, SeqNo, StorageLocNo, LastUpdated) VALUES (5, 1, 1, "
                "'2026-01-01T00:00:00.000')");
        }
    }

    void Run(const std::string& sql) { m_load->Database().exec(sql); }

    std::string RefusalOfFinish() {
        try {
            m_load->Finish({});
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::General);
            return error.Description();
        }
        return "";
    }

    const testing::ScratchFolder m_folder;
    const std::string m_path = m_folder.In("department.sqlite");
    std::unique_ptr<BulkLoad> m_load;
};

const char* const lost = "The department can't be made: an item does not lie where its custody rows say.";

}  // namespace

TEST_F(BulkLoadTest, FillsTheCurrentPlacesOfBothKinds) {
    EXPECT_EQ(RefusalOfFinish(), "");
    m_load.reset();
    SQLite::Database database(m_path);
    EXPECT_EQ(database.execAndGet("SELECT GROUP_CONCAT(StorageLocNo || ItemType || ItemNo, ' ') FROM CurrentPlace")
                  .getString(),
              "115 125");
}

TEST_F(BulkLoadTest, APieceOfPropertyWithoutItsCurrentCustodyRowIsRefused) {
    Run("UPDATE Property SET CurrTrackSeq = 2");
    EXPECT_EQ(RefusalOfFinish(), lost);
}

TEST_F(BulkLoadTest, AVehicleWithoutItsCurrentCustodyRowIsRefused) {
    Run("UPDATE Vehicle SET CurrTrackSeq = 2");
    EXPECT_EQ(RefusalOfFinish(), lost);
}

TEST_F(BulkLoadTest, AnItemThatWasNeverTrackedIsNotLost) {
    Run("INSERT INTO Property (PropertyNo) VALUES (6)");
    EXPECT_EQ(RefusalOfFinish(), "");
}

TEST_F(BulkLoadTest, CustodyRowsCanBeNeitherChangedNorDeletedMeanwhile) {
    for (const std::string kind : {"Property", "Vehicle"}) {
        EXPECT_THROW(Run("DELETE FROM " + kind + "Tracking"), SQLite::Exception);
        EXPECT_THROW(Run("UPDATE " + kind + "Tracking SET ReceivedBy = 1"), SQLite::Exception);
    }
}

TEST_F(BulkLoadTest, AfterwardsForeignKeysAndTriggersHoldAgain) {
    EXPECT_EQ(RefusalOfFinish(), "");
    m_load.reset();
    SQLite::Database database(m_path, SQLite::OPEN_READWRITE);
    database.exec("PRAGMA foreign_keys = ON");
    EXPECT_THROW(database.exec("INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (1, 1)"), SQLite::Exception);
    database.exec("UPDATE Property SET CurrTrackSeq = NULL");
    EXPECT_EQ(database.execAndGet("SELECT COUNT(*) FROM CurrentPlace WHERE ItemType = 1").getInt(), 0);
    database.exec("INSERT INTO Property (PropertyNo, Description) VALUES (7, 'Gold ring')");
    EXPECT_EQ(database.execAndGet("SELECT rowid FROM PropertyDescription WHERE Description LIKE '%old ri%'").getInt(),
              7);
}

TEST_F(BulkLoadTest, WhatIsNotFinishedIsRefusedAsAnotherProgramsFile) {
    m_load.reset();
    try {
        SqliteEngine::Open(m_path);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Description(), "The database '" + m_path + "' belongs to another program.");
    }
}

TEST_F(BulkLoadTest, TellsHowFarItsEndHasCome) {
    std::vector<int> told;
    m_load->Finish([&told](int percent) { told.push_back(percent); });
    EXPECT_GT(told.size(), 10u);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    EXPECT_EQ(told.back(), 100);
}

}  // namespace quellbrook::sample
