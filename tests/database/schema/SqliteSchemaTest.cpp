#include "database/schema/SqliteSchema.h"

#include "base/Text.h"
#include "database/SqliteEngine.h"
#include "database/schema/SchemaUpgrade.h"
#include "host/HostDatabase.h"
#include "tests/database/schema/SchemaTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

using Kind = StoredItemTypes;
using Type = StorageLocationTypes;

class SqliteSchemaTest : public SchemaTest {};

}  // namespace

TEST_F(SqliteSchemaTest, HasItsApplicationIdAndVersion) {
    EXPECT_EQ(m_database.QueryValue("PRAGMA application_id"), TaggedValue(DatabaseApplicationId));
    EXPECT_EQ(m_database.QueryValue("PRAGMA user_version"), TaggedValue(SchemaVersion));
    EXPECT_EQ(SchemaSteps().back().version, SchemaVersion);
}

TEST_F(SqliteSchemaTest, LocationsInOneContainerAndCategoryHaveDifferentNames) {
    m_database.AddLocation("Shelf", Type::Internal);
    EXPECT_EQ(Raised(LocationInsert("SHELF", 2, "/0/")).Number(), ErrorNumber::IntegrityViolation);
    EXPECT_EQ(Raised(LocationInsert("Shelf", 4, "/0/")).Number(), 0);
    EXPECT_EQ(Raised("UPDATE StorageLocation SET Type = 2 WHERE Type = 4").Number(), ErrorNumber::IntegrityViolation);
}

TEST_F(SqliteSchemaTest, TheKeyOfALocationIsNeverZeroOrReused) {
    const int32_t first = m_database.AddLocation("A", Type::Internal);
    m_database.Execute("DELETE FROM StorageLocation");
    EXPECT_GT(m_database.AddLocation("B", Type::Internal), first);
    EXPECT_GT(first, 0);
    EXPECT_NE(RaisedBy([&] { m_database.Execute("UPDATE StorageLocation SET IdNo = 0"); }).Number(), 0);
}

TEST_F(SqliteSchemaTest, ALocationInCustodyRowsCannotBeDeleted) {
    const int32_t shelf = m_database.AddLocation("Shelf", Type::Internal);
    m_database.AddCustodyRow(Kind::vehicle, m_database.AddVehicle(), shelf);
    EXPECT_EQ(Raised("DELETE FROM StorageLocation WHERE IdNo = " + std::to_string(shelf)).Number(),
              ErrorNumber::IntegrityViolation);
    EXPECT_EQ(Count("StorageLocation"), 1);
}

TEST_F(SqliteSchemaTest, ACustodyRowNeedsItsItemAndItsLocation) {
    const std::string insert = "INSERT INTO PropertyTracking (PropertyNo,SeqNo,StorageLocNo,LastUpdated) VALUES ";
    EXPECT_EQ(Raised(insert + "(99,1,NULL,'2026-01-01T00:00:00.000')").Number(), ErrorNumber::IntegrityViolation);
    const std::string item = std::to_string(m_database.AddProperty());
    EXPECT_EQ(Raised(insert + "(" + item + ",1,99,'2026-01-01T00:00:00.000')").Number(),
              ErrorNumber::IntegrityViolation);
    EXPECT_EQ(Raised(insert + "(" + item + ",1,NULL,'2026-01-01T00:00:00.000')").Number(), 0);
    EXPECT_EQ(Raised(insert + "(" + item + ",1,NULL,'2026-01-01T00:00:00.000')").Number(),
              ErrorNumber::IntegrityViolation);
}

TEST_F(SqliteSchemaTest, TheFlagAndTheNameOfALocationCanChange) {
    const int32_t room = m_database.AddLocation("Room", Type::Internal);
    m_database.AddLocation("Shelf", Type::Internal, room);
    EXPECT_EQ(Raised("UPDATE StorageLocation SET ActiveFlag = 0, Name = Name || 'x'").Number(), 0);
}

TEST_F(SqliteSchemaTest, ComparingTextsIgnoresCase) {
    m_database.AddProperty({.PropertyID = "Ev-1", .Description = "Blue Bicycle"});
    EXPECT_EQ(Count("Property WHERE PropertyID = 'EV-1'"), 1);
    EXPECT_EQ(Count("Property WHERE PropertyID LIKE 'eV-%'"), 1);
    EXPECT_EQ(Count("PropertyDescription WHERE Description LIKE '%BLUE bi%'"), 1);
}

