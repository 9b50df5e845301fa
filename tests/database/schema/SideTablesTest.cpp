#include "database/schema/SideTables.h"

#include "database/SqliteEngine.h"
#include "tests/database/schema/SchemaTest.h"
#include "tests/support/InterruptedSqlite.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <random>

using namespace quellbrook;
using namespace quellbrook::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

using Kind = StoredItemTypes;
using Type = StorageLocationTypes;

// Items with a location in the current custody row, and those missing in CurrentPlace.
constexpr const char* missingPlaces =
    "(SELECT t.StorageLocNo, 1, p.PropertyNo FROM Property p JOIN PropertyTracking t ON t.PropertyNo = p.PropertyNo "
    "AND t.SeqNo = p.CurrTrackSeq WHERE t.StorageLocNo IS NOT NULL UNION ALL "
    "SELECT t.StorageLocNo, 2, v.VehicleNo FROM Vehicle v JOIN VehicleTracking t ON t.VehicleNo = v.VehicleNo "
    "AND t.SeqNo = v.CurrTrackSeq WHERE t.StorageLocNo IS NOT NULL EXCEPT SELECT * FROM CurrentPlace)";

class CurrentPlaceTest : public SchemaTest {
protected:
    CurrentPlaceTest() {
        for (const char* name : {"A", "B", "C", "D"})
            m_locations.push_back(m_database.AddLocation(name, Type::Internal));
    }
    std::string Places() {
        std::string text;
        for (const Row& row : m_database.QueryRows("SELECT * FROM CurrentPlace"))
            text += ToText(row.At(0)) + ":" + ToText(row.At(1)) + ":" + ToText(row.At(2)) + " ";
        return text;
    }
    void DropGuards() {
        for (const char* trigger : {"PropertyTrackingUpdateGuard", "PropertyTrackingDeleteGuard",
                                    "VehicleTrackingUpdateGuard", "VehicleTrackingDeleteGuard"})
            m_database.Execute(std::string("DROP TRIGGER ") + trigger);
    }

    std::vector<int32_t> m_locations;
};

}  // namespace

TEST_F(CurrentPlaceTest, FollowsTheCurrentCustodyRow) {
    const int32_t item = m_database.AddProperty();
    const int32_t car = m_database.AddVehicle();
    EXPECT_EQ(Places(), "");
    m_database.AddCustodyRow(Kind::Property, item, m_locations[0]);
    m_database.AddCustodyRow(Kind::vehicle, car, m_locations[1]);
    EXPECT_EQ(Places(), "1:1:1 2:2:1 ");
    m_database.AddCustodyRow(Kind::Property, item, m_locations[1]);
    EXPECT_EQ(Places(), "2:1:1 2:2:1 ");
    m_database.AddCustodyRow(Kind::Property, item, m_locations[1]);
    EXPECT_EQ(Places(), "2:1:1 2:2:1 ");
    m_database.AddCustodyRow(Kind::vehicle, car, Null());
    EXPECT_EQ(Places(), "2:1:1 ");
    m_database.Execute("UPDATE Property SET CurrTrackSeq = 1");
    EXPECT_EQ(Places(), "1:1:1 ");
    m_database.Execute("UPDATE Property SET CurrTrackSeq = NULL");
    EXPECT_EQ(Places(), "");
}

TEST_F(CurrentPlaceTest, AcceptsThePointerBeforeItsRow) {
    const int32_t item = m_database.AddProperty();
    m_database.Execute("BEGIN");
    m_database.Execute("UPDATE Property SET CurrTrackSeq = 1");
    m_database.Execute(
        "INSERT INTO PropertyTracking (PropertyNo, SeqNo, StorageLocNo, LastUpdated) VALUES (?, 1, ?, ?)",
        {item, m_locations[2], DateTime()});
    m_database.Execute("COMMIT");
    EXPECT_EQ(Places(), "3:1:1 ");
}

