#include "database/odbc/ServerVerification.h"

#include "base/Error.h"
#include "tests/server/ServerTest.h"
#include "tests/support/CustodyRuleSentences.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Kind = StoredItemTypes;
using Type = StorageLocationTypes;
using Lines = std::vector<std::string>;

// Damages what the schema protects, on a connection that runs no triggers and checks no foreign keys.
class ServerVerification : public ServerTest {
protected:
    ServerVerification() {
        m_room = m_database.AddLocation("Room", Type::Internal);
        m_shelf = m_database.AddLocation("Shelf", Type::Internal, m_room);
        m_property = m_database.AddProperty();
        m_vehicle = m_database.AddVehicle();
        m_database.AddProperty();
        for (int i = 0; i < 3; ++i) {
            m_database.AddCustodyRow(Kind::Property, m_property, m_shelf);
            m_database.AddCustodyRow(Kind::vehicle, m_vehicle, m_room);
        }
    }

    void Damage(const std::string& sql) {
        m_database.Execute("SET session_replication_role = replica");
        m_database.Execute(sql);
        m_database.Execute("SET session_replication_role = origin");
    }

    // The broken rules, each followed by its examples.
    static Lines Found() {
        Lines lines;
        for (const RuleCheck& check : VerifyServerDatabase(TestServer())) {
            if (check.faults == 0) continue;
            lines.push_back(check.rule);
            lines.insert(lines.end(), check.examples.begin(), check.examples.end());
        }
        return lines;
    }

    int32_t m_room = 0, m_shelf = 0, m_property = 0, m_vehicle = 0;
};