TEST_F(SqliteSchemaTest, TheDescriptionIndexFollowsEveryChange) {
    const int32_t item = m_database.AddProperty({.Description = "blue bicycle"});
    m_database.AddProperty();
    const std::string where = " WHERE PropertyNo = " + std::to_string(item);
    const auto found = [&](const std::string& text) {
        return Count("PropertyDescription WHERE Description LIKE '%" + text + "%'");
    };
    EXPECT_EQ(found("bicycle"), 1);
    m_database.Execute("UPDATE Property SET Description = 'red tricycle'" + where);
    EXPECT_EQ(found("bicycle"), 0);
    EXPECT_EQ(found("tricycle"), 1);
    m_database.Execute("UPDATE Property SET Description = NULL" + where);
    EXPECT_EQ(found("tricycle"), 0);
    m_database.Execute("UPDATE Property SET Description = 'green scooter'" + where);
    m_database.Execute("INSERT OR REPLACE INTO Property (PropertyNo, Description) VALUES (" + std::to_string(item) +
                       ", 'old lamp')");
    EXPECT_EQ(found("scooter"), 0);
    EXPECT_EQ(found("old lamp"), 1);
    m_database.Execute("DELETE FROM Property" + where);
    EXPECT_EQ(found("lamp"), 0);
    m_database.Execute("INSERT INTO PropertyDescription (PropertyDescription, rank) VALUES ('integrity-check', 1)");
}

TEST_F(SqliteSchemaTest, AVehiclesQuantityIsAWholeNumberInTheUnion) {
    m_database.AddProperty({.Quantity = 2.5});
    m_database.AddProperty({.Quantity = 3});
    m_database.AddVehicle();
    const RowList rows = GetHostDatabase().QueryRows(
        "SELECT * FROM (SELECT PropertyNo AS ID, Quantity, PropertyValue AS Value FROM Property "
        "UNION SELECT VehicleNo, 1 AS Quantity, NULL AS Value FROM Vehicle) AS Results ORDER BY Quantity");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].Value("Quantity"), TaggedValue(1));
    EXPECT_EQ(rows[1].Value("Quantity"), TaggedValue(2.5));
    EXPECT_EQ(rows[2].Value("Quantity"), TaggedValue(3));
}

TEST_F(SqliteSchemaTest, AnItemCanBeLinkedTwiceToOneIncident) {
    const int32_t item = m_database.AddProperty();
    const int32_t incident = m_database.AddIncident("2026-1");
    m_database.LinkIncident(Kind::Property, item, incident);
    m_database.LinkIncident(Kind::Property, item, incident);
    EXPECT_EQ(Count("IncdProperty"), 2);
}

TEST_F(SqliteSchemaTest, TheVehicleViewHasOneRowPerVehicle) {
    m_database.AddVehicle({.RegNumber = "ABC 123", .RegStateCode = "ME", .VehYear = "1998", .MakeCode = "Volvo"});
    const auto row = GetHostDatabase().QueryRow("SELECT * FROM vwVehicleDisplayInfo");
    ASSERT_TRUE(row);
    EXPECT_EQ(row->Columns().Names(), (std::vector<std::string>{"VehicleNo", "RegNumber", "RegStateCode", "VehYear",
                                                                "ColorCode", "MakeCode", "VehModel"}));
    EXPECT_EQ(row->Value("VehYear"), TaggedValue("1998"));
    EXPECT_TRUE(row->Value("ColorCode").IsNull());
}

TEST_F(SqliteSchemaTest, TheDisplayNameOfAPersonConsistsOfItsParts) {
    m_database.Execute("INSERT INTO Person (PersonNo, Title, FirstName, LastName) VALUES (1, 'Sgt.', 'Ann', 'Lee')");
    m_database.Execute("INSERT INTO Person (PersonNo, LastName) VALUES (2, 'Front Desk')");
    EXPECT_EQ(m_database.QueryValue("SELECT DisplayName FROM Person WHERE PersonNo = 1"), TaggedValue("Sgt. Ann Lee"));
    EXPECT_EQ(m_database.QueryValue("SELECT DisplayName FROM Person WHERE PersonNo = 2"), TaggedValue("Front Desk"));
}

TEST_F(SqliteSchemaTest, DescendantsAreFoundByAnIndex) {
    std::string plan;
    for (const Row& row :
         m_database.QueryRows("EXPLAIN QUERY PLAN SELECT * FROM StorageLocation WHERE Path LIKE '/0/5/%'"))
        plan += ToText(row.Value("detail")) + "\n";
    EXPECT_NE(plan.find("SEARCH StorageLocation USING INDEX"), std::string::npos) << plan;
}

TEST_F(SqliteSchemaTest, TheEngineDetectsTheTablesOfTheSchema) {
    EXPECT_EQ(m_database.GetEngine()->GetDialect().concatenation, "||");
    EXPECT_EQ(m_database.GetEngine()->GetDialect().textPrefix, "");
    EXPECT_TRUE(m_database.GetEngine()->GetDialect().hasCurrentPlace);
    EXPECT_TRUE(m_database.GetEngine()->GetDialect().hasDescriptionIndex);
    EXPECT_TRUE(m_database.GetEngine()->GetDialect().itemsAreDistinct);
}

TEST_F(SqliteSchemaTest, WithoutTheFactItemsAreNotTakenAsDistinct) {
    m_database.Execute("DELETE FROM SchemaFact");
    EXPECT_FALSE(SqliteEngine::Open(m_database.Path())->GetDialect().itemsAreDistinct);
    m_database.Execute("DROP TABLE SchemaFact");
    EXPECT_FALSE(SqliteEngine::Open(m_database.Path())->GetDialect().itemsAreDistinct);
}