TEST_F(CurrentPlaceTest, AnOlderRowAtTheSameLocationRemovesNothing) {
    const int32_t item = m_database.AddProperty();
    m_database.AddCustodyRow(Kind::Property, item, m_locations[0]);
    m_database.AddCustodyRow(Kind::Property, item, m_locations[0]);
    DropGuards();
    m_database.Execute("DELETE FROM PropertyTracking WHERE SeqNo = 1");
    EXPECT_EQ(Places(), "1:1:1 ");
}

TEST_F(CurrentPlaceTest, NoRowIsMissingAfterManualChanges) {
    DropGuards();
    std::mt19937 random(20261120);
    const auto any = [&](int limit) { return static_cast<int32_t>(random() % static_cast<unsigned>(limit)); };
    for (int i = 0; i < 6; ++i) {
        m_database.AddProperty();
        m_database.AddVehicle();
    }
    m_database.Execute("PRAGMA foreign_keys = OFF");
    int checks = 0;
    for (int step = 0; step < 600; ++step) {
        const bool isProperty = any(2) == 0;
        const std::string table = isProperty ? "Property" : "Vehicle", key = table + "No";
        const std::string item = std::to_string(1 + any(6)), other = std::to_string(1 + any(6));
        const std::string sequence = std::to_string(1 + any(4)), otherSequence = std::to_string(1 + any(4));
        const std::string location = any(5) == 0 ? "NULL" : std::to_string(m_locations[static_cast<size_t>(any(4))]);
        const std::string row = " WHERE " + key + " = " + item + " AND SeqNo = " + sequence;
        std::string sql;
        switch (any(9)) {
        case 0:
        case 1:
            sql = "INSERT INTO " + table + "Tracking (" + key + ", SeqNo, StorageLocNo, LastUpdated) VALUES (" + item +
                  ", " + sequence + ", " + location + ", '2026-01-01T00:00:00.000')";
            break;
        case 2: sql = "UPDATE " + table + " SET CurrTrackSeq = " + sequence + " WHERE " + key + " = " + item; break;
        case 3: sql = "UPDATE " + table + "Tracking SET StorageLocNo = " + location + row; break;
        case 4: sql = "UPDATE " + table + "Tracking SET SeqNo = " + otherSequence + row; break;
        case 5: sql = "UPDATE " + table + "Tracking SET " + key + " = " + other + row; break;
        case 6: sql = "DELETE FROM " + table + "Tracking" + row; break;
        case 7: sql = "DELETE FROM " + table + " WHERE " + key + " = " + item; break;
        default:
            sql = "INSERT OR REPLACE INTO " + table + " (" + key + ", CurrTrackSeq) VALUES (" + item + ", " + sequence +
                  ")";
        }
        RaisedBy([&] { m_database.Execute(sql); });
        ASSERT_EQ(Count(missingPlaces), 0) << "step " << step << ": " << sql;
        checks += Count("CurrentPlace");
    }
    EXPECT_GT(checks, 600);
}

namespace {

class SideTablesTest : public CurrentPlaceTest {
protected:
    SideTablesTest() {
        m_database.AddCustodyRow(Kind::Property, m_database.AddProperty({.Description = "blue bicycle"}),
                                 m_locations[0]);
        m_database.AddCustodyRow(Kind::vehicle, m_database.AddVehicle(), m_locations[0]);
    }

    // As an administrator might who drops a trigger, works, and creates it again.
    void WithoutTrigger(const std::string& name, const std::string& work) {
        const std::string sql =
            ToText(m_database.QueryValue("SELECT sql FROM sqlite_schema WHERE name = '" + name + "'"));
        m_database.Execute("DROP TRIGGER " + name);
        m_database.Execute(work);
        m_database.Execute(sql);
    }
    std::shared_ptr<SqliteEngine> Open() { return SqliteEngine::Open(m_database.Path(), 20); }
    bool IsProven(const std::string& table) {
        return Count("SideTableProof WHERE Name = '" + table +
                     "' AND SchemaCookie = (SELECT schema_version FROM pragma_schema_version)") == 1;
    }
    void MoveWithoutTrigger() { WithoutTrigger("PropertyPlaceAfterUpdate", "UPDATE Property SET CurrTrackSeq = 2"); }
    void AddSecondRowElsewhere() {
        m_database.Execute(
            "INSERT INTO PropertyTracking (PropertyNo, SeqNo, StorageLocNo, LastUpdated) VALUES (1, 2, ?, ?)",
            {m_locations[1], DateTime()});
    }
};

}  // namespace

