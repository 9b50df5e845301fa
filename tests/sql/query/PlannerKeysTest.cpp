#include "host/QueryServices.h"
#include "sql/query/QueryPlanner.h"
#include "sql/query/QueryWriter.h"
#include "tests/sql/query/PlannerDepartment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// Where the planner knows that no two rows are equal, nothing looks for them.
class PlannerKeys : public ::testing::Test {
protected:
    PlannerKeys() {
        std::mt19937 random(23);
        m_department.Fill(random);
    }

    std::string Planned(const QuerySource& query) {
        const Dialect dialect = WithKeys(SqliteDialect(false, false));
        const std::string text = sql::WriteQuery(*sql::PlanQuery(query.Node(), dialect), dialect).text;
        const std::vector<std::string> rows = m_department.Rows(text);
        const std::set<std::string> distinct(rows.begin(), rows.end());
        EXPECT_EQ(rows.size(), distinct.size()) << text;
        EXPECT_EQ(distinct, m_department.DistinctRows(sql::WriteQuery(*query.Node(), dialect).text)) << text;
        return text;
    }

    QueryFactory& f = QueryServices::Factory();
    QuerySource p = f.Table("Property");
    QuerySource pt = f.Table("PropertyTracking");
    QuerySource v = f.Table("Vehicle");
    QuerySource current = p.Join(pt, 1).On(pt.Column("PropertyNo")
                                               .Equals(p.Column("PropertyNo"))
                                               .And(p.Column("CurrTrackSeq").Equals(pt.Column("SeqNo"))));
    PlannerDepartment m_department;
};

TEST_F(PlannerKeys, TheArmsOfASearchAreOnlyPutTogether) {
    EXPECT_THAT(Planned(ComposeSearch({.location = 1})), HasSubstr(" UNION ALL "));
    EXPECT_THAT(Planned(ComposeSearch({.description = "*b*"})), HasSubstr(" UNION ALL "));
    EXPECT_THAT(Planned(ComposeSearch({.numberType = 1, .number = "I-1*"})), HasSubstr(" UNION ALL "));
}

TEST_F(PlannerKeys, ASingleArmNeedsNoDistinct) {
    EXPECT_THAT(Planned(ComposeSearch({.location = 1, .seesVehicles = false})), Not(HasSubstr("DISTINCT")));
}

TEST_F(PlannerKeys, ArmsThatTheirConstantsDoNotTellApartMayShareRows) {
    const QuerySource a = p.Select({"1 AS Kind", p.Column("PropertyNo")});
    const QuerySource b = p.Select({"1 AS Kind", p.Column("PropertyNo")});
    EXPECT_THAT(Planned(a.Union(b)), Not(HasSubstr("ALL")));
    const QuerySource c = p.Select({"1 AS Kind", p.Column("PropertyNo"), "3 AS Other"});
    const QuerySource d = v.Select({v.Column("VehicleNo"), v.Column("VehicleNo"), "4 AS Other"});
    EXPECT_THAT(Planned(c.Union(d)), HasSubstr("ALL"));
}

TEST_F(PlannerKeys, EachOfSeveralArmsIsHeldAgainstAllOthers) {
    const QuerySource a = p.Select({"1 AS Kind", p.Column("PropertyNo")});
    const QuerySource b = v.Select({"2 AS Kind", v.Column("VehicleNo")});
    const QuerySource c = p.Select({"1 AS Kind", p.Column("PropertyNo")});
    EXPECT_THAT(Planned(a.Union(b).Union(c)), Not(HasSubstr("ALL")));
    EXPECT_THAT(Planned(a.Union(b)), HasSubstr("ALL"));
}

TEST_F(PlannerKeys, ASelectListWithoutTheKeyMayHoldEqualRows) {
    const QuerySource a = p.Select({"1 AS Kind", p.Column("Description")});
    const QuerySource b = v.Select({"2 AS Kind", v.Column("VehicleNo")});
    EXPECT_THAT(Planned(a.Union(b)), Not(HasSubstr("ALL")));
    EXPECT_THAT(Planned(current.Select({p.Column("Description"), pt.Column("StorageLocNo")})), HasSubstr("DISTINCT"));
}

TEST_F(PlannerKeys, TheKeyOfAJoinedTableDoesNotTellRowsApart) {
    EXPECT_THAT(Planned(current.Select({p.Column("Description"), pt.Column("PropertyNo"), pt.Column("SeqNo")})),
                HasSubstr("DISTINCT"));
}

TEST_F(PlannerKeys, AKeyInsideAnExpressionDoesNotTellRowsApart) {
    EXPECT_THAT(Planned(current.Select({f.Function("MOD", {p.Column("PropertyNo"), TaggedValue(2)}, 0).As("Half"),
                                        pt.Column("StorageLocNo")})),
                HasSubstr("DISTINCT"));
}

TEST_F(PlannerKeys, AJoinByPartOfAKeyRepeatsRows) {
    const QuerySource ever = p.Join(pt, 1).On(pt.Column("PropertyNo").Equals(p.Column("PropertyNo")));
    EXPECT_THAT(Planned(ever.Select({p.Column("PropertyNo"), pt.Column("StorageLocNo")})), HasSubstr("DISTINCT"));
    const QuerySource later = p.Join(pt, 1).On(pt.Column("PropertyNo")
                                                   .Equals(p.Column("PropertyNo"))
                                                   .And(pt.Column("SeqNo").NotEquals(p.Column("CurrTrackSeq"))));
    EXPECT_THAT(Planned(later.Select({p.Column("PropertyNo"), pt.Column("StorageLocNo")})), HasSubstr("DISTINCT"));
}

TEST_F(PlannerKeys, AJoinThatSaysAColumnEqualsItselfPinsNothing) {
    const QuerySource ever = p.Join(pt, 1).On(
        pt.Column("PropertyNo").Equals(p.Column("PropertyNo")).And(pt.Column("SeqNo").Equals(pt.Column("SeqNo"))));
    EXPECT_THAT(Planned(ever.Select({p.Column("PropertyNo"), pt.Column("StorageLocNo")})), HasSubstr("DISTINCT"));
}

TEST_F(PlannerKeys, ATableWithoutAKnownKeyMayHoldEqualRows) {
    const QuerySource link = f.Table("IncdProperty");
    const QuerySource joined = link.Join(p, 1).On(p.Column("PropertyNo").Equals(link.Column("PropertyNo")));
    EXPECT_THAT(Planned(joined.Select({link.Column("PropertyNo"), p.Column("PropertyID")})), HasSubstr("DISTINCT"));
    const QuerySource linked = p.Join(link, 1).On(link.Column("PropertyNo").Equals(p.Column("PropertyNo")));
    EXPECT_THAT(Planned(linked.Select({p.Column("PropertyNo"), link.Column("IncidentNo")})), HasSubstr("DISTINCT"));
}

TEST_F(PlannerKeys, RawTextInASelectListHidesWhereAColumnStands) {
    const QuerySource a = p.Select({"1 AS Kind, 7 AS Other", p.Column("PropertyNo")});
    const QuerySource b = v.Select({"1 AS Kind", "7 AS Other", v.Column("VehicleNo")});
    EXPECT_THAT(Planned(a.Union(b)), Not(HasSubstr("ALL")));
}

}  // namespace
}  // namespace quellbrook::testing
