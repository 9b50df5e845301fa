// Holds how SQLite carries out a search by something that is indexed: from that index, whatever else is asked.

#include "data/StoredItemSearch.h"

#include "access/Permissions.h"
#include "base/Text.h"
#include "data/StorageLocationStatic.h"
#include "sql/tsql/TransactSqlRewriter.h"
#include "tests/data/SearchLiteralText.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/WithoutSideTables.h"

#include <algorithm>

namespace quellbrook::testing {

namespace {

using Texts = std::vector<std::string>;
using Number = NumberSearchTypes;

// What ANALYZE would write of a department with a million items: rows, then rows for one value of the index's columns.
const char* const statistics =
    "('Property', NULL, '1000000'), ('Property', 'PropertyByPropertyID', '1000000 2'), ('Vehicle', NULL, '100000'), "
    "('Vehicle', 'VehicleByRegNumber', '100000 1'), ('PropertyTracking', 'PropertyTracking', '3670000 4 1'), "
    "('PropertyTracking', 'PropertyTrackingPlace', '3670000 735 1 1'), "
    "('VehicleTracking', 'VehicleTracking', '368000 4 1'), "
    "('VehicleTracking', 'VehicleTrackingPlace', '368000 74 1 1'), ('Incident', NULL, '400000'), "
    "('Incident', 'IncidentByIncidentId', '400000 1'), ('Incident', 'IncidentByCaseNbr', '200000 2'), "
    "('IncdProperty', 'IncdPropertyByPropertyNo', '1215000 2'), "
    "('IncdProperty', 'IncdPropertyByIncidentNo', '1215000 4'), "
    "('IncdVehicle', 'IncdVehicleByVehicleNo', '100000 1'), ('IncdVehicle', 'IncdVehicleByIncidentNo', '100000 1'), "
    "('CurrentPlace', 'CurrentPlace', '1050000 210 190 1')";

bool Holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

bool Holds(const Texts& lines, const std::string& part) {
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) { return Holds(line, part); });
}

// Whether the line of a plan reads a whole table of items, of their links or of their custody rows, or makes a table or
// an index for this one query.
bool IsWasteful(const std::string& line) {
    if (Holds(line, "MATERIALIZE") || Holds(line, "AUTOMATIC")) return true;
    if (line.rfind("SCAN PropertyDescription VIRTUAL", 0) == 0) return false;
    for (const char* table : {"SCAN Property", "SCAN Vehicle", "SCAN vwVehicle", "SCAN Incd"})
        if (line.rfind(table, 0) == 0) return true;
    return false;
}

class SearchPlan : public DatabaseTest {
protected:
    SearchPlan() {
        m_shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
        m_recording = std::make_shared<RecordingEngine>(m_database.GetEngine());
        m_database.Install(m_recording);
    }

    void HideSideTables() {
        m_recording = std::make_shared<RecordingEngine>(std::make_shared<WithoutSideTables>(m_database.GetEngine()));
        m_database.Install(m_recording);
    }

    Texts PlanOf(const std::string& transactSql) {
        const std::string text = sql::RewriteTransactSql(transactSql).at(0).text;
        Texts lines;
        for (const Row& row : m_database.QueryRows("EXPLAIN QUERY PLAN " + text))
            lines.push_back(ToText(row.Value("detail")));
        return lines;
    }

    // The plans of the texts that the search puts to the database, for its rows and for their count.
    std::vector<Texts> PlansOf(StoredItemSearch search) {
        m_recording->Clear();
        search.ExecuteRaw();
        search.Count();
        std::vector<Texts> plans;
        for (const std::string& text : m_recording->Log()) plans.push_back(PlanOf(text));
        EXPECT_EQ(plans.size(), 2u);
        return plans;
    }

    // The search, and the same with everything else that can be asked beside it, starts from the index.
    void ExpectFoundBy(const std::string& index, const StoredItemSearch& search) {
        for (int more = 0; more < 16; ++more) {
            StoredItemSearch asked = search;
            if (more & 1) asked.Tagged();
            if (more & 2) asked.Untracked();
            if (more & 4) asked.WithDescription("*blue*");
            if (more & 8) asked.InLocation(GetStorageLocationStatic().FindByID(m_shelf));
            ExpectFrugal(asked, (more & 8) != 0 ? std::string() : index, "with " + std::to_string(more));
        }
    }