TEST_F(ServerVerification, NothingIsWrongWithAProperDatabase) {
    const std::string before = m_database.Snapshot();
    Lines rules;
    for (const RuleCheck& check : VerifyServerDatabase(TestServer())) rules.push_back(check.rule);
    EXPECT_THAT(rules,
                ElementsAre(numbered, owners, latest, disposition, dispositionFlag, tree, names, objects, places));
    EXPECT_THAT(Found(), IsEmpty());
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(ServerVerification, GapsInAChainAreFound) {
    Damage("DELETE FROM PropertyTracking WHERE SeqNo = 2");
    Damage("DELETE FROM VehicleTracking WHERE SeqNo = 1");
    EXPECT_THAT(Found(), ElementsAre(numbered, "Property 1 has 2 custody rows, numbered from 1 to 3",
                                     "Vehicle 1 has 2 custody rows, numbered from 2 to 3"));
}

TEST_F(ServerVerification, AChainThatDoesNotBeginAtOneIsFound) {
    m_database.Execute("ALTER TABLE PropertyTracking DROP CONSTRAINT propertytracking_seqno_check");
    Damage("UPDATE PropertyTracking SET SeqNo = 0 WHERE SeqNo = 1");
    EXPECT_THAT(Found(), ElementsAre(numbered, "Property 1 has 3 custody rows, numbered from 0 to 3"));
}

TEST_F(ServerVerification, CustodyRowsWithoutTheirItemOrLocationAreFound) {
    Damage("DELETE FROM Vehicle");
    Damage("UPDATE PropertyTracking SET StorageLocNo = 77 WHERE SeqNo = 1");
    Damage("UPDATE VehicleTracking SET StorageLocNo = NULL WHERE SeqNo = 3");
    EXPECT_THAT(Found(),
                ElementsAre(owners, "Property 1, custody row 1, location 77", "Vehicle 1, custody row 1, location 1",
                            "Vehicle 1, custody row 2, location 1", "Vehicle 1, custody row 3"));
}

TEST_F(ServerVerification, AnItemThatDoesNotNameItsLatestRowIsFound) {
    Damage("UPDATE Property SET CurrTrackSeq = 2 WHERE PropertyNo = 1");
    Damage("UPDATE Property SET CurrTrackSeq = 9 WHERE PropertyNo = 2");
    Damage("UPDATE Vehicle SET CurrTrackSeq = NULL");
    EXPECT_THAT(Found(), ElementsAre(latest, "Property 1 names custody row 2, and its latest is 3",
                                     "Property 2 names custody row 9, and its latest is none",
                                     "Vehicle 1 names custody row none, and its latest is 3"));
}

TEST_F(ServerVerification, AFinalDispositionWithoutCustodyRowsIsFound) {
    m_database.Execute("UPDATE Property SET HasFinalDisposition = 1");
    EXPECT_THAT(Found(), ElementsAre(disposition, "Property 2 has a final disposition and no current custody row"));
}

TEST_F(ServerVerification, AFlagThatIsNeitherZeroNorOneIsFound) {
    m_database.Execute("ALTER TABLE Vehicle DROP CONSTRAINT vehicle_hasfinaldisposition_check");
    m_database.Execute("UPDATE Vehicle SET HasFinalDisposition = 7");
    EXPECT_THAT(Found(), ElementsAre(dispositionFlag, "Vehicle 1 has the flag 7"));
}

TEST_F(ServerVerification, ALocationOutsideTheTreeIsFound) {
    Damage("UPDATE StorageLocation SET Type = 4 WHERE Name = 'Shelf'");
    EXPECT_THAT(Found(), ElementsAre(tree, "Location 2 (Shelf) has the path /0/1/ and the category 4"));
    Damage("UPDATE StorageLocation SET Type = 2, Path = '/0/77/' WHERE Name = 'Shelf'");
    EXPECT_THAT(Found(), ElementsAre(tree, "Location 2 (Shelf) has the path /0/77/ and the category 2"));
}

TEST_F(ServerVerification, ANameThatAContainerHasTwiceIsFound) {
    m_database.AddLocation("shelf", Type::Internal);
    m_database.AddLocation("ROOM", Type::External);
    EXPECT_THAT(Found(), IsEmpty());
    m_database.Execute("DROP INDEX StorageLocationName");
    m_database.Execute("UPDATE StorageLocation SET Path = '/0/1/' WHERE Name = 'shelf'");
    EXPECT_THAT(Found(), ElementsAre(names, "Location 3 (shelf) has the name of another location", objects,
                                     "The index StorageLocationName is missing"));
}

TEST_F(ServerVerification, MissingObjectsAreFound) {
    m_database.Execute("DROP TRIGGER PropertyTrackingGuard ON PropertyTracking");
    m_database.Execute("ALTER TABLE Vehicle DISABLE TRIGGER VehiclePlace");
    m_database.Execute("DROP INDEX VehicleByRegNumber");
    m_database.Execute("ALTER TABLE CurrentPlace RENAME TO Elsewhere");
    EXPECT_THAT(Found(),
                ElementsAre(objects, "The index VehicleByRegNumber is missing", "The table CurrentPlace is missing",
                            "The trigger PropertyTrackingGuard is missing or switched off",
                            "The trigger VehiclePlace is missing or switched off", places, "There is no such table"));
    m_database.Execute("ALTER TABLE Elsewhere RENAME TO CurrentPlace");
}

TEST_F(ServerVerification, OurObjectsAreNotExpectedInAHostsSchema) {
    m_database.Execute("ALTER TABLE SchemaVersion RENAME TO Elsewhere");
    m_database.Execute("DELETE FROM CurrentPlace");
    EXPECT_THAT(Found(), IsEmpty());
    m_database.Execute("ALTER TABLE Elsewhere RENAME TO SchemaVersion");
}

TEST_F(ServerVerification, ItemsThatCurrentPlaceLacksAreFoundAndFilledInAgain) {
    const std::string before = m_database.Snapshot();
    m_database.Execute("DELETE FROM CurrentPlace");
    EXPECT_THAT(Found(),
                ElementsAre(places, "Property 1 is missing at location 2", "Vehicle 1 is missing at location 1"));
    m_database.Execute("INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (1, 1, 1)");
    RebuildServerPlaces(TestServer());
    EXPECT_THAT(Found(), IsEmpty());
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(ServerVerification, ATransactionThatChangesCurrentPlaceIsWaitedFor) {
    OdbcConnection other(TestServer(), ServerLimits());
    other.Begin();
    other.ExecuteNative("INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo) VALUES (1, 1, 1)");
    m_log.Announce("OdbcStatement.Execute");
    EXPECT_EQ(RaisedBy([] {
                  RebuildServerPlaces(TestServer(), {15, 3});
              }).Description(),
              "canceling statement due to statement timeout");
    other.Rollback();
    EXPECT_THAT(Found(), IsEmpty());
}

TEST_F(ServerVerification, ADatabaseWithoutCurrentPlaceIsNotRepaired) {
    m_database.Execute("ALTER TABLE CurrentPlace RENAME TO Elsewhere");
    EXPECT_EQ(RaisedBy([] { RebuildServerPlaces(TestServer()); }).Description(),
              "The database has no side table CurrentPlace.");
    m_database.Execute("ALTER TABLE Elsewhere RENAME TO CurrentPlace");
}

}  // namespace
}  // namespace quellbrook::testing
