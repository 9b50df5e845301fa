// Checks SQLite's plans: a search by an indexed criterion uses that index, whatever the other criteria are.

#include "data/StoredItemSearch.h"

#include "access/Permissions.h"
#include "base/Text.h"
#include "data/StorageLocationStatic.h"
#include "tests/data/SearchLiteralText.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/WithoutSideTables.h"

#include <algorithm>
#include <tuple>

namespace quellbrook::testing {

namespace {

using Texts = std::vector<std::string>;
using Number = NumberSearchTypes;

// What ANALYZE would write for a department with a million items: rows, then rows per value of the index's columns.
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

bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

bool Contains(const Texts& lines, const std::string& part) {
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& line) { return Contains(line, part); });
}

// Whether this line of a plan reads a whole table of items, links or custody rows, or builds a table or an index for
// the query.
bool IsWasteful(const std::string& line) {
    if (Contains(line, "MATERIALIZE") || Contains(line, "AUTOMATIC")) return true;
    if (line.starts_with("SCAN PropertyDescription VIRTUAL")) return false;
    for (const char* table : {"SCAN Property", "SCAN Vehicle", "SCAN vwVehicle", "SCAN Incd"})
        if (line.starts_with(table)) return true;
    return false;
}

bool IsScanOfItems(const std::string& line) { return line == "SCAN Property" || line == "SCAN Vehicle"; }

enum Schema { Ours, HostsOwn, Either };

// A search, and lines that its plan contains with each combination of further criteria.
struct PlanCase {
    Schema schema;
    Number type;  // 0: none
    const char* number;
    bool inLocation;
    int32_t itemType;
    const char* description;
    Texts lines;
};

const char* const propertyByKey = "SEARCH Property USING INTEGER PRIMARY KEY";
const char* const vehicleByKey = "SEARCH Vehicle USING INTEGER PRIMARY KEY";
const char* const propertyById = "SEARCH Property USING INDEX PropertyByPropertyID";
const char* const vehicleByTag = "SEARCH Vehicle USING INDEX VehicleByRegNumber";
const char* const incidentById = "SEARCH Incident USING COVERING INDEX IncidentByIncidentId";
const char* const incidentByCase = "SEARCH Incident USING COVERING INDEX IncidentByCaseNbr";
const char* const propertyLink = "SEARCH IncdProperty USING INDEX IncdPropertyByIncidentNo";
const char* const vehicleLink = "SEARCH IncdVehicle USING INDEX IncdVehicleByIncidentNo";
constexpr Number noNumber{};

const std::vector<PlanCase>& PlanCases() {
    static const std::vector<PlanCase> cases = {
        {Either, Number::PropertyPK, "7", false, 0, "", {propertyByKey}},
        {Either, Number::VehiclePK, "7", false, 0, "", {vehicleByKey}},
        {Either, Number::PropertyID, "E-1", false, 0, "", {propertyById}},
        {Either, Number::PropertyID, "E-1*", false, 0, "", {propertyById}},
        {Either, Number::PropertyID, "50%*", false, 0, "", {propertyById}},
        {Either, Number::VehicleTag, "E-1", false, 0, "", {vehicleByTag}},
        {Either, Number::VehicleTag, "E-1*", false, 0, "", {vehicleByTag}},
        {Either,
         Number::IncidentId,
         "I-1",
         false,
         0,
         "",
         {incidentById, propertyLink, vehicleLink, propertyByKey, vehicleByKey}},
        {Either, Number::IncidentId, "I-1*", false, 0, "", {incidentById, propertyLink, vehicleLink}},
        {Either, Number::IncidentId, "*7*", false, 0, "", {"SCAN Incident", propertyLink, vehicleLink}},
        {Either, Number::CaseNumber, "C-1", false, 0, "", {incidentByCase, propertyLink, vehicleLink}},
        {Either, Number::CaseNumber, "C-1*", false, 0, "", {incidentByCase, propertyLink, vehicleLink}},
        {Either, Number::CaseNumber, "*7*", false, 0, "", {"SCAN Incident", propertyLink, vehicleLink}},
        {Ours,
         noNumber,
         "",
         true,
         0,
         "",
         {"SEARCH CurrentPlace USING PRIMARY KEY (StorageLocNo=? AND ItemType=?)", propertyByKey, vehicleByKey}},
        {Ours, noNumber, "", true, 0, "*blue*", {"SEARCH CurrentPlace USING PRIMARY KEY", propertyByKey, vehicleByKey}},
        {Ours, noNumber, "", true, 2, "", {"SEARCH CurrentPlace USING PRIMARY KEY", vehicleByKey}},
        {HostsOwn,
         noNumber,
         "",
         true,
         0,
         "",
         {"USING COVERING INDEX PropertyTrackingPlace (StorageLocNo=?)",
          "USING COVERING INDEX VehicleTrackingPlace (StorageLocNo=?)"}},
        {Ours,
         noNumber,
         "",
         false,
         1,
         "*blue*",
         {"SCAN PropertyDescription VIRTUAL TABLE INDEX", "SEARCH Property USING INTEGER PRIMARY KEY"}},
    };
    return cases;
}