    void ExpectFrugal(const StoredItemSearch& search, const std::string& index, const std::string& what) {
        for (const Texts& plan : PlansOf(search)) {
            for (const std::string& line : plan) EXPECT_FALSE(IsWasteful(line)) << what << ": " << line;
            EXPECT_TRUE(index.empty() || Holds(plan, index)) << what << ": " << Join(plan, "\n");
        }
    }

    StoredItemSearch ByNumber(Number type, const std::string& number) const {
        return StoredItemSearch().WithNumber(type, number);
    }

    int32_t m_shelf = 0;
    std::shared_ptr<RecordingEngine> m_recording;
};

}  // namespace

TEST_F(SearchPlan, AnItemsKeyIsLookedUp) {
    ExpectFoundBy("SEARCH Property USING INTEGER PRIMARY KEY", ByNumber(Number::PropertyPK, "7"));
    ExpectFoundBy("SEARCH Vehicle USING INTEGER PRIMARY KEY", ByNumber(Number::VehiclePK, "7"));
}

TEST_F(SearchPlan, AnIdentifierIsLookedUpWhetherWholeOrByItsBeginning) {
    for (const char* number : {"E-1", "E-1*", "50%*"}) {
        ExpectFoundBy("SEARCH Property USING INDEX PropertyByPropertyID", ByNumber(Number::PropertyID, number));
        ExpectFoundBy("SEARCH Vehicle USING INDEX VehicleByRegNumber", ByNumber(Number::VehicleTag, number));
    }
}

TEST_F(SearchPlan, AnIncidentIsLookedUpFirstAndItsItemsFromThere) {
    for (const char* number : {"I-1", "I-1*"}) {
        for (const char* index :
             {"SEARCH Incident USING COVERING INDEX IncidentByIncidentId",
              "SEARCH IncdProperty USING INDEX IncdPropertyByIncidentNo",
              "SEARCH IncdVehicle USING INDEX IncdVehicleByIncidentNo", "SEARCH Property USING INTEGER PRIMARY KEY",
              "SEARCH Vehicle USING INTEGER PRIMARY KEY"})
            ExpectFoundBy(index, ByNumber(Number::IncidentId, number));
        ExpectFoundBy("SEARCH Incident USING COVERING INDEX IncidentByCaseNbr", ByNumber(Number::CaseNumber, number));
    }
}

TEST_F(SearchPlan, AnIncidentByAPartOfItsNumberReadsTheIncidentsOnly) {
    for (const Number type : {Number::IncidentId, Number::CaseNumber}) {
        ExpectFoundBy("SCAN Incident", ByNumber(type, "*7*"));
        ExpectFoundBy("SEARCH IncdProperty USING INDEX IncdPropertyByIncidentNo", ByNumber(type, "*7*"));
    }
}

TEST_F(SearchPlan, ALocationIsAskedForWhatLiesThereNow) {
    const auto search = [&] { return StoredItemSearch().InLocation(GetStorageLocationStatic().FindByID(m_shelf)); };
    for (const bool isTagged : {false, true}) {
        StoredItemSearch asked = isTagged ? search().Tagged() : search();
        ExpectFrugal(asked, "SEARCH CurrentPlace USING PRIMARY KEY (StorageLocNo=? AND ItemType=?)", "contents");
        ExpectFrugal(asked.WithDescription("*blue*"), "SEARCH CurrentPlace USING PRIMARY KEY", "description");
        for (const Texts& plan : PlansOf(asked)) EXPECT_FALSE(Holds(plan, "TrackingPlace")) << Join(plan, "\n");
    }
    ExpectFrugal(search().OfType(StoredItemTypes::vehicle), "SEARCH Vehicle USING INTEGER PRIMARY KEY", "vehicles");
}

