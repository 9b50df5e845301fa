#include "sql/query/QueryPlanner.h"

#include "base/Error.h"
#include "sql/query/PlannerRules.h"
#include "sql/query/QueryTraversal.h"

#include <algorithm>

namespace quellbrook::sql {

namespace {

struct Arm {
    SourceId id;
    QuerySelect query;
};

// SELECT * FROM a derived table, and nothing else.
bool IsPassThrough(const QuerySelect& query) {
    return !query.distinct && query.where.empty() && query.columns.size() == 1 && query.columns.front().IsStar() &&
           std::holds_alternative<DerivedTable>(query.from->content);
}

// The SELECTs whose rows make up the query, with conditions pushed down.
void CollectArms(const SourceRef& source, std::vector<Arm>& arms) {
    if (const auto* all = std::get_if<UnionOfQueries>(&source->content)) {
        for (const SourceRef& arm : all->arms) CollectArms(arm, arms);
        return;
    }
    const auto* original = std::get_if<QuerySelect>(&source->content);
    if (!original)
        Raise(ErrorNumber::General, "QueryFactory.ToSql", "Only a query or a union can be turned into text.");
    QuerySelect query = *original;
    query.where = Conjuncts(query.where);
    PushConditionsIntoArms(query);
    if (IsPassThrough(query))
        CollectArms(std::get<DerivedTable>(query.from->content).query, arms);
    else
        arms.push_back({source->id, std::move(query)});
}

SourceRef PlanDerivedTables(const SourceRef& from, const Dialect& dialect) {
    if (const auto* derived = std::get_if<DerivedTable>(&from->content))
        return ChangedSource(*from, DerivedTable{PlanQuery(derived->query, dialect), derived->alias});
    const auto* join = std::get_if<JoinSource>(&from->content);
    if (!join) return from;
    return ChangedSource(*from, JoinSource{PlanDerivedTables(join->left, dialect),
                                           PlanDerivedTables(join->right, dialect), join->kind, join->on});
}

void PlanArm(QuerySelect& query, bool isDistinct, const Dialect& dialect) {
    FoldConstants(query);
    DropImpliedNullTests(query);
    if (isDistinct && HasRowwiseColumns(query)) {
        TurnLinkedCriteriaToLists(query);
        DropUnusedLeftJoins(query);
    }
    if (dialect.hasCurrentPlace) UseCurrentPlaces(query);
    StartBroadPatternsFromItems(query);
    if (dialect.hasDescriptionIndex) UseDescriptionIndex(query);
    FixOrderOfRequiredRows(query);
    query.from = PlanDerivedTables(query.from, dialect);
}

// At least one arm stays; the first one does if only it has the column names.
void DropEmptyArms(std::vector<Arm>& arms, bool namesAreKnown) {
    const auto isEmpty = [](const Arm& arm) { return IsEmptyArm(arm.query); };
    const bool keepsFirst = !namesAreKnown || std::all_of(arms.begin(), arms.end(), isEmpty);
    arms.erase(std::remove_if(arms.begin() + (keepsFirst ? 1 : 0), arms.end(), isEmpty), arms.end());
}

bool HaveNoEqualRows(const std::vector<Arm>& arms, const Dialect& dialect) {
    return dialect.itemsAreDistinct && std::all_of(arms.begin(), arms.end(), [](const Arm& arm) {
               return arm.query.listsItems && !HasLeftJoinedPair(arm.query.from);
           });
}

void NameColumns(QuerySelect& query, const std::vector<std::string>& names) {
    auto columns = ExpandedColumns(query);
    if (!columns || columns->size() != names.size()) return;
    for (size_t i = 0; i < names.size(); ++i) (*columns)[i].name = names[i];
    query.columns = std::move(*columns);
}

}  // namespace

SourceRef PlanQuery(const SourceRef& query, const Dialect& dialect) {
    std::vector<Arm> arms;
    CollectArms(query, arms);
    const bool isUnion = arms.size() > 1;
    const SourceId first = arms.front().id;
    const auto names = ResultNames(SourceNode{first, arms.front().query});
    const bool isDistinct = isUnion || HasLeftJoin(arms.front().query.from);
    for (Arm& arm : arms) PlanArm(arm.query, isDistinct, dialect);
    DropEmptyArms(arms, names.has_value());
    if (arms.front().id != first) NameColumns(arms.front().query, *names);
    const bool hasNoEqualRows = HaveNoEqualRows(arms, dialect);
    if (arms.size() == 1) {
        arms.front().query.distinct = isDistinct && !hasNoEqualRows;
        return ChangedSource(*query, std::move(arms.front().query));
    }
    UnionOfQueries all{{}, hasNoEqualRows};
    for (Arm& arm : arms)
        all.arms.push_back(std::make_shared<const SourceNode>(SourceNode{arm.id, std::move(arm.query)}));
    return ChangedSource(*query, std::move(all));
}

}  // namespace quellbrook::sql
