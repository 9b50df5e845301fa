#include "database/schema/SqliteSchema.h"

#include "base/Text.h"
#include "database/SqliteEngine.h"
#include "host/HostDatabase.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <random>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

using Kind = StoredItemTypes;
using Type = StorageLocationTypes;

constexpr const char* containerGone =
    "Its container has been moved or deleted in the meantime. Refresh the locations and try again.";

std::string LocationInsert(const std::string& name, int type, const std::string& path) {
    return "INSERT INTO StorageLocation (Name,Type,Path,DateEntered,LastUpdated) VALUES ('" + name + "'," +
           std::to_string(type) + ",'" + path + "','2026-01-01T00:00:00.000','2026-01-01T00:00:00.000')";
}

// The statements of a move, like those of the model.
std::vector<std::string> Move(int id, const std::string& children, const std::string& proposed, int type,
                              const std::string& target) {
    const std::string change = "UPDATE StorageLocation SET Type = " + std::to_string(type) + ", Path = ";
    return {change + "REPLACE(Path, '" + children + "', '" + proposed + "') WHERE Path LIKE '" + children + "%'",
            change + "'" + target + "' WHERE IdNo = " + std::to_string(id)};
}

class SqliteSchemaTest : public ::testing::Test {
protected:
    void Execute(const std::string& sql) { GetHostDatabase().Execute(sql); }
    int32_t Count(const std::string& what) { return ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM " + what)); }
    Error Raised(const std::string& sql) {
        return RaisedBy([&] { Execute(sql); });
    }

    TestDatabase m_database;
};

}  // namespace

TEST_F(SqliteSchemaTest, HasItsApplicationIdAndVersion) {
    EXPECT_EQ(m_database.QueryValue("PRAGMA application_id"), TaggedValue(DatabaseApplicationId));
    EXPECT_EQ(m_database.QueryValue("PRAGMA user_version"), TaggedValue(SchemaVersion));
    EXPECT_EQ(SqliteSchemaScripts().back().version, SchemaVersion);
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
    EXPECT_EQ(Raised(insert + "(99,1,NULL,'2026-01-01')").Number(), ErrorNumber::IntegrityViolation);
    const std::string item = std::to_string(m_database.AddProperty());
    EXPECT_EQ(Raised(insert + "(" + item + ",1,99,'2026-01-01')").Number(), ErrorNumber::IntegrityViolation);
    EXPECT_EQ(Raised(insert + "(" + item + ",1,NULL,'2026-01-01')").Number(), 0);
    EXPECT_EQ(Raised(insert + "(" + item + ",1,NULL,'2026-01-01')").Number(), ErrorNumber::IntegrityViolation);
}

TEST_F(SqliteSchemaTest, CustodyRowsCannotBeChangedOrDeleted) {
    for (const Kind kind : {Kind::Property, Kind::vehicle}) {
        const bool isProperty = kind == Kind::Property;
        const std::string table = isProperty ? "PropertyTracking" : "VehicleTracking";
        m_database.AddCustodyRow(kind, isProperty ? m_database.AddProperty() : m_database.AddVehicle(), Null());
        const Error change = Raised("UPDATE " + table + " SET ReceivedBy = 5");
        EXPECT_EQ(change.Description(), "A custody row cannot be changed.");
        EXPECT_NE(change.Number(), ErrorNumber::IntegrityViolation);
        const Error removal = Raised("DELETE FROM " + table);
        EXPECT_EQ(removal.Description(), "A custody row cannot be deleted.");
        EXPECT_NE(removal.Number(), ErrorNumber::IntegrityViolation);
        EXPECT_EQ(RaisedBy([&] {
                      m_database.Execute("INSERT OR REPLACE INTO " + table + " SELECT * FROM " + table);
                  }).Description(),
                  "A custody row cannot be deleted.");
        EXPECT_EQ(Count(table), 1);
    }
}

TEST_F(SqliteSchemaTest, TheFlagAndTheNameOfALocationCanChange) {
    const int32_t room = m_database.AddLocation("Room", Type::Internal);
    m_database.AddLocation("Shelf", Type::Internal, room);
    EXPECT_EQ(Raised("UPDATE StorageLocation SET ActiveFlag = 0, Name = Name || 'x'").Number(), 0);
}

