#include "data/CustodyRecords.h"
#include "data/StoredItem.h"

#include "tests/support/DatabaseTest.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/InterruptingEngine.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"

#include <algorithm>
#include <new>

namespace quellbrook {

namespace {

using testing::MakeItem;
using Texts = std::vector<std::string>;

constexpr auto Property = StoredItemTypes::Property;
constexpr auto Vehicle = StoredItemTypes::vehicle;

class StoredItemRelations : public testing::DatabaseTest {
protected:
    StoredItemRelations() {
        m_property = m_database.AddProperty();
        m_vehicle = m_database.AddVehicle();
    }

    // The query has no ORDER BY, so the tests sort the rows.
    static Texts IncidentsOf(StoredItem& item) {
        Texts ids;
        for (const auto& incident : item.RelatedIncidents()) ids.push_back(incident->DisplayID());
        std::sort(ids.begin(), ids.end());
        return ids;
    }
    static Texts CasesOf(StoredItem& item) {
        Texts numbers;
        for (const auto& info : item.RelatedCases()) numbers.push_back(info->CaseNumber());
        std::sort(numbers.begin(), numbers.end());
        return numbers;
    }

    void RevokeSecured() {
        m_session->Revoke({"Incident", 5});
        m_session->Revoke({"Incident", 6});
    }

