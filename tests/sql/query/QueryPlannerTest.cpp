#include "sql/query/QueryPlanner.h"

#include "host/QueryServices.h"
#include "sql/query/QueryWriter.h"
#include "tests/support/SearchDepartment.h"
#include "tests/support/SqliteDialect.h"

#include <gtest/gtest.h>

#include <set>

namespace quellbrook::testing {
namespace {

std::string Literally(const QuerySource& query) { return sql::WriteQuery(*query.Node(), Sqlite()).text; }

std::string Planned(const QuerySource& query, const Dialect& dialect = Sqlite()) {
    return sql::WriteQuery(*sql::PlanQuery(query.Node(), dialect), dialect).text;
}

bool Contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

// Each row as one text. Numbers are compared by value, so 1 and 1.0 are the same.
std::string Shown(const Row& row) {
    std::string text;
    for (int column = 0; column < static_cast<int>(row.Columns().Names().size()); ++column) {
        const TaggedValue& value = row.At(column);
        if (value.IsNull())
            text += "NULL|";
        else if (value.Holds<std::string>())
            text += "'" + ToText(value) + "'|";
        else
            text += std::to_string(ToDouble(value)) + "|";
    }
    return text;
}

class QueryPlanner : public ::testing::Test {
protected:
    std::vector<std::string> Rows(const std::string& sql) {
        std::vector<std::string> rows;
        for (const Row& row : m_database.QueryRows(sql)) rows.push_back(Shown(row));
        return rows;
    }
    std::set<std::string> DistinctRows(const std::string& sql) {
        const std::vector<std::string> rows = Rows(sql);
        return {rows.begin(), rows.end()};
    }
    void ExpectSameRows(const QuerySource& query) {
        EXPECT_EQ(DistinctRows(Planned(query)), DistinctRows(Literally(query))) << Planned(query);
    }