TEST_F(SearchPlan, WithoutTheSideTableALocationIsLookedUpInTheCustodyRows) {
    HideSideTables();
    const auto search = StoredItemSearch().InLocation(GetStorageLocationStatic().FindByID(m_shelf));
    ExpectFrugal(search, "USING COVERING INDEX PropertyTrackingPlace (StorageLocNo=?)", "contents");
    ExpectFrugal(search, "USING COVERING INDEX VehicleTrackingPlace (StorageLocNo=?)", "contents");
}

TEST_F(SearchPlan, WithoutTheSideTablesNumbersAreLookedUpAllTheSame) {
    HideSideTables();
    ExpectFoundBy("SEARCH Property USING INTEGER PRIMARY KEY", ByNumber(Number::PropertyPK, "7"));
    ExpectFoundBy("SEARCH Property USING INDEX PropertyByPropertyID", ByNumber(Number::PropertyID, "E-1*"));
    ExpectFoundBy("SEARCH Incident USING COVERING INDEX IncidentByIncidentId", ByNumber(Number::IncidentId, "I-1"));
}

TEST_F(SearchPlan, ADescriptionOfPropertyIsLookedUpByItsTrigrams) {
    const auto search = [] { return StoredItemSearch().OfType(StoredItemTypes::Property).WithDescription("*blue*"); };
    ExpectFrugal(search(), "SCAN PropertyDescription VIRTUAL TABLE INDEX", "description");
    ExpectFrugal(search().Tagged(), "SEARCH Property USING INTEGER PRIMARY KEY", "description");
}

TEST_F(SearchPlan, AUserWithOneRightGetsThePlansOfThatKind) {
    for (const auto& [right, table] : {std::pair(GetPermissions().VIEW_PROPERTY(), "Property"),
                                       std::pair(GetPermissions().VIEW_VEHICLE(), "Vehicle")}) {
        m_session->GrantNothing();
        m_session->Grant(right);
        const std::string lookUp = std::string("SEARCH ") + table + " USING INTEGER PRIMARY KEY";
        ExpectFoundBy(lookUp, ByNumber(Number::IncidentId, "I-1"));
        ExpectFrugal(StoredItemSearch().InLocation(GetStorageLocationStatic().FindByID(m_shelf)), lookUp, table);
    }
}

TEST_F(SearchPlan, TheStatisticsOfAMillionItemsChangeNothing) {
    m_database.Execute("ANALYZE");
    m_database.Execute("DELETE FROM sqlite_stat1");
    m_database.Execute("INSERT INTO sqlite_stat1 (tbl, idx, stat) VALUES " + std::string(statistics));
    m_database.Execute("ANALYZE sqlite_schema");
    const char* const byIncidentId = "SEARCH Incident USING COVERING INDEX IncidentByIncidentId";
    for (const bool hasSideTables : {true, false}) {
        if (!hasSideTables) HideSideTables();
        ExpectFoundBy("SEARCH Property USING INTEGER PRIMARY KEY", ByNumber(Number::PropertyPK, "7"));
        ExpectFoundBy("SEARCH Vehicle USING INDEX VehicleByRegNumber", ByNumber(Number::VehicleTag, "E-1*"));
        ExpectFoundBy(byIncidentId, ByNumber(Number::IncidentId, "I-1*"));
        ExpectFoundBy("SEARCH Incident USING COVERING INDEX IncidentByCaseNbr", ByNumber(Number::CaseNumber, "C-1"));
        ExpectFoundBy("SCAN Incident", ByNumber(Number::IncidentId, "*7*"));
    }
}

TEST_F(SearchPlan, TheSearchAsWrittenDownWouldFail) {
    for (const AskedSearch& asked : {AskedSearch{.numberType = 5, .number = "7"}, AskedSearch{.location = 1},
                                     AskedSearch{.numberType = 1, .number = "I-1"}}) {
        const Texts plan = PlanOf(LiteralSearchText(asked));
        EXPECT_TRUE(std::any_of(plan.begin(), plan.end(), IsWasteful)) << Describe(asked);
    }
}

}  // namespace quellbrook::testing