class SearchPlan : public DatabaseTest {
protected:
    SearchPlan() { m_shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal); }

    void UseSchema(Schema schema) {
        std::shared_ptr<Engine> engine = m_database.GetEngine();
        if (schema == HostsOwn) engine = std::make_shared<WithoutSideTables>(engine);
        m_recording = std::make_shared<RecordingEngine>(engine);
        m_database.Install(m_recording);
    }

    Texts PlanOf(const std::string& sqlite) {
        Texts lines;
        for (const Row& row : m_database.QueryRows("EXPLAIN QUERY PLAN " + sqlite))
            lines.push_back(ToText(row.Value("detail")));
        return lines;
    }

    // The plans of the query for the rows and of the query for their count.
    std::vector<Texts> PlansOf(StoredItemSearch search) {
        m_recording->Clear();
        search.ExecuteRaw();
        search.Count();
        std::vector<Texts> plans;
        for (const std::string& text : m_recording->Log()) plans.push_back(PlanOf(text));
        EXPECT_EQ(plans.size(), 2u);
        return plans;
    }

    StoredItemSearch Search(const PlanCase& asked, int more) const {
        StoredItemSearch search;
        if (asked.type != noNumber) search.WithNumber(asked.type, asked.number);
        if (asked.itemType != 0) search.OfType(static_cast<StoredItemTypes>(asked.itemType));
        search.WithDescription((more & 4) != 0 ? "*blue*" : asked.description);
        if (asked.inLocation || (more & 8) != 0) search.InLocation(GetStorageLocationStatic().FindByID(m_shelf));
        if (more & 1) search.Tagged();
        if (more & 2) search.Untracked();
        return search;
    }

    // With each combination of further criteria, the search reads no table as a whole, except to find the untracked
    // items with a number that no index can look up. It uses the given indexes unless another criterion is narrower.
    void ExpectPlan(const PlanCase& asked) {
        const int combinations = asked.type == noNumber ? 2 : 16;
        for (int more = 0; more < combinations; ++more) {
            for (const Texts& plan : PlansOf(Search(asked, more))) {
                SCOPED_TRACE(Join(plan, "\n"));
                const bool scansUntracked = (more & 2) != 0 && *asked.number == '*';
                for (const std::string& line : plan)
                    EXPECT_FALSE(IsWasteful(line) && !(scansUntracked && IsScanOfItems(line))) << line;
                for (const std::string& line : asked.lines)
                    EXPECT_TRUE(scansUntracked || (more & 8) != 0 || Contains(plan, line)) << line << ", with " << more;
                EXPECT_FALSE(asked.schema == Ours && asked.inLocation && Contains(plan, "TrackingPlace"));
            }
        }
    }

    void ExpectAllPlans() {
        for (const Schema schema : {Ours, HostsOwn}) {
            UseSchema(schema);
            for (const PlanCase& asked : PlanCases()) {
                SCOPED_TRACE(std::string("number '") + asked.number + "' of type " +
                             std::to_string(static_cast<int32_t>(asked.type)));
                if (asked.schema == Either || asked.schema == schema) ExpectPlan(asked);
            }
        }
    }

    int32_t m_shelf = 0;
    std::shared_ptr<RecordingEngine> m_recording;
};

}  // namespace