    QueryFactory& f = QueryServices::Factory();
    QuerySource p = f.Table("Property");
    QuerySource ip = f.Table("IncdProperty");
    QuerySource i = f.Table("Incident");
    QuerySource linked = ip.Join(i, 0).On(i.Column("IncidentNo").Equals(ip.Column("IncidentNo")));
    QuerySource source = p.Join(linked, 1).On(ip.Column("PropertyNo").Equals(p.Column("PropertyNo")));
    TestDatabase m_database;
    Dice m_dice{11};
    SearchDepartment m_department{m_database, m_dice};
};

TEST_F(QueryPlanner, ASelectedLinkStaysJoined) {
    QuerySource query = source.Select({p.Column("PropertyNo"), i.Column("IncidentId")});
    query.Where(i.Column("CaseNbr").Like("C*"));
    EXPECT_TRUE(Contains(Planned(query), "LEFT JOIN (IncdProperty INNER JOIN Incident"));
    ExpectSameRows(query);
}

TEST_F(QueryPlanner, FindsItemsByAMissingLink) {
    QuerySource query = source.Select({p.Column("PropertyNo")});
    query.Where(i.Column("IncidentNo").Equals(Null()));
    EXPECT_TRUE(Contains(Planned(query), "LEFT JOIN (IncdProperty INNER JOIN Incident"));
    ExpectSameRows(query);
    EXPECT_FALSE(Rows(Planned(query)).empty());
}

TEST_F(QueryPlanner, SeveralCriteriaOnALinkApplyToTheSameIncident) {
    QuerySource query = source.Select({p.Column("PropertyNo")});
    query.Where(i.Column("IncidentId").Like("*1*"));
    query.Where(i.Column("CaseNbr").NotEquals(Null()).And(ip.Column("PropertyNo").NotEquals(3)));
    const std::string text = Planned(query);
    EXPECT_EQ(text.find(" IN ("), text.rfind(" IN ("));
    ExpectSameRows(query);
    m_database.Execute("INSERT INTO Property (PropertyNo) VALUES (50), (51)");
    m_database.Execute(
        "INSERT INTO Incident (IncidentNo, IncidentId, CaseNbr) VALUES (50, 'I-1', NULL), (51, 'x', 'C'), "
        "(52, 'I-1', 'C')");
    m_database.Execute("INSERT INTO IncdProperty (PropertyNo, IncidentNo) VALUES (50, 50), (50, 51), (51, 52)");
    ExpectSameRows(query);
    EXPECT_EQ(DistinctRows(Planned(query)).count("50.000000|"), 0u);
    EXPECT_EQ(DistinctRows(Planned(query)).count("51.000000|"), 1u);
}

TEST_F(QueryPlanner, ALinkThatAnotherJoinNeedsStays) {
    const QuerySource pt = f.Table("PropertyTracking");
    const QuerySource more = source.Join(pt, 0).On(pt.Column("SeqNo").Equals(i.Column("IncidentNo")));
    QuerySource query = more.Select({p.Column("PropertyNo"), pt.Column("PropertyNo").As("Tracked")});
    query.Where(i.Column("IncidentId").Like("*1*"));
    m_database.Execute("INSERT INTO Property (PropertyNo) VALUES (50)");
    m_database.Execute("INSERT INTO Incident (IncidentNo, IncidentId) VALUES (50, 'I-1')");
    m_database.Execute("INSERT INTO IncdProperty (PropertyNo, IncidentNo) VALUES (50, 50)");
    m_database.Execute(
        "INSERT INTO PropertyTracking (PropertyNo, SeqNo, LastUpdated) VALUES (50, 50, '2026-01-01T00:00:00.000')");
    ExpectSameRows(query);
    EXPECT_TRUE(Contains(Planned(query), "LEFT JOIN (IncdProperty"));
    EXPECT_FALSE(Rows(Planned(query)).empty());
    ExpectSameRows(more.Select({p.Column("PropertyNo"), pt.Column("PropertyNo").As("Tracked")}));
}

TEST_F(QueryPlanner, ConditionsOnConstantColumnsSelectTheArms) {
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
        const bool isEmpty = Contains(text, "1 = 0");
        EXPECT_EQ(!isEmpty && Contains(text, "FROM Property"), expected.property) << text;
        EXPECT_EQ(!isEmpty && Contains(text, "FROM Vehicle"), expected.vehicles) << text;
        ExpectSameRows(outer);
    }
}

TEST_F(QueryPlanner, ACriterionThatAcceptsAMissingLinkKeepsTheJoin) {
    QuerySource query = source.Select({p.Column("PropertyNo")});
    query.Where(f.Function("COALESCE", {i.Column("CaseNbr"), TaggedValue("C1")}, 0).Like("C1"));
    EXPECT_FALSE(Contains(Planned(query), " IN ("));
    ExpectSameRows(query);
}

TEST_F(QueryPlanner, AnAggregateKeepsEveryRowThatItCounts) {
    QuerySource query = source.Select({f.Function("COUNT", {p.Column("PropertyNo")}, 0).As("n")});
    query.Where(p.Column("PropertyNo").NotEquals(0));
    EXPECT_EQ(Rows(Planned(query)), Rows(Literally(query)));
    QuerySource outer = query.As("Counted").Select({"*"});
    outer.Where(query.Column("n").NotEquals(0)).Where(query.Column("n").NotEquals(Null()));
    EXPECT_EQ(Rows(Planned(outer)), Rows(Literally(outer)));
}

TEST_F(QueryPlanner, AColumnOfTheWholeJoinKeepsItsSources) {
    QuerySource query = source.Select({p.Column("PropertyNo"), source.Column("IncidentId")});
    EXPECT_TRUE(Contains(Planned(query), "LEFT JOIN (IncdProperty INNER JOIN Incident"));
    ExpectSameRows(query);
}

TEST_F(QueryPlanner, RawTextKeepsEverySource) {
    QuerySource query = source.Select({"Property.PropertyNo AS ID, Incident.IncidentId AS Linked"});
    ExpectSameRows(query);
    QuerySource all = source.Select({"*"});
    ExpectSameRows(all);
}

TEST_F(QueryPlanner, ConditionsReachThroughSeveralDerivedTables) {
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

TEST_F(QueryPlanner, KeepsTheOuterSelectList) {
    const QuerySource inner = source.Select({p.Column("PropertyNo").As("ID"), p.Column("CategoryNo")});
    QuerySource outer = inner.As("Results").Select({inner.Column("CategoryNo").As("Category")});
    outer.Where(inner.Column("ID").NotEquals(2));
    EXPECT_EQ(
        Planned(outer),
        "SELECT Results.CategoryNo AS Category FROM (SELECT DISTINCT Property.PropertyNo AS ID, Property.CategoryNo "
        "FROM Property WHERE Property.PropertyNo <> 2) AS Results");
    ExpectSameRows(outer);
}

TEST_F(QueryPlanner, AComparisonWithAnExpressionStaysOutsideTheUnion) {
    const QuerySource v = f.Table("Vehicle");
    const QuerySource a = p.Select({p.Column("PropertyID").As("Tag")});
    const QuerySource b = v.Select({f.Concat({v.Column("RegNumber"), TaggedValue("")}, 0).As("Tag")});
    const QuerySource both = a.Union(b);
    QuerySource outer = both.As("Tags").Select({"*"});
    outer.Where(both.Column("Tag").Equals("abc 1"));
    EXPECT_TRUE(Contains(Planned(outer), "WHERE Tags.Tag = 'abc 1'"));
    ExpectSameRows(outer);
}

TEST_F(QueryPlanner, TheLastArmTakesTheColumnNamesOfTheFirst) {
    const QuerySource v = f.Table("Vehicle");
    const QuerySource a = p.Select({"1 AS Kind", p.Column("PropertyNo").As("ID")});
    const QuerySource b = v.Select({"2", v.Column("VehicleNo")});
    const QuerySource both = a.Union(b);
    QuerySource outer = both.As("Both").Select({"*"});
    outer.Where(both.Column("Kind").Equals(2));
    EXPECT_EQ(Planned(outer), "SELECT DISTINCT 2 AS Kind, Vehicle.VehicleNo AS ID FROM Vehicle");
    ExpectSameRows(outer);
}

TEST_F(QueryPlanner, PlansADerivedTableInAJoin) {
    const QuerySource inner = source.Select({p.Column("PropertyNo").As("ID")});
    const QuerySource derived = inner.As("Linked");
    const QuerySource joined = p.Join(derived, 0).On(derived.Column("ID").Equals(p.Column("PropertyNo")));
    const QuerySource query = joined.Select({p.Column("PropertyID"), inner.Column("ID")});
    EXPECT_TRUE(Contains(Planned(query), "(SELECT DISTINCT Property.PropertyNo AS ID FROM Property) AS Linked"));
    ExpectSameRows(query);
}

TEST_F(QueryPlanner, CurrentPlaceIsNotUsedForOlderCustodyRows) {
    const QuerySource pt = f.Table("PropertyTracking");
    const QuerySource ever = p.Join(pt, 1).On(pt.Column("PropertyNo").Equals(p.Column("PropertyNo")));
    QuerySource query = ever.Select({p.Column("PropertyNo")});
    query.Where(pt.Column("StorageLocNo").Equals(1));
    EXPECT_FALSE(Contains(Planned(query, WithSideTables()), "CurrentPlace"));
    EXPECT_EQ(DistinctRows(Planned(query, WithSideTables())), DistinctRows(Literally(query)));
}

// Equal rows

TEST_F(QueryPlanner, ItemsAreCombinedWithoutDistinctWhereTheSchemaStatesThatTheyAreDistinct) {
    const QuerySource v = f.Table("Vehicle");
    const auto items = [&] { return source.Select({"1 AS Kind", p.Column("PropertyNo").As("ID")}); };
    const auto vehicles = [&] { return v.Select({"2 AS Kind", v.Column("VehicleNo").As("ID")}); };
    Dialect distinct = Sqlite();
    distinct.itemsAreDistinct = true;
    const QuerySource listed = items().ListItems().Union(vehicles().ListItems());
    EXPECT_TRUE(Contains(Planned(listed, distinct), " UNION ALL "));
    EXPECT_EQ(Rows(Planned(listed, distinct)).size(), DistinctRows(Literally(listed)).size());
    EXPECT_FALSE(Contains(Planned(listed), " ALL "));
    EXPECT_FALSE(Contains(Planned(items().Union(vehicles().ListItems()), distinct), " ALL "));
    EXPECT_FALSE(Contains(Planned(items().ListItems(), distinct), "DISTINCT"));
    EXPECT_TRUE(Contains(Planned(items().ListItems()), "DISTINCT"));
}

TEST_F(QueryPlanner, AJoinedLinkMayRepeatAnItemEvenIfItemsAreDistinct) {
    Dialect distinct = Sqlite();
    distinct.itemsAreDistinct = true;
    QuerySource query = source.Select({p.Column("PropertyNo")}).ListItems();
    query.Where(i.Column("IncidentNo").Equals(Null()));
    EXPECT_TRUE(Contains(Planned(query, distinct), "DISTINCT"));
}

}  // namespace
}  // namespace quellbrook::testing