TEST_F(SideTablesTest, AreUsedAndProvenInANewDatabase) {
    EXPECT_TRUE(IsProven("CurrentPlace"));
    EXPECT_TRUE(IsProven("PropertyDescription"));
    const auto engine = Open();
    EXPECT_TRUE(engine->GetDialect().hasCurrentPlace);
    EXPECT_TRUE(engine->GetDialect().hasDescriptionIndex);
    EXPECT_THAT(engine->Notes(), IsEmpty());
}

TEST_F(SideTablesTest, AreNotUsedWhenATriggerIsMissing) {
    m_database.Execute("DROP TRIGGER VehicleTrackingPlaceAfterInsert");
    m_database.Execute("DROP TRIGGER PropertyDescriptionAfterUpdate");
    const auto engine = Open();
    EXPECT_FALSE(engine->GetDialect().hasCurrentPlace);
    EXPECT_FALSE(engine->GetDialect().hasDescriptionIndex);
    EXPECT_THAT(engine->Notes(), ElementsAre("The side table CurrentPlace or one of its triggers is missing. Searches "
                                             "are slower until it is rebuilt with --repair.",
                                             "The side table PropertyDescription or one of its triggers is missing. "
                                             "Searches are slower until it is rebuilt with --repair."));
}

TEST_F(SideTablesTest, AreNotUsedWhenATriggerWasChanged) {
    m_database.Execute("DROP TRIGGER PropertyPlaceAfterUpdate");
    m_database.Execute("CREATE TRIGGER PropertyPlaceAfterUpdate AFTER UPDATE ON Property BEGIN SELECT 1; END");
    EXPECT_FALSE(Open()->GetDialect().hasCurrentPlace);
}

TEST_F(SideTablesTest, AreNotUsedWhenTheTableIsMissing) {
    m_database.Execute("DROP TABLE CurrentPlace");
    EXPECT_FALSE(Open()->GetDialect().hasCurrentPlace);
}

TEST_F(SideTablesTest, MissedPlacesAreNoticed) {
    AddSecondRowElsewhere();
    MoveWithoutTrigger();
    const auto engine = Open();
    EXPECT_FALSE(engine->GetDialect().hasCurrentPlace);
    EXPECT_TRUE(engine->GetDialect().hasDescriptionIndex);
    EXPECT_THAT(engine->Notes(),
                ElementsAre("The side table CurrentPlace lacks 1 item. Searches are slower until it is "
                            "rebuilt with --repair."));
    EXPECT_FALSE(IsProven("CurrentPlace"));
}

TEST_F(SideTablesTest, RowsDeletedByHandAreNoticedInASmallFile) {
    m_database.Execute("DELETE FROM CurrentPlace");
    EXPECT_THAT(Open()->Notes(),
                ElementsAre("The side table CurrentPlace lacks 2 items. Searches are slower until it is "
                            "rebuilt with --repair."));
}

// A large file is not checked at each opening, only after a change of the schema.
TEST_F(SideTablesTest, MissedPlacesAreNoticedInALargeFile) {
    m_database.Execute("CREATE TABLE Padding AS SELECT zeroblob(68000000)");
    m_database.Execute("PRAGMA wal_checkpoint(TRUNCATE)");
    ASSERT_GT(std::filesystem::file_size(m_database.Path()), 64u << 20);
    EXPECT_TRUE(Open()->GetDialect().hasCurrentPlace);
    EXPECT_TRUE(IsProven("CurrentPlace"));
    AddSecondRowElsewhere();
    MoveWithoutTrigger();
    EXPECT_FALSE(Open()->GetDialect().hasCurrentPlace);
}