TEST_F(SqliteSchemaTest, ALocationNeedsAnExistingContainerInTheSameCategory) {
    const std::string room = std::to_string(m_database.AddLocation("Room", Type::Internal));
    EXPECT_EQ(Raised(LocationInsert("Top", 8, "/0/")).Number(), 0);
    EXPECT_EQ(Raised(LocationInsert("Shelf", 2, "/0/" + room + "/")).Number(), 0);
    for (const std::string& wrong :
         {LocationInsert("A", 4, "/0/" + room + "/"), LocationInsert("A", 2, "/0/77/"), LocationInsert("A", 2, ""),
          LocationInsert("A", 2, "/0/77/" + room + "/"), LocationInsert("A", 2, "/0/" + room),
          LocationInsert("A", 2, "/"), LocationInsert("A", 2, "0/"), LocationInsert("A", 2, "/0/0/")}) {
        const Error error = Raised(wrong);
        EXPECT_EQ(error.Description(), containerGone) << wrong;
        EXPECT_NE(error.Number(), ErrorNumber::IntegrityViolation);
        EXPECT_NE(error.Number(), 0);
    }
    EXPECT_EQ(Raised("UPDATE StorageLocation SET Path = '/0/77/' WHERE Name = 'Shelf'").Description(), containerGone);
    EXPECT_EQ(Raised("UPDATE StorageLocation SET Path = '/0/" + room + "/' WHERE Name = 'Top'").Description(),
              containerGone);
}

TEST_F(SqliteSchemaTest, AWholeSubtreeMovesWithItsDescendantsFirst) {
    const int32_t a = m_database.AddLocation("A", Type::Internal);
    const int32_t b = m_database.AddLocation("B", Type::Internal);
    const int32_t x = m_database.AddLocation("X", Type::Internal, a);
    const int32_t y = m_database.AddLocation("Y", Type::Internal, x);
    const int32_t z = m_database.AddLocation("Z", Type::Internal, y);
    const std::string idA = std::to_string(a), idB = std::to_string(b), idX = std::to_string(x),
                      idY = std::to_string(y);
    GetHostDatabase().ExecuteBatch(
        Move(x, "/0/" + idA + "/" + idX + "/", "/0/" + idB + "/" + idX + "/", 2, "/0/" + idB + "/"));
    EXPECT_EQ(m_database.QueryValue("SELECT Path FROM StorageLocation WHERE Name = 'Z'"),
              TaggedValue("/0/" + idB + "/" + idX + "/" + idY + "/"));
    EXPECT_EQ(m_database.QueryValue("SELECT ContainerNo FROM StorageLocation WHERE IdNo = " + std::to_string(z)),
              TaggedValue(y));
}

TEST_F(SqliteSchemaTest, ASubtreeMovesToTheRootOfAnotherCategory) {
    const int32_t x = m_database.AddLocation("X", Type::Internal);
    m_database.AddLocation("Z", Type::Internal, m_database.AddLocation("Y", Type::Internal, x));
    const std::string children = "/0/" + std::to_string(x) + "/";
    GetHostDatabase().ExecuteBatch(Move(x, children, children, 8, "/0/"));
    EXPECT_EQ(Count("StorageLocation WHERE Type = 8"), 3);
}

