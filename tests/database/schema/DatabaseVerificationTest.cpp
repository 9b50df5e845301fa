#include "database/schema/DatabaseVerification.h"

#include "base/Error.h"
#include "database/schema/SchemaTriggers.h"
#include "tests/support/CustodyRuleSentences.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using namespace quellbrook;
using namespace quellbrook::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

using Kind = StoredItemTypes;
using Type = StorageLocationTypes;
using Lines = std::vector<std::string>;

constexpr const char* values = "Custody rows contain whole numbers and dates.";
constexpr const char* locationValues = "Locations have a name, a flag and dates.";
constexpr const char* references = "Every reference leads to a record.";
constexpr const char* file = "The pages, indexes and constraints of the file are sound.";
constexpr const char* descriptions = "The side table PropertyDescription agrees with the descriptions of the items.";

// Damages what the schema protects, with its triggers and foreign keys off.
class DatabaseVerificationTest : public ::testing::Test {
protected:
    DatabaseVerificationTest() {
        m_room = m_database.AddLocation("Room", Type::Internal);
        m_shelf = m_database.AddLocation("Shelf", Type::Internal, m_room);
        m_property = m_database.AddProperty({.Description = "blue bicycle"});
        m_vehicle = m_database.AddVehicle();
        m_database.AddProperty();
        for (int i = 0; i < 3; ++i) {
            m_database.AddCustodyRow(Kind::Property, m_property, m_shelf);
            m_database.AddCustodyRow(Kind::vehicle, m_vehicle, m_room);
        }
    }

    void Damage(const std::string& sql) {
        m_database.Execute("PRAGMA foreign_keys = OFF");
        for (const SchemaTrigger& trigger : SchemaTriggers()) m_database.Execute("DROP TRIGGER " + trigger.name);
        m_database.Execute(sql);
        for (const SchemaTrigger& trigger : SchemaTriggers()) m_database.Execute(trigger.sql);
    }

    // The broken rules, each followed by its examples.
    Lines Found() {
        Lines lines;
        for (const RuleCheck& check : VerifyDatabase(m_database.Path(), 20)) {
            if (check.faults == 0) continue;
            lines.push_back(check.rule);
            lines.insert(lines.end(), check.examples.begin(), check.examples.end());
        }
        return lines;
    }

    TestDatabase m_database;
    int32_t m_room = 0, m_shelf = 0, m_property = 0, m_vehicle = 0;
};

}  // namespace