TEST_F(SideTablesTest, MissedDescriptionsAreNoticed) {
    WithoutTrigger("PropertyDescriptionAfterUpdate", "UPDATE Property SET Description = 'red tricycle'");
    const auto engine = Open();
    EXPECT_TRUE(engine->GetDialect().hasCurrentPlace);
    EXPECT_FALSE(engine->GetDialect().hasDescriptionIndex);
    EXPECT_THAT(engine->Notes(),
                ElementsAre("The side table PropertyDescription disagrees with the items. Searches are "
                            "slower until it is rebuilt with --repair."));
}

TEST_F(SideTablesTest, AreProvenAgainAfterAChangeOfTheSchema) {
    m_database.Execute("CREATE INDEX PropertyByMake ON Property (ManufacNbr)");
    EXPECT_FALSE(IsProven("CurrentPlace"));
    const auto engine = Open();
    EXPECT_TRUE(engine->GetDialect().hasCurrentPlace);
    EXPECT_TRUE(engine->GetDialect().hasDescriptionIndex);
    EXPECT_TRUE(IsProven("CurrentPlace"));
    EXPECT_TRUE(IsProven("PropertyDescription"));
}

TEST_F(SideTablesTest, AreNotUsedUntilTheyCanBeChecked) {
    m_database.Execute("CREATE INDEX PropertyByMake ON Property (ManufacNbr)");
    m_database.Execute("BEGIN IMMEDIATE");
    const auto engine = Open();
    EXPECT_FALSE(engine->GetDialect().hasCurrentPlace);
    EXPECT_FALSE(engine->GetDialect().hasDescriptionIndex);
    EXPECT_THAT(engine->Notes(), ElementsAre("The side tables could not be checked (database is locked). Searches are "
                                             "slower until the program starts again."));
    m_database.Execute("COMMIT");
    EXPECT_TRUE(Open()->GetDialect().hasCurrentPlace);
}

TEST_F(SideTablesTest, ARepairRestoresTablesAndTriggers) {
    const std::string schema = "SELECT GROUP_CONCAT(sql) FROM (SELECT sql FROM sqlite_schema ORDER BY type, name)";
    const TaggedValue before = m_database.QueryValue(schema);
    for (const char* damage : {"DROP TRIGGER PropertyTrackingDeleteGuard", "DROP TRIGGER VehiclePlaceAfterUpdate",
                               "DROP TABLE SideTableProof", "UPDATE CurrentPlace SET ItemNo = 77 WHERE ItemType = 1",
                               "DROP TABLE PropertyDescription"})
        m_database.Execute(damage);
    RepairSideTables(m_database.Path(), 20);
    EXPECT_EQ(Places(), "1:1:1 1:2:1 ");
    EXPECT_EQ(Count("PropertyDescription WHERE Description LIKE '%bicycle%'"), 1);
    EXPECT_EQ(m_database.QueryValue(schema), before);
    const auto engine = Open();
    EXPECT_TRUE(engine->GetDialect().hasCurrentPlace);
    EXPECT_TRUE(engine->GetDialect().hasDescriptionIndex);
    EXPECT_TRUE(IsProven("CurrentPlace"));
    EXPECT_THAT(engine->Notes(), IsEmpty());
}

TEST_F(SideTablesTest, ARepairThatFailsAtAnyStepChangesNothing) {
    m_database.Execute("DELETE FROM CurrentPlace");
    const std::string before = m_database.Snapshot();
    int failures = 0;
    for (int steps = 1;; ++steps) {
        const InterruptedSqlite interruption(steps);
        const Error error = RaisedBy([&] { RepairSideTables(m_database.Path(), 20); });
        if (error.Number() == 0) break;
        ++failures;
        ASSERT_THAT(error.Description(), HasSubstr("interrupted. Nothing has been changed."));
        ASSERT_EQ(m_database.Snapshot(), before) << steps;
    }
    EXPECT_GT(failures, 20);
    EXPECT_EQ(Places(), "1:1:1 1:2:1 ");
}