    int32_t m_property = 0;
    int32_t m_vehicle = 0;
};

}  // namespace

TEST_F(StoredItemRelations, IncidentsAreThoseLinkedToTheItemOfItsKind) {
    m_database.LinkIncident(Property, m_property, m_database.AddIncident("I-1", "C-1"));
    m_database.LinkIncident(Property, m_property, m_database.AddIncident("I-2", "C-2"));
    m_database.LinkIncident(Property, m_database.AddProperty(), m_database.AddIncident("I-3", "C-3"));
    m_database.LinkIncident(Vehicle, m_vehicle, m_database.AddIncident("I-4", "C-4"));
    EXPECT_EQ(IncidentsOf(*MakeItem(m_property)), (Texts{"I-1", "I-2"}));
    EXPECT_EQ(CasesOf(*MakeItem(m_property)), (Texts{"C-1", "C-2"}));
    for (const int32_t kind : {2, 9, 0, -1}) {
        const auto item = MakeItem(m_vehicle, static_cast<StoredItemTypes>(kind));
        EXPECT_EQ(IncidentsOf(*item), Texts{"I-4"}) << kind;
        EXPECT_EQ(CasesOf(*item), Texts{"C-4"}) << kind;
    }
}

TEST_F(StoredItemRelations, AnIncidentHasItsKeyAndItsSecuredFlag) {
    const int32_t incidentNo = m_database.AddIncident("I-1", "C-1", true);
    m_database.LinkIncident(Property, m_property, incidentNo);
    const auto item = MakeItem(m_property);
    ASSERT_EQ(item->RelatedIncidents().size(), 1u);
    EXPECT_EQ(item->RelatedIncidents()[0]->ID(), incidentNo);
    EXPECT_TRUE(item->RelatedIncidents()[0]->IsSecured());
}

TEST_F(StoredItemRelations, AnIncidentLinkedTwiceShowsOnce) {
    const int32_t incidentNo = m_database.AddIncident("I-1", "C-1");
    m_database.LinkIncident(Property, m_property, incidentNo);
    m_database.LinkIncident(Property, m_property, incidentNo);
    EXPECT_EQ(IncidentsOf(*MakeItem(m_property)), Texts{"I-1"});
    EXPECT_EQ(CasesOf(*MakeItem(m_property)), Texts{"C-1"});
}

// The order is the database's. SQLite returns the links as they were added.
TEST_F(StoredItemRelations, IncidentsAndCasesKeepTheOrderOfTheirFirstAppearance) {
    const int32_t first = m_database.AddIncident("I-1", "C-2");
    const int32_t second = m_database.AddIncident("I-2", "C-3");
    const int32_t third = m_database.AddIncident("I-3", "C-1");
    for (const int32_t incidentNo : {third, first, third, second, first})
        m_database.LinkIncident(Property, m_property, incidentNo);
    const auto item = MakeItem(m_property);
    Texts incidents;
    for (const auto& incident : item->RelatedIncidents()) incidents.push_back(incident->DisplayID());
    EXPECT_EQ(incidents, (Texts{"I-3", "I-1", "I-2"}));
    Texts cases;
    for (const auto& info : item->RelatedCases()) cases.push_back(info->CaseNumber());
    EXPECT_EQ(cases, (Texts{"C-1", "C-2", "C-3"}));
}

TEST_F(StoredItemRelations, TheLinksOfAnItemAreFoundByTheirIndex) {
    const auto recording = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
    m_database.Install(recording);
    const auto read = [](const StoredItemRef& item) {
        item->RelatedIncidents();
        item->RelatedCases();
    };
    read(MakeItem(m_property));
    read(MakeItem(m_vehicle, Vehicle));
    RevokeSecured();
    read(MakeItem(m_property));
    read(MakeItem(m_vehicle, Vehicle));
    const Texts statements = recording->Log();
    ASSERT_EQ(statements.size(), 8u);
    for (const std::string& statement : statements) {
        const bool isProperty = statement.find("IncdProperty") != std::string::npos;
        const std::string index = isProperty ? "IncdProperty USING INDEX IncdPropertyByPropertyNo"
                                             : "IncdVehicle USING INDEX IncdVehicleByVehicleNo";
        std::string plan;
        for (const Row& row : m_database.QueryRows("EXPLAIN QUERY PLAN " + statement))
            plan += ToText(row.Value("detail")) + "\n";
        EXPECT_NE(plan.find("SEARCH " + index), std::string::npos) << plan << statement;
        EXPECT_EQ(plan.find("SCAN"), std::string::npos) << plan;
    }
}

TEST_F(StoredItemRelations, AUserWithNeitherRightDoesNotSeeSecuredIncidents) {
    m_database.LinkIncident(Property, m_property, m_database.AddIncident("I-1", "C-1", true));
    m_database.LinkIncident(Property, m_property, m_database.AddIncident("I-2", "C-2", false));
    RevokeSecured();
    EXPECT_EQ(IncidentsOf(*MakeItem(m_property)), Texts{"I-2"});
    EXPECT_EQ(CasesOf(*MakeItem(m_property)), (Texts{"C-1", "C-2"})) << "case numbers are shown all the same";

    for (const int16_t right : {int16_t{5}, int16_t{6}}) {
        RevokeSecured();
        m_session->Grant("Incident", right);
        EXPECT_EQ(IncidentsOf(*MakeItem(m_property)), (Texts{"I-1", "I-2"})) << right;
    }
}

TEST_F(StoredItemRelations, CasesOfOneNumberCollapseAndAMissingNumberReadsAsEmpty) {
    for (const auto& [incident, caseNumber] : std::initializer_list<std::pair<const char*, TaggedValue>>{
             {"I-1", "C-1"}, {"I-2", "C-1"}, {"I-3", Null()}, {"I-4", Null()}})
        m_database.LinkIncident(Property, m_property, m_database.AddIncident(incident, caseNumber));
    EXPECT_EQ(CasesOf(*MakeItem(m_property)), (Texts{"", "C-1"}));
    EXPECT_EQ(MakeItem(m_property)->RelatedIncidents().size(), 4u);
}

TEST_F(StoredItemRelations, BothListsAreFetchedOnceAndKeptAcrossRefresh) {
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    m_database.AddCustodyRow(Property, m_property, shelf);
    m_database.LinkIncident(Property, m_property, m_database.AddIncident("I-1", "C-1"));
    const auto item = testing::FindItem(Property, m_property);
    IncidentsOf(*item);
    CasesOf(*item);
    m_database.LinkIncident(Property, m_property, m_database.AddIncident("I-2", "C-2"));
    item->Refresh();
    EXPECT_EQ(IncidentsOf(*item), Texts{"I-1"});
    EXPECT_EQ(CasesOf(*item), Texts{"C-1"});
}

TEST_F(StoredItemRelations, AnItemWithoutLinksHasEmptyListsThatAreKeptToo) {
    const auto recording = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
    m_database.Install(recording);
    const auto item = MakeItem(m_property);
    EXPECT_TRUE(item->RelatedIncidents().empty());
    EXPECT_TRUE(item->RelatedIncidents().empty());
    EXPECT_TRUE(item->RelatedCases().empty());
    EXPECT_TRUE(item->RelatedCases().empty());
    EXPECT_EQ(recording->Log().size(), 2u);
}

TEST_F(StoredItemRelations, AFailureNamesTheItemAndKeepsNumberAndSource) {
    const auto faulty = std::make_shared<testing::FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faulty);
    const Error cause(1234, "Engine.Query", "The server is gone.");