TEST_F(DatabaseVerificationTest, NothingIsWrongWithAProperDatabase) {
    const std::string before = m_database.Snapshot();
    const std::vector<RuleCheck> checks = VerifyDatabase(m_database.Path(), 20);
    Lines rules;
    for (const RuleCheck& check : checks) rules.push_back(check.rule);
    EXPECT_THAT(rules, ElementsAre(numbered, owners, latest, disposition, dispositionFlag, tree, names, values,
                                   locationValues, references, file, objects, places, descriptions));
    EXPECT_THAT(Found(), IsEmpty());
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(DatabaseVerificationTest, GapsInAChainAreFound) {
    Damage("DELETE FROM PropertyTracking WHERE SeqNo = 2");
    EXPECT_THAT(Found(), ElementsAre(numbered, "Property 1 has 2 custody rows, numbered from 1 to 3"));
    Damage("DELETE FROM VehicleTracking WHERE SeqNo = 1");
    EXPECT_THAT(Found(), ElementsAre(numbered, "Property 1 has 2 custody rows, numbered from 1 to 3",
                                     "Vehicle 1 has 2 custody rows, numbered from 2 to 3"));
}

TEST_F(DatabaseVerificationTest, AChainThatDoesNotBeginAtOneIsFound) {
    m_database.Execute("PRAGMA ignore_check_constraints = ON");
    Damage("UPDATE PropertyTracking SET SeqNo = 0 WHERE SeqNo = 1");
    EXPECT_THAT(Found(), ElementsAre(numbered, "Property 1 has 3 custody rows, numbered from 0 to 3", file,
                                     "CHECK constraint failed in PropertyTracking"));
}

TEST_F(DatabaseVerificationTest, ValuesThatACustodyRowCannotHaveAreFound) {
    Damage("UPDATE VehicleTracking SET ReceivedBy = 'nobody' WHERE SeqNo = 1");
    EXPECT_THAT(Found(), ElementsAre(values, "Vehicle 1, custody row 1"));
    Damage("UPDATE VehicleTracking SET DateReceived = 'yesterday' WHERE SeqNo = 2");
    Damage("UPDATE PropertyTracking SET LastUpdated = '2026-01-01'");
    EXPECT_THAT(Found(),
                ElementsAre(values, "Property 1, custody row 1", "Property 1, custody row 2",
                            "Property 1, custody row 3", "Vehicle 1, custody row 1", "Vehicle 1, custody row 2"));
}

TEST_F(DatabaseVerificationTest, AnItemThatDoesNotNameItsLatestRowIsFound) {
    Damage("UPDATE Property SET CurrTrackSeq = 2 WHERE PropertyNo = 1");
    EXPECT_THAT(Found(), ElementsAre(latest, "Property 1 names custody row 2, and its latest is 3"));
    Damage("UPDATE Vehicle SET CurrTrackSeq = NULL");
    EXPECT_THAT(Found(), ElementsAre(latest, "Property 1 names custody row 2, and its latest is 3",
                                     "Vehicle 1 names custody row none, and its latest is 3"));
}

TEST_F(DatabaseVerificationTest, AnItemThatNamesAMissingRowIsFound) {
    Damage("UPDATE Property SET CurrTrackSeq = 9 WHERE PropertyNo = 2");
    EXPECT_THAT(Found(), ElementsAre(latest, "Property 2 names custody row 9, and its latest is none", references,
                                     "Property 2 refers to a record of PropertyTracking that does not exist"));
}

TEST_F(DatabaseVerificationTest, AFinalDispositionWithoutCustodyRowsIsFound) {
    Damage("UPDATE Property SET HasFinalDisposition = 1");
    EXPECT_THAT(Found(), ElementsAre(disposition, "Property 2 has a final disposition and no current custody row"));
    Damage("UPDATE Property SET HasFinalDisposition = 'x' WHERE PropertyNo = 1");
    EXPECT_THAT(Found(), ElementsAre(disposition, "Property 2 has a final disposition and no current custody row",
                                     dispositionFlag, "Property 1 has the flag x"));
}

TEST_F(DatabaseVerificationTest, ALocationOutsideTheTreeIsFound) {
    Damage("UPDATE StorageLocation SET Type = 4 WHERE Name = 'Shelf'");
    EXPECT_THAT(Found(), ElementsAre(tree, "Location 2 (Shelf) has the path /0/1/ and the category 4", references,
                                     "StorageLocation 2 refers to a record of StorageLocation that does not exist"));
    Damage("UPDATE StorageLocation SET Type = 2, Path = '/0/77/' WHERE Name = 'Shelf'");
    EXPECT_THAT(Found(), ElementsAre(tree, "Location 2 (Shelf) has the path /0/77/ and the category 2", references,
                                     "StorageLocation 2 refers to a record of StorageLocation that does not exist"));
}

// Without the table's constraint, which only a copy of the table lacks.
TEST_F(DatabaseVerificationTest, ANameThatAContainerHasTwiceIsFound) {
    m_database.AddLocation("shelf", Type::Internal);
    m_database.AddLocation("SHELF", Type::External);
    EXPECT_THAT(Found(), IsEmpty());
    m_database.Execute("PRAGMA foreign_keys = OFF");
    m_database.Execute("CREATE TABLE Plain AS SELECT * FROM StorageLocation");
    m_database.Execute("DROP TABLE StorageLocation");
    m_database.Execute("ALTER TABLE Plain RENAME TO StorageLocation");
    m_database.Execute("CREATE UNIQUE INDEX StorageLocationKey ON StorageLocation (IdNo)");
    m_database.Execute("CREATE UNIQUE INDEX StorageLocationPlace ON StorageLocation (IdNo, Path, Type)");
    m_database.Execute("UPDATE StorageLocation SET Path = '/0/1/' WHERE Name = 'shelf'");
    const Lines found = Found();
    const auto rule = std::find(found.begin(), found.end(), names);
    ASSERT_NE(rule, found.end());
    EXPECT_EQ(*(rule + 1), "Location 3 (shelf) has the name of another location");
}

TEST_F(DatabaseVerificationTest, WrongValuesOfALocationAreFound) {
    Damage("UPDATE StorageLocation SET ActiveFlag = 'maybe' WHERE Name = 'Room'");
    Damage("UPDATE StorageLocation SET LastUpdated = 'x' WHERE Name = 'Shelf'");
    EXPECT_THAT(Found(), ElementsAre(locationValues, "Location 1 (Room)", "Location 2 (Shelf)"));
}

TEST_F(DatabaseVerificationTest, ReferencesThatLeadNowhereAreFound) {
    m_database.LinkIncident(Kind::Property, m_property, m_database.AddIncident("2026-1"));
    Damage("DELETE FROM Incident");
    EXPECT_THAT(Found(), ElementsAre(references, "IncdProperty 1 refers to a record of Incident that does not exist"));
    Damage("DELETE FROM Vehicle");
    Damage("UPDATE PropertyTracking SET StorageLocNo = 77 WHERE SeqNo = 1");
    EXPECT_THAT(Found(),
                ElementsAre(owners, "Property 1, custody row 1, location 77", "Vehicle 1, custody row 1, location 1",
                            "Vehicle 1, custody row 2, location 1", "Vehicle 1, custody row 3, location 1", references,
                            "IncdProperty 1 refers to a record of Incident that does not exist",
                            "PropertyTracking refers to a record of StorageLocation that does not exist",
                            "VehicleTracking refers to a record of Vehicle that does not exist"));
}

TEST_F(DatabaseVerificationTest, RowsThatBreakAConstraintAreFound) {
    m_database.Execute("PRAGMA ignore_check_constraints = ON");
    Damage("UPDATE Property SET PropertyNo = -1 WHERE PropertyNo = 2");
    EXPECT_THAT(Found(), ElementsAre(file, "CHECK constraint failed in Property"));
}

TEST_F(DatabaseVerificationTest, MissingAndChangedObjectsAreFound) {
    m_database.Execute("DROP TRIGGER PropertyTrackingDeleteGuard");
    m_database.Execute("DROP INDEX VehicleByRegNumber");
    m_database.Execute("DROP TRIGGER StorageLocationMoveGuard");
    m_database.Execute("CREATE TRIGGER StorageLocationMoveGuard AFTER INSERT ON Setting BEGIN SELECT 1; END");
    EXPECT_THAT(Found(), ::testing::UnorderedElementsAre(objects, "The trigger PropertyTrackingDeleteGuard is missing",
                                                         "The index VehicleByRegNumber is missing",
                                                         "The trigger StorageLocationMoveGuard has been changed"));
}

TEST_F(DatabaseVerificationTest, SideTablesThatDisagreeAreFound) {
    m_database.Execute("DELETE FROM CurrentPlace WHERE ItemType = 2");
    Damage("UPDATE Property SET Description = 'red tricycle'");
    EXPECT_THAT(Found(), ElementsAre(places, "Vehicle 1 is missing at location 1", descriptions, "It does not agree"));
    m_database.Execute("DELETE FROM CurrentPlace");
    EXPECT_THAT(Found(), ElementsAre(places, "Property 1 is missing at location 2",
                                     "Vehicle 1 is missing at location 1", descriptions, "It does not agree"));
    m_database.Execute(
        "INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (2, 1, 1), (1, 2, 1), (1, 1, 1)");
    EXPECT_THAT(Found(), ElementsAre(descriptions, "It does not agree"));
}

TEST_F(DatabaseVerificationTest, MissingSideTablesAreFound) {
    m_database.Execute("DROP TABLE CurrentPlace");
    m_database.Execute("DROP TABLE PropertyDescription");
    const Lines found = Found();
    EXPECT_THAT(found, ::testing::Contains("There is no such table").Times(2));
    EXPECT_THAT(found, ::testing::Contains("The table CurrentPlace is missing"));
}

TEST_F(DatabaseVerificationTest, TenFaultsAreNamedAndAllAreCounted) {
    for (int i = 0; i < 12; ++i) m_database.AddProperty();
    Damage("UPDATE Property SET HasFinalDisposition = 1 WHERE CurrTrackSeq IS NULL");
    const std::vector<RuleCheck> checks = VerifyDatabase(m_database.Path(), 20);
    const auto found =
        std::find_if(checks.begin(), checks.end(), [](const RuleCheck& check) { return check.rule == disposition; });
    ASSERT_NE(found, checks.end());
    EXPECT_EQ(found->faults, 13);
    EXPECT_EQ(found->examples.size(), 10u);
}

TEST_F(DatabaseVerificationTest, ADatabaseThatCannotBeReadIsNamed) {
    const Error error = RaisedBy([&] { VerifyDatabase(m_database.Path() + ".absent", 20); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_THAT(error.Description(), HasSubstr(m_database.Path() + ".absent' can't be verified"));
}