TEST_F(SqliteSchemaTest, AMoveIntoAContainerThatMovedInTheMeantimeIsRefused) {
    const int32_t a = m_database.AddLocation("A", Type::Internal);
    const int32_t b = m_database.AddLocation("B", Type::Internal);
    const int32_t x = m_database.AddLocation("X", Type::Internal);
    m_database.AddLocation("Y", Type::Internal, x);
    const std::string idA = std::to_string(a), idB = std::to_string(b), idX = std::to_string(x);
    GetHostDatabase().ExecuteBatch(Move(b, "/0/" + idB + "/", "/0/" + idA + "/" + idB + "/", 2, "/0/" + idA + "/"));
    const std::string before = m_database.Snapshot();
    const Error error = RaisedBy([&] {
        GetHostDatabase().ExecuteBatch(Move(x, "/0/" + idX + "/", "/0/" + idB + "/" + idX + "/", 2, "/0/" + idB + "/"));
    });
    EXPECT_EQ(error.Description(), containerGone);
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(SqliteSchemaTest, AMoveThatWouldLeaveSublocationsBehindIsRefused) {
    const int32_t a = m_database.AddLocation("A", Type::Internal);
    const int32_t x = m_database.AddLocation("X", Type::Internal);
    m_database.AddLocation("Y", Type::Internal, x);
    const std::string idA = std::to_string(a), idX = std::to_string(x);
    const std::string before = m_database.Snapshot();
    const Error moved = RaisedBy([&] {
        GetHostDatabase().ExecuteBatch(
            Move(x, "/0/99/" + idX + "/", "/0/" + idA + "/" + idX + "/", 2, "/0/" + idA + "/"));
    });
    EXPECT_NE(moved.Description().find("sublocations would be left behind"), std::string::npos) << moved.Description();
    EXPECT_NE(moved.Number(), ErrorNumber::IntegrityViolation);
    const Error recategorized = Raised("UPDATE StorageLocation SET Type = 4 WHERE IdNo = " + idX);
    EXPECT_NE(recategorized.Description().find("sublocations would be left behind"), std::string::npos);
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(SqliteSchemaTest, ALocationWithSublocationsCannotBeDeletedAlone) {
    const int32_t room = m_database.AddLocation("Room", Type::Internal);
    m_database.AddLocation("Box", Type::Internal, m_database.AddLocation("Shelf", Type::Internal, room));
    const std::string id = std::to_string(room);
    EXPECT_EQ(Raised("DELETE FROM StorageLocation WHERE IdNo = " + id).Number(), ErrorNumber::IntegrityViolation);
    GetHostDatabase().ExecuteBatch({"DELETE FROM StorageLocation WHERE Path LIKE '/0/" + id + "/%'",
                                    "DELETE FROM StorageLocation WHERE IdNo = " + id});
    EXPECT_EQ(Count("StorageLocation"), 0);
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

namespace {

// Items with a location in the current custody row, and those missing in CurrentPlace.
constexpr const char* missingPlaces =
    "(SELECT t.StorageLocNo, 1, p.PropertyNo FROM Property p JOIN PropertyTracking t ON t.PropertyNo = p.PropertyNo "
    "AND t.SeqNo = p.CurrTrackSeq WHERE t.StorageLocNo IS NOT NULL UNION ALL "
    "SELECT t.StorageLocNo, 2, v.VehicleNo FROM Vehicle v JOIN VehicleTracking t ON t.VehicleNo = v.VehicleNo "
    "AND t.SeqNo = v.CurrTrackSeq WHERE t.StorageLocNo IS NOT NULL EXCEPT SELECT * FROM CurrentPlace)";

class CurrentPlaceTest : public SqliteSchemaTest {
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
    m_database.Execute("UPDATE Property SET CurrTrackSeq = 1");
    m_database.Execute(
        "INSERT INTO PropertyTracking (PropertyNo, SeqNo, StorageLocNo, LastUpdated) VALUES (?, 1, ?, '')",
        {item, m_locations[2]});
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
        const std::string place = any(5) == 0 ? "NULL" : std::to_string(m_locations[static_cast<size_t>(any(4))]);
        const std::string row = " WHERE " + key + " = " + item + " AND SeqNo = " + sequence;
        std::string sql;
        switch (any(9)) {
        case 0:
        case 1:
            sql = "INSERT INTO " + table + "Tracking (" + key + ", SeqNo, StorageLocNo, LastUpdated) VALUES (" + item +
                  ", " + sequence + ", " + place + ", '')";
            break;
        case 2: sql = "UPDATE " + table + " SET CurrTrackSeq = " + sequence + " WHERE " + key + " = " + item; break;
        case 3: sql = "UPDATE " + table + "Tracking SET StorageLocNo = " + place + row; break;
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

TEST_F(CurrentPlaceTest, IsNotUsedWhenOneOfItsTriggersIsMissing) {
    m_database.Execute("DROP TRIGGER VehicleTrackingPlaceAfterInsert");
    m_database.Execute("DROP TRIGGER PropertyDescriptionAfterUpdate");
    const auto engine = SqliteEngine::Open(m_database.Path());
    EXPECT_FALSE(engine->GetDialect().hasCurrentPlace);
    EXPECT_FALSE(engine->GetDialect().hasDescriptionIndex);
}