    const auto property = MakeItem(7, Property, Null(), "E-17");
    faulty->FailAtStatement(1, cause);
    Error error = testing::RaisedBy([&] { property->RelatedIncidents(); });
    EXPECT_EQ(error.Number(), 1234);
    EXPECT_EQ(error.Source(), "Engine.Query");
    EXPECT_EQ(error.Description(),
              "Error retrieving related incident data for property E-17 (PK = 7): The server is gone.");

    const auto vehicle = MakeItem(3, Vehicle);
    faulty->FailAtStatement(1, cause);
    error = testing::RaisedBy([&] { vehicle->RelatedCases(); });
    EXPECT_EQ(error.Number(), 1234);
    EXPECT_EQ(error.Description(),
              "Error retrieving related case data for vehicle <missing ID> (PK = 3): The server is gone.");
    EXPECT_TRUE(vehicle->RelatedCases().empty()) << "nothing was kept of the failure";
}

TEST_F(StoredItemRelations, ALackOfMemoryNamesTheItemToo) {
    const auto interrupting = std::make_shared<testing::InterruptingEngine>(m_database.GetEngine());
    m_database.Install(interrupting);
    const auto item = MakeItem(7, Property, Null(), "E-17");
    const std::string noMemory = "There is not enough memory. Close other programs and try again.";
    const auto outOfMemory = [] { throw std::bad_alloc(); };
    interrupting->BeforeStatement(outOfMemory);
    EXPECT_EQ(testing::RaisedBy([&] { item->RelatedIncidents(); }).Description(),
              "Error retrieving related incident data for property E-17 (PK = 7): " + noMemory);
    interrupting->BeforeStatement(outOfMemory);
    EXPECT_EQ(testing::RaisedBy([&] { item->RelatedCases(); }).Description(),
              "Error retrieving related case data for property E-17 (PK = 7): " + noMemory);
}

TEST_F(StoredItemRelations, TrackingRecordsAreOrderedNewestFirstAndLinkedToThePreviousOne) {
    const auto day = [](int number) { return DateTime::FromParts({2026, 1, number, 12, 0, 0, 0}); };
    m_database.AddCustodyRow(Property, m_property, Null(), {.DateReceived = day(1), .LastUpdated = day(9)});
    m_database.AddCustodyRow(Property, m_property, Null(), {.DateReceived = day(5), .LastUpdated = day(9)});
    m_database.AddCustodyRow(Property, m_property, Null(), {.DateReceived = day(3), .LastUpdated = day(7)});
    m_database.AddCustodyRow(Property, m_property, Null(), {.DateReceived = day(3), .LastUpdated = day(8)});
    const auto records = MakeItem(m_property)->TrackingRecords();
    ASSERT_EQ(records.size(), 4u);
    std::vector<int32_t> sequence;
    for (const auto& record : records) sequence.push_back(record->Sequence());
    EXPECT_EQ(sequence, (std::vector<int32_t>{2, 4, 3, 1}));
    EXPECT_EQ(records[0]->Previous(), records[1]);
    EXPECT_EQ(records[1]->Previous(), records[2]);
    EXPECT_EQ(records[2]->Previous(), records[3]);
    EXPECT_EQ(records[3]->Previous(), nullptr);
}

TEST_F(StoredItemRelations, AnItemWithoutCustodyRowsHasNoTrackingRecords) {
    m_database.AddCustodyRow(Property, m_database.AddProperty(), Null());
    EXPECT_TRUE(MakeItem(m_property)->TrackingRecords().empty());
    EXPECT_TRUE(MakeItem(m_vehicle, Vehicle)->TrackingRecords().empty());
}

TEST_F(StoredItemRelations, TrackingRecordsAreReadAtEachCallWithTheirOwnStatement) {
    const auto recording = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
    m_database.Install(recording);
    const auto item = MakeItem(m_vehicle, Vehicle);
    item->TrackingRecords();
    m_database.AddCustodyRow(Vehicle, m_vehicle, Null());
    EXPECT_EQ(item->TrackingRecords().size(), 1u);
    const std::string sql = "SELECT * FROM VehicleTracking WHERE VehicleNo = " + std::to_string(m_vehicle) +
                            " ORDER BY DateReceived DESC, LastUpdated DESC";
    EXPECT_EQ(recording->Log(), (Texts{sql, sql}));
}

}  // namespace quellbrook
