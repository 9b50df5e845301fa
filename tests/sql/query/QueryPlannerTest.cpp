#include "host/QueryServices.h"
#include "sql/query/QueryPlanner.h"

#include "sql/query/QueryWriter.h"
#include "tests/sql/query/PlannerDepartment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace quellbrook::testing {
namespace {

std::string Literally(const QuerySource& query) {
    return sql::WriteQuery(*query.Node(), SqliteDialect(false, false)).text;
}

std::string Planned(const QuerySource& query, const Dialect& dialect = SqliteDialect(false, false)) {
    return sql::WriteQuery(*sql::PlanQuery(query.Node(), dialect), dialect).text;
}

std::string CountOf(const std::string& text) {
    return "SELECT COUNT(ID) AS ResultCount FROM (" + text + ") QueryResult";
}

bool Holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// What a user might ask for that some row may answer.
SearchCriteria RandomValues(std::mt19937& random, SearchCriteria criteria, bool inLocation, bool withDescription) {
    if (inLocation) criteria.location = 1 + Below(random, 3);
    if (withDescription)
        criteria.description =
            AnyOf(random, {"*blue*", "blue*", "*l*", "*100%*", "*_[x]_*", "*", "it's*", "*BLUE BICYCLE", "*\xC3\xBCn",
                           "*b*e*", "1999*Ford*", "*ue bi*yc*", "*\\"});
    switch (criteria.numberType) {
    case 1: criteria.number = AnyOf(random, {"I-1", "I-1*", "*1*", "50%", "I_1", "*"}); break;
    case 2: criteria.number = AnyOf(random, {"C1", "c1*", "*1*", "[C1]", "*"}); break;
    case 3: criteria.number = AnyOf(random, {"P-1", "p-1*", "*1*", "P_1", "*"}); break;
    case 4: criteria.number = AnyOf(random, {"ABC 1", "abc*", "*1*", "*"}); break;
    case 5:
    case 6: criteria.number = std::to_string(1 + Below(random, 8)); break;
    default: break;
    }
    return criteria;
}

// Every combination of kinds of criteria and of rights.
std::vector<SearchCriteria> AllSearches(std::mt19937& random) {
    std::vector<SearchCriteria> searches;
    for (int bits = 0; bits < 16; ++bits) {
        for (int itemType = 0; itemType <= 2; ++itemType) {
            for (int numberType = 0; numberType <= 6; ++numberType) {
                for (int rights = 1; rights <= 3; ++rights) {
                    SearchCriteria criteria;
                    criteria.itemType = itemType;
                    criteria.numberType = numberType;
                    criteria.untracked = (bits & 4) != 0;
                    criteria.tagged = (bits & 8) != 0;
                    criteria.seesProperty = (rights & 1) != 0;
                    criteria.seesVehicles = (rights & 2) != 0;
                    searches.push_back(RandomValues(random, criteria, (bits & 1) != 0, (bits & 2) != 0));
                }
            }
        }
    }
    return searches;
}

// Counts the searches that found something, for each kind of criterion: rows never found would prove nothing.
class Hits {
public:
    void Count(const SearchCriteria& criteria) {
        ++m_hits["number type " + std::to_string(criteria.numberType)];
        ++m_hits["item type " + std::to_string(criteria.itemType)];
        ++m_hits[criteria.seesProperty ? criteria.seesVehicles ? "both" : "property only" : "vehicles only"];
        if (criteria.location) ++m_hits["location"];
        if (!criteria.description.empty()) ++m_hits["description"];
        if (criteria.untracked) ++m_hits["untracked"];
        if (criteria.tagged) ++m_hits["tagged"];
    }
    void ExpectOfEveryKind() const {
        EXPECT_EQ(m_hits.size(), 7u + 3u + 3u + 4u);
        for (const auto& [kind, count] : m_hits) EXPECT_GT(count, 20) << kind;
    }

private:
    std::map<std::string, int> m_hits;
};

struct Dialects {
    const std::vector<Dialect> all = {SqliteDialect(false, false),
                                      SqliteDialect(true, false),
                                      SqliteDialect(false, true),
                                      SqliteDialect(true, true),
                                      WithKeys(SqliteDialect(false, false)),
                                      WithKeys(SqliteDialect(true, true))};
};

TEST(QueryPlanner, GivesTheRowsOfTheQueryAsComposed) {
    const Dialects dialects;
    Hits hits;
    for (unsigned seed = 1; seed <= 6; ++seed) {
        std::mt19937 random(seed);
        PlannerDepartment department;
        department.Fill(random);
        for (const SearchCriteria& criteria : AllSearches(random)) {
            const QuerySource query = ComposeSearch(criteria);
            const std::set<std::string> expected = department.DistinctRows(Literally(query));
            if (!expected.empty()) hits.Count(criteria);
            for (const Dialect& dialect : dialects.all) {
                const std::vector<std::string> rows = department.Rows(Planned(query, dialect));
                const std::set<std::string> distinct(rows.begin(), rows.end());
                ASSERT_EQ(distinct, expected) << "seed " << seed << ": " << Describe(criteria) << "\n"
                                              << Planned(query, dialect);
                ASSERT_EQ(rows.size(), distinct.size()) << "seed " << seed << ": a row twice: " << Describe(criteria);
            }
        }
    }
    hits.ExpectOfEveryKind();
}

TEST(QueryPlanner, CountsWhatTheSearchFinds) {
    const Dialects dialects;
    std::mt19937 random(77);
    PlannerDepartment department;
    department.Fill(random);
    for (const SearchCriteria& criteria : AllSearches(random)) {
        const QuerySource query = ComposeSearch(criteria);
        const size_t expected = department.DistinctRows(Literally(query)).size();
        for (const Dialect& dialect : dialects.all)
            ASSERT_EQ(department.Rows(CountOf(Planned(query, dialect))).at(0),
                      std::to_string(static_cast<double>(expected)) + "|")
                << Describe(criteria);
    }
}

TEST(QueryPlanner, KeepsTheColumnsWhicheverArmIsLeft) {
    PlannerDepartment department;
    const std::vector<std::string> names = department.ColumnNames(Literally(ComposeSearch({})));
    for (const SearchCriteria& criteria :
         {SearchCriteria{}, SearchCriteria{.itemType = 1}, SearchCriteria{.itemType = 2},
          SearchCriteria{.itemType = 2, .numberType = 3, .number = "x"}, SearchCriteria{.numberType = 6, .number = "1"},
          SearchCriteria{.itemType = 1, .seesProperty = false}})
        EXPECT_EQ(department.ColumnNames(Planned(ComposeSearch(criteria))), names) << Describe(criteria);
}

// What must not stand in the plan of a search by something indexed. A query that can't find anything is not carried
// out.
void ExpectIndexed(PlannerDepartment& department, const std::string& text, const SearchCriteria& criteria) {
    if (Holds(text, "1 = 0")) return;
    for (const std::string& line : department.PlanLines(text)) {
        const bool scansItems =
            line.starts_with("SCAN Property") && !line.starts_with("SCAN PropertyDescription VIRTUAL");
        EXPECT_FALSE(scansItems || line.starts_with("SCAN Vehicle") || line.starts_with("SCAN Incd") ||
                     Holds(line, "MATERIALIZE") || Holds(line, "AUTOMATIC"))
            << Describe(criteria) << "\n"
            << line << "\n"
            << text;
    }
}

TEST(QueryPlanner, SearchesBySomethingIndexedScanNoItems) {
    const Dialects dialects;
    PlannerDepartment department;
    std::vector<SearchCriteria> searches = {{.location = 1},
                                            {.location = 1, .description = "*blue*"},
                                            {.location = 1, .itemType = 1},
                                            {.location = 1, .itemType = 2},
                                            {.numberType = 5, .number = "7"},
                                            {.numberType = 6, .number = "7"}};
    for (const char* number : {"I-1", "I-1*"})
        for (int type = 1; type <= 4; ++type) searches.push_back({.numberType = type, .number = number});
    searches.push_back({.numberType = 1, .number = "*7*"});
    searches.push_back({.numberType = 2, .number = "*7*"});
    searches.push_back({.numberType = 1, .number = "50%*"});
    for (const SearchCriteria& search : searches) {
        for (int flags = 0; flags < 16; ++flags) {
            SearchCriteria criteria = search;
            criteria.untracked = (flags & 1) != 0;
            criteria.tagged = (flags & 2) != 0;
            if (flags / 4 == 1) criteria.seesProperty = criteria.numberType == 3 || criteria.numberType == 5;
            if (flags / 4 == 2) criteria.seesVehicles = criteria.numberType == 4 || criteria.numberType == 6;
            if (flags / 4 == 3) criteria.description = "*blue*";
            if (criteria.location && criteria.untracked) continue;
            for (const Dialect& dialect : dialects.all) {
                const std::string text = Planned(ComposeSearch(criteria), dialect);
                ExpectIndexed(department, text, criteria);
                ExpectIndexed(department, CountOf(text), criteria);
            }
        }
    }
}

TEST(QueryPlanner, ADescriptionOfPropertyIsFoundByItsIndex) {
    PlannerDepartment department;
    const SearchCriteria criteria{.itemType = 1, .description = "*blue*"};
    ExpectIndexed(department, Planned(ComposeSearch(criteria), SqliteDialect(true, true)), criteria);
}

TEST(QueryPlanner, TheLiteralSearchWouldFailThePlanTest) {
    PlannerDepartment department;
    const std::vector<std::string> lines =
        department.PlanLines(Literally(ComposeSearch({.numberType = 5, .number = "7"})));
    EXPECT_TRUE(
        std::any_of(lines.begin(), lines.end(), [](const std::string& line) { return Holds(line, "MATERIALIZE"); }));
}

TEST(QueryPlanner, ALocationIsAskedOfItsPresentItemsOnly) {
    PlannerDepartment department;
    const std::string text = Planned(ComposeSearch({.location = 1}), SqliteDialect(true, false));
    for (const std::string& line : department.PlanLines(text)) EXPECT_FALSE(Holds(line, "TrackingPlace")) << line;
}

TEST(QueryPlanner, ThePlaceOfTheSideTableIsCheckedAgainstTheCustodyRow) {
    std::mt19937 random(5);
    PlannerDepartment department;
    department.Fill(random);
    const QuerySource query = ComposeSearch({.location = 2});
    const std::set<std::string> expected = department.DistinctRows(Literally(query));
    for (int item = 1; item <= 10; ++item)
        department.Execute("INSERT OR IGNORE INTO CurrentPlace VALUES (2, 1, " + std::to_string(item) + ")");
    EXPECT_EQ(department.DistinctRows(Planned(query, SqliteDialect(true, true))), expected);
}

// Single rules

TEST(QueryPlanner, KeepsTheLeftJoinOfTheCurrentCustodyRow) {
    const std::string text = Planned(ComposeSearch({.itemType = 1}));
    EXPECT_TRUE(Holds(text, "Property LEFT JOIN PropertyTracking ON"));
    EXPECT_TRUE(Holds(text, "PropertyTracking.StorageLocNo IS NOT NULL"));
}

TEST(QueryPlanner, LeavesOutTheArmOfTheOtherKind) {
    EXPECT_FALSE(Holds(Planned(ComposeSearch({.itemType = 1})), "Vehicle"));
    EXPECT_FALSE(Holds(Planned(ComposeSearch({.itemType = 2})), "FROM Property"));
    EXPECT_FALSE(Holds(Planned(ComposeSearch({.numberType = 6, .number = "1"})), "UNION"));
}

TEST(QueryPlanner, KeepsOneEmptyArmWhereAllContradict) {
    const std::string text = Planned(ComposeSearch({.itemType = 3}));
    EXPECT_TRUE(Holds(text, "WHERE 1 = 0"));
    EXPECT_FALSE(Holds(text, "UNION"));
    EXPECT_TRUE(Holds(Planned(ComposeSearch({.numberType = 3, .number = "x", .seesProperty = false})), "WHERE 1 = 0"));
}

TEST(QueryPlanner, LeavesOutTheIncidentsWhereNothingAsksForThem) {
    EXPECT_FALSE(Holds(Planned(ComposeSearch({.location = 1})), "Incident"));
}

TEST(QueryPlanner, LooksForLinkedItemsFromTheIncident) {
    const std::string text = Planned(ComposeSearch({.itemType = 1, .numberType = 1, .number = "I-1"}));
    EXPECT_TRUE(Holds(text,
                      "Property.PropertyNo IN (SELECT IncdProperty.PropertyNo FROM Incident CROSS JOIN IncdProperty "
                      "WHERE Incident.IncidentNo = IncdProperty.IncidentNo AND Incident.IncidentId LIKE 'I-1')"));
    EXPECT_FALSE(Holds(text, "LEFT JOIN (IncdProperty"));
}

TEST(QueryPlanner, UsesTheDescriptionIndexOnlyForRunsOfThreePlainCharacters) {
    const auto usesIndex = [](const char* description) {
        return Holds(Planned(ComposeSearch({.itemType = 1, .description = description}), SqliteDialect(false, true)),
                     "PropertyDescription");
    };
    EXPECT_TRUE(usesIndex("*blu*"));
    EXPECT_TRUE(usesIndex("b*100% wool*"));
    EXPECT_TRUE(usesIndex("\xC3\xBC\xC3\xBC\xC3\xBC"));
    EXPECT_FALSE(usesIndex("*bl*ue*"));
    EXPECT_FALSE(usesIndex("*\xC3\xBC\xC3\xBC*"));
    EXPECT_FALSE(usesIndex("*a_b%c[d]e\\f*"));
    EXPECT_FALSE(usesIndex("*"));
}

TEST(QueryPlanner, TheIndexIsAskedForTheLongestPlainRunWithoutEscape) {
    const std::string text =
        Planned(ComposeSearch({.itemType = 1, .description = "*abc*100% wool*"}), SqliteDialect(false, true));
    EXPECT_TRUE(Holds(text, "PropertyDescription.Description LIKE '% wool%')")) << text;
    EXPECT_TRUE(Holds(text, "Property.Description LIKE '%abc%100\\% wool%' ESCAPE '\\'")) << text;
}

TEST(QueryPlanner, LeavesTheDescriptionIndexAloneWhereAnotherCriterionFindsTheItem) {
    for (const SearchCriteria& criteria : {SearchCriteria{.location = 1, .description = "*blue*"},
                                           SearchCriteria{.numberType = 5, .number = "1", .description = "*blue*"},
                                           SearchCriteria{.numberType = 1, .number = "I*", .description = "*blue*"},
                                           SearchCriteria{.numberType = 3, .number = "P*", .description = "*blue*"}})
        EXPECT_FALSE(Holds(Planned(ComposeSearch(criteria), SqliteDialect(true, true)), "PropertyDescription"))
            << Describe(criteria);
    EXPECT_TRUE(Holds(
        Planned(ComposeSearch({.numberType = 3, .number = "*1*", .description = "*blue*"}), SqliteDialect(true, true)),
        "PropertyDescription"));
}

TEST(QueryPlanner, ChangesNothingInTheQueryItself) {
    const QuerySource query = ComposeSearch({.location = 1, .numberType = 1, .number = "x"});
    const std::string before = Literally(query);
    Planned(query, SqliteDialect(true, true));
    EXPECT_EQ(Literally(query), before);
}

// Queries of other shapes

class OtherShapes : public ::testing::Test {
protected:
    OtherShapes() {
        std::mt19937 random(11);
        m_department.Fill(random);
    }