TEST_F(SearchPlan, UsesTheIndexOfEachCriterion) { ExpectAllPlans(); }

TEST_F(SearchPlan, UsesTheSameIndexesWithTheStatisticsOfAMillionItems) {
    m_database.Execute("ANALYZE");
    m_database.Execute("DELETE FROM sqlite_stat1");
    m_database.Execute("INSERT INTO sqlite_stat1 (tbl, idx, stat) VALUES " + std::string(statistics));
    m_database.Execute("ANALYZE sqlite_schema");
    ExpectAllPlans();
}

TEST_F(SearchPlan, OfAUserWithOneRightUsesTheIndexesOfThatKind) {
    UseSchema(Ours);
    for (const auto& [right, line] : {std::pair(GetPermissions().VIEW_PROPERTY(), propertyByKey),
                                      std::pair(GetPermissions().VIEW_VEHICLE(), vehicleByKey)}) {
        m_session->GrantNothing();
        m_session->Grant(right);
        ExpectPlan({Ours, Number::IncidentId, "I-1", false, 0, "", {line}});
        ExpectPlan({Ours, noNumber, "", true, 0, "", {line}});
    }
}

TEST_F(SearchPlan, OfATypeAloneReadsTheItemsBeforeTheCustodyRows) {
    for (const Schema schema : {Ours, HostsOwn}) {
        UseSchema(schema);
        for (const auto& [type, item, tracking] :
             {std::tuple(StoredItemTypes::Property, "Property", "PropertyTracking"),
              std::tuple(StoredItemTypes::vehicle, "Vehicle", "VehicleTracking")}) {
            for (const Texts& plan : PlansOf(StoredItemSearch().OfType(type))) {
                SCOPED_TRACE(Join(plan, "\n"));
                EXPECT_TRUE(Contains(plan, std::string("SCAN ") + item));
                EXPECT_TRUE(Contains(plan, std::string("SEARCH ") + tracking + " USING PRIMARY KEY"));
            }
        }
    }
}

TEST_F(SearchPlan, OfAPatternForIncidentsStartsFromTheItemsAtTheLocation) {
    UseSchema(Ours);
    const StorageLocationRef shelf = GetStorageLocationStatic().FindByID(m_shelf);
    for (const auto& [type, pattern] : {std::pair(Number::IncidentId, "I-1*"), std::pair(Number::IncidentId, "*7*"),
                                        std::pair(Number::CaseNumber, "C*")}) {
        for (const Texts& plan : PlansOf(StoredItemSearch().InLocation(shelf).WithNumber(type, pattern))) {
            SCOPED_TRACE(Join(plan, "\n"));
            for (const char* line : {"SEARCH CurrentPlace USING PRIMARY KEY (StorageLocNo=? AND ItemType=?)",
                                     "SEARCH IncdProperty USING INDEX IncdPropertyByPropertyNo (PropertyNo=?)",
                                     "SEARCH IncdVehicle USING INDEX IncdVehicleByVehicleNo (VehicleNo=?)",
                                     "SEARCH Incident USING INTEGER PRIMARY KEY (rowid=?)"})
                EXPECT_TRUE(Contains(plan, line)) << line;
        }
    }
}

TEST_F(SearchPlan, OfTheLiteralSearchIsWasteful) {
    for (const AskedSearch& asked : {AskedSearch{.numberType = 5, .number = "7"}, AskedSearch{.location = 1},
                                     AskedSearch{.numberType = 1, .number = "I-1"}}) {
        const Texts plan = PlanOf(LiteralSearchText(asked));
        EXPECT_TRUE(std::any_of(plan.begin(), plan.end(), IsWasteful)) << Describe(asked);
    }
}

}  // namespace quellbrook::testing