    void ExpectSameRows(const QuerySource& query) {
        EXPECT_EQ(m_department.DistinctRows(Planned(query)), m_department.DistinctRows(Literally(query)))
            << Planned(query);
    }

    QueryFactory& f = QueryServices::Factory();
    QuerySource p = f.Table("Property");
    QuerySource ip = f.Table("IncdProperty");
    QuerySource i = f.Table("Incident");
    QuerySource linked = ip.Join(i, 0).On(i.Column("IncidentNo").Equals(ip.Column("IncidentNo")));
    QuerySource source = p.Join(linked, 1).On(ip.Column("PropertyNo").Equals(p.Column("PropertyNo")));
    PlannerDepartment m_department;
};

TEST_F(OtherShapes, ASelectedLinkStaysJoined) {
    QuerySource query = source.Select({p.Column("PropertyNo"), i.Column("IncidentId")});
    query.Where(i.Column("CaseNbr").Like("C*"));
    EXPECT_TRUE(Holds(Planned(query), "LEFT JOIN (IncdProperty INNER JOIN Incident"));
    ExpectSameRows(query);
}

TEST_F(OtherShapes, AnItemWithoutALinkIsFoundByTheMissingOne) {
    QuerySource query = source.Select({p.Column("PropertyNo")});
    query.Where(i.Column("IncidentNo").Equals(Null()));
    EXPECT_TRUE(Holds(Planned(query), "LEFT JOIN (IncdProperty INNER JOIN Incident"));
    ExpectSameRows(query);
    EXPECT_FALSE(m_department.Rows(Planned(query)).empty());
}

TEST_F(OtherShapes, SeveralCriteriaOnALinkHoldForTheSameIncident) {
    QuerySource query = source.Select({p.Column("PropertyNo")});
    query.Where(i.Column("IncidentId").Like("*1*"));
    query.Where(i.Column("CaseNbr").NotEquals(Null()).And(ip.Column("PropertyNo").NotEquals(3)));
    const std::string text = Planned(query);
    EXPECT_EQ(text.find(" IN ("), text.rfind(" IN ("));
    ExpectSameRows(query);
    m_department.Execute("INSERT INTO Property (PropertyNo) VALUES (50), (51)");
    m_department.Execute(
        "INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr) VALUES (50, 'I-1', NULL), (51, 'x', 'C'), "
        "(52, 'I-1', 'C')");
    m_department.Execute("INSERT INTO IncdProperty (PropertyNo, IncidentNo) VALUES (50, 50), (50, 51), (51, 52)");
    ExpectSameRows(query);
    EXPECT_EQ(m_department.DistinctRows(Planned(query)).count("50.000000|"), 0u);
    EXPECT_EQ(m_department.DistinctRows(Planned(query)).count("51.000000|"), 1u);
}

TEST_F(OtherShapes, ALinkThatAnotherJoinNeedsStays) {
    const QuerySource pt = f.Table("PropertyTracking");
    const QuerySource more = source.Join(pt, 0).On(pt.Column("SeqNo").Equals(i.Column("IncidentNo")));
    QuerySource query = more.Select({p.Column("PropertyNo"), pt.Column("PropertyNo").As("Tracked")});
    query.Where(i.Column("IncidentId").Like("*1*"));
    m_department.Execute("INSERT INTO Property (PropertyNo) VALUES (50)");
    m_department.Execute("INSERT INTO Incident (IncidentNo, IncidentId) VALUES (50, 'I-1')");
    m_department.Execute("INSERT INTO IncdProperty (PropertyNo, IncidentNo) VALUES (50, 50)");
    m_department.Execute("INSERT INTO PropertyTracking (PropertyNo, SeqNo, LastUpdated) VALUES (50, 50, '2026-01-01')");
    ExpectSameRows(query);
    EXPECT_TRUE(Holds(Planned(query), "LEFT JOIN (IncdProperty"));
    EXPECT_FALSE(m_department.Rows(Planned(query)).empty());
    ExpectSameRows(more.Select({p.Column("PropertyNo"), pt.Column("PropertyNo").As("Tracked")}));
}

TEST_F(OtherShapes, ConditionsOnConstantColumnsDecideWhichArmsAreLeft) {
    const QuerySource v = f.Table("Vehicle");
    const QuerySource both =
        p.Select({"1 AS Kind, NULL AS Value, 'P' AS Code", p.Column("PropertyNo").As("ID")})
            .Union(v.Select({"2 AS Kind, 7 AS Value, 'V' AS Code", v.Column("VehicleNo").As("ID")}));
    const QueryExpression kind = both.Column("Kind"), value = both.Column("Value"), code = both.Column("Code");
    struct Expectation {
        QueryCondition condition;
        bool property, vehicles;
    };
    for (const Expectation& expected :
         {Expectation{kind.Equals(1), true, false}, Expectation{kind.NotEquals(1), false, true},
          Expectation{kind.Equals(1.0), true, false}, Expectation{kind.NotEquals(3), true, true},
          Expectation{value.Equals(Null()), true, false}, Expectation{value.NotEquals(Null()), false, true},
          Expectation{value.Equals(7), false, true}, Expectation{value.NotEquals(7), false, false},
          Expectation{value.Like("*"), false, true}, Expectation{kind.Equals(value), false, false},
          Expectation{code.Equals("V"), true, true}, Expectation{code.NotEquals(Null()), true, true}}) {
        QuerySource outer = both.As("Both").Select({"*"});
        outer.Where(expected.condition);
        const std::string text = Planned(outer);
        const bool isEmpty = Holds(text, "1 = 0");
        EXPECT_EQ(!isEmpty && Holds(text, "FROM Property"), expected.property) << text;
        EXPECT_EQ(!isEmpty && Holds(text, "FROM Vehicle"), expected.vehicles) << text;
        ExpectSameRows(outer);
    }
}

TEST_F(OtherShapes, ACriterionThatAlsoHoldsWithoutALinkLeavesTheJoin) {
    QuerySource query = source.Select({p.Column("PropertyNo")});
    query.Where(f.Function("COALESCE", {i.Column("CaseNbr"), TaggedValue("C1")}, 0).Like("C1"));
    EXPECT_FALSE(Holds(Planned(query), " IN ("));
    ExpectSameRows(query);
}

TEST_F(OtherShapes, AnAggregateKeepsEveryRowThatItCounts) {
    QuerySource query = source.Select({f.Function("COUNT", {p.Column("PropertyNo")}, 0).As("n")});
    query.Where(p.Column("PropertyNo").NotEquals(0));
    EXPECT_EQ(m_department.Rows(Planned(query)), m_department.Rows(Literally(query)));
    QuerySource outer = query.As("Counted").Select({"*"});
    outer.Where(query.Column("n").NotEquals(0)).Where(query.Column("n").NotEquals(Null()));
    EXPECT_EQ(m_department.Rows(Planned(outer)), m_department.Rows(Literally(outer)));
}

TEST_F(OtherShapes, AColumnOfTheWholeJoinKeepsItsSources) {
    QuerySource query = source.Select({p.Column("PropertyNo"), source.Column("IncidentId")});
    EXPECT_TRUE(Holds(Planned(query), "LEFT JOIN (IncdProperty INNER JOIN Incident"));
    ExpectSameRows(query);
}

TEST_F(OtherShapes, RawTextKeepsEverySource) {
    QuerySource query = source.Select({"Property.PropertyNo AS ID, Incident.IncidentId AS Linked"});
    ExpectSameRows(query);
    QuerySource all = source.Select({"*"});
    ExpectSameRows(all);
}

TEST_F(OtherShapes, ConditionsReachThroughSeveralDerivedTables) {
    const QuerySource inner =
        source.Select({"1 AS ItemType", p.Column("PropertyNo").As("ID"), p.Column("Description")});
    QuerySource middle = inner.As("A").Select({"*"});
    middle.Where(inner.Column("Description").NotEquals(Null()));
    QuerySource outer = middle.As("B").Select({"*"});
    outer.Where(middle.Column("ID").Equals(3)).Where(outer.Column("ItemType").Equals(1));
    EXPECT_EQ(Planned(outer),
              "SELECT DISTINCT 1 AS ItemType, Property.PropertyNo AS ID, Property.Description FROM Property "
              "WHERE Property.Description IS NOT NULL AND Property.PropertyNo = 3");
    ExpectSameRows(outer);
}

TEST_F(OtherShapes, AnOuterSelectListStaysAboveThePlannedRows) {
    const QuerySource inner = source.Select({p.Column("PropertyNo").As("ID"), p.Column("CategoryNo")});
    QuerySource outer = inner.As("Results").Select({inner.Column("CategoryNo").As("Category")});
    outer.Where(inner.Column("ID").NotEquals(2));
    EXPECT_EQ(
        Planned(outer),
        "SELECT Results.CategoryNo AS Category FROM (SELECT DISTINCT Property.PropertyNo AS ID, Property.CategoryNo "
        "FROM Property WHERE Property.PropertyNo <> 2) AS Results");
    ExpectSameRows(outer);
}

TEST_F(OtherShapes, ATextComparedWithAnExpressionStaysOutside) {
    const QuerySource v = f.Table("Vehicle");
    const QuerySource a = p.Select({p.Column("PropertyID").As("Tag")});
    const QuerySource b = v.Select({f.Concat({v.Column("RegNumber"), TaggedValue("")}, 0).As("Tag")});
    const QuerySource both = a.Union(b);
    QuerySource outer = both.As("Tags").Select({"*"});
    outer.Where(both.Column("Tag").Equals("abc 1"));
    EXPECT_TRUE(Holds(Planned(outer), "WHERE Tags.Tag = 'abc 1'"));
    ExpectSameRows(outer);
}

TEST_F(OtherShapes, AnArmKeepsTheNamesOfTheFirstWhenItStandsAlone) {
    const QuerySource v = f.Table("Vehicle");
    const QuerySource a = p.Select({"1 AS Kind", p.Column("PropertyNo").As("ID")});
    const QuerySource b = v.Select({"2", v.Column("VehicleNo")});
    const QuerySource both = a.Union(b);
    QuerySource outer = both.As("Both").Select({"*"});
    outer.Where(both.Column("Kind").Equals(2));
    EXPECT_EQ(Planned(outer), "SELECT DISTINCT 2 AS Kind, Vehicle.VehicleNo AS ID FROM Vehicle");
    ExpectSameRows(outer);
}

TEST_F(OtherShapes, ADerivedTableInAJoinIsPlannedToo) {
    const QuerySource inner = source.Select({p.Column("PropertyNo").As("ID")});
    const QuerySource derived = inner.As("Linked");
    const QuerySource joined = p.Join(derived, 0).On(derived.Column("ID").Equals(p.Column("PropertyNo")));
    const QuerySource query = joined.Select({p.Column("PropertyID"), inner.Column("ID")});
    EXPECT_TRUE(Holds(Planned(query), "(SELECT DISTINCT Property.PropertyNo AS ID FROM Property) AS Linked"));
    ExpectSameRows(query);
}

TEST_F(OtherShapes, TheSideTableOfPlacesIsNotUsedForOlderCustodyRows) {
    const QuerySource pt = f.Table("PropertyTracking");
    const QuerySource ever = p.Join(pt, 1).On(pt.Column("PropertyNo").Equals(p.Column("PropertyNo")));
    QuerySource query = ever.Select({p.Column("PropertyNo")});
    query.Where(pt.Column("StorageLocNo").Equals(1));
    EXPECT_FALSE(Holds(Planned(query, SqliteDialect(true, true)), "CurrentPlace"));
    EXPECT_EQ(m_department.DistinctRows(Planned(query, SqliteDialect(true, true))),
              m_department.DistinctRows(Literally(query)));
}

}  // namespace
}  // namespace quellbrook::testing
