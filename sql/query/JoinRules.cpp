#include "sql/query/PlannerRules.h"

#include "sql/query/QueryTraversal.h"

#include <algorithm>
#include <optional>

namespace quellbrook::sql {

namespace {

const JoinSource* JoinOf(const SourceRef& source) { return std::get_if<JoinSource>(&source->content); }

template <typename Node>
bool Touches(const Node& node, const SourceRef& sources) {
    bool touches = false;
    ForEachColumn(node,
                  [&](const ColumnReference& column) { touches = touches || HoldsSource(sources, column.source); });
    return touches;
}

template <typename Node>
bool TouchesOnly(const Node& node, const SourceRef& sources) {
    bool only = true;
    ForEachColumn(node, [&](const ColumnReference& column) { only = only && HoldsSource(sources, column.source); });
    return only;
}

// Whether a column refers to a join as a whole, so that its table is unknown.
bool NamesAJoin(const QuerySelect& query) {
    const std::vector<SourceRef> sources = SourcesOf(query.from);
    bool names = false;
    const ColumnVisitor look = [&](const ColumnReference& column) {
        names = names || std::any_of(sources.begin(), sources.end(), [&](const SourceRef& source) {
                    return source->id == column.source && JoinOf(source);
                });
    };
    for (const ResultColumn& column : query.columns)
        if (!column.IsStar()) ForEachColumn(column.expression, look);
    for (const ConditionRef& condition : query.where) ForEachColumn(condition, look);
    for (const SourceRef& source : sources)
        if (const JoinSource* join = JoinOf(source); join && join->on) ForEachColumn(join->on, look);
    return names;
}

// Whether the select list, or a join other than the given one and those inside its right side, needs the right side.
bool IsNeededForRows(const QuerySelect& query, const SourceRef& leftJoin) {
    const SourceRef& right = JoinOf(leftJoin)->right;
    for (const ResultColumn& column : query.columns) {
        if (column.IsStar() || Touches(column.expression, right)) return true;
    }
    for (const SourceRef& source : SourcesOf(query.from)) {
        const JoinSource* join = JoinOf(source);
        const bool isOther = join && source != leftJoin && !HoldsSource(right, source->id);
        if (isOther && join->on && Touches(join->on, right)) return true;
    }
    return false;
}

// The FROM clause with the join replaced.
SourceRef WithReplaced(const SourceRef& from, const SourceRef& join, const SourceRef& replacement) {
    if (from == join) return replacement;
    const JoinSource* outer = JoinOf(from);
    if (!outer || !HoldsSource(from, join->id)) return from;
    return ChangedSource(*from, JoinSource{WithReplaced(outer->left, join, replacement),
                                           WithReplaced(outer->right, join, replacement), outer->kind, outer->on});
}

SourceRef WithoutRightSide(const SourceRef& from, const SourceRef& leftJoin) {
    return WithReplaced(from, leftJoin, JoinOf(leftJoin)->left);
}

std::vector<SourceRef> LeftJoinsOf(const SourceRef& from) {
    std::vector<SourceRef> joins;
    for (const SourceRef& source : SourcesOf(from)) {
        const JoinSource* join = JoinOf(source);
        if (join && join->kind == JoinKind::LeftOuter) joins.push_back(source);
    }
    return joins;
}

// The two columns of the only equality that joins a left join.
struct JoinKeys {
    ExpressionRef left;
    ExpressionRef right;
};

std::optional<JoinKeys> KeysOf(const JoinSource& join) {
    const auto* on = std::get_if<Comparison>(&join.on->content);
    if (!on || !on->equal || !ColumnOf(on->left) || !ColumnOf(on->right)) return std::nullopt;
    if (TouchesOnly(on->left, join.left) && TouchesOnly(on->right, join.right)) return JoinKeys{on->left, on->right};
    if (TouchesOnly(on->right, join.left) && TouchesOnly(on->left, join.right)) return JoinKeys{on->right, on->left};
    return std::nullopt;
}

// Whether the condition names only these sources and rejects a row in which they are all NULL.
bool RefusesRowWithout(const ConditionRef& condition, const SourceRef& sources) {
    if (!TouchesOnly(condition, sources)) return false;
    if (const auto* test = std::get_if<NullTest>(&condition->content)) return !test->isNull && ColumnOf(test->operand);
    if (const auto* pattern = std::get_if<PatternTest>(&condition->content)) return ColumnOf(pattern->operand);
    const auto* comparison = std::get_if<Comparison>(&condition->content);
    return comparison && (ColumnOf(comparison->left) || ColumnOf(comparison->right));
}

bool IsPairOfTables(const SourceRef& source) {
    const JoinSource* pair = JoinOf(source);
    return pair && pair->kind == JoinKind::Inner && std::holds_alternative<TableSource>(pair->left->content) &&
           std::holds_alternative<TableSource>(pair->right->content);
}

// SELECT the link's key FROM the pair, starting with the table that the criteria test.
SourceRef ListOfLinked(const JoinSource& pair, const ExpressionRef& key, const std::vector<ConditionRef>& criteria) {
    const auto tests = [&](const SourceRef& table) {
        return std::any_of(criteria.begin(), criteria.end(),
                           [&](const ConditionRef& criterion) { return Touches(criterion, table); });
    };
    const bool keyIsLeft = Touches(key, pair.left);
    const SourceRef& link = keyIsLeft ? pair.left : pair.right;
    const SourceRef& linked = keyIsLeft ? pair.right : pair.left;
    const bool linkedFirst = tests(linked);
    QuerySelect list;
    list.from =
        MakeSource(JoinSource{linkedFirst ? linked : link, linkedFirst ? link : linked, JoinKind::FixedOrder, nullptr});
    list.columns = {{key, ColumnOf(key)->name}};
    list.where = Conjuncts(pair.on);
    list.where.insert(list.where.end(), criteria.begin(), criteria.end());
    return MakeSource(std::move(list));
}

// Turns the criteria on the right side of this left join into a list; false if that is not possible.
bool TurnCriteriaOn(QuerySelect& query, const SourceRef& leftJoin) {
    const JoinSource& join = *JoinOf(leftJoin);
    const auto keys = KeysOf(join);
    if (!keys || !IsPairOfTables(join.right) || IsNeededForRows(query, leftJoin)) return false;
    std::vector<ConditionRef> criteria;
    std::vector<ConditionRef> others;
    for (const ConditionRef& condition : query.where) {
        const bool isCriterion = Touches(condition, join.right);
        if (isCriterion && !RefusesRowWithout(condition, join.right)) return false;
        (isCriterion ? criteria : others).push_back(condition);
    }
    if (criteria.empty()) return false;
    others.insert(others.begin(),
                  MakeCondition(Membership{keys->left, ListOfLinked(*JoinOf(join.right), keys->right, criteria)}));
    query.where = std::move(others);
    query.from = WithoutRightSide(query.from, leftJoin);
    return true;
}

// Whether the condition compares a column of these sources with a value that an index can look up.
bool LooksUp(const ConditionRef& condition, const SourceRef& sources) {
    const auto* comparison = std::get_if<Comparison>(&condition->content);
    return comparison && comparison->equal && ColumnOf(comparison->left) && TouchesOnly(condition, sources);
}

}  // namespace

bool HasLeftJoin(const SourceRef& from) { return !LeftJoinsOf(from).empty(); }

bool HasLeftJoinedPair(const SourceRef& from) {
    const std::vector<SourceRef> joins = LeftJoinsOf(from);
    return std::any_of(joins.begin(), joins.end(), [](const SourceRef& join) { return JoinOf(JoinOf(join)->right); });
}

void TurnLinkedCriteriaToLists(QuerySelect& query) {
    if (NamesAJoin(query)) return;
    for (const SourceRef& leftJoin : LeftJoinsOf(query.from)) {
        if (TurnCriteriaOn(query, leftJoin)) return TurnLinkedCriteriaToLists(query);
    }
}

void DropUnusedLeftJoins(QuerySelect& query) {
    if (NamesAJoin(query)) return;
    for (const SourceRef& leftJoin : LeftJoinsOf(query.from)) {
        const SourceRef& right = JoinOf(leftJoin)->right;
        const bool isTested = std::any_of(query.where.begin(), query.where.end(),
                                          [&](const ConditionRef& condition) { return Touches(condition, right); });
        if (isTested || IsNeededForRows(query, leftJoin)) continue;
        query.from = WithoutRightSide(query.from, leftJoin);
        return DropUnusedLeftJoins(query);
    }
}

void FixOrderOfRequiredRows(QuerySelect& query) {
    for (const SourceRef& leftJoin : LeftJoinsOf(query.from)) {
        const JoinSource& join = *JoinOf(leftJoin);
        if (!std::holds_alternative<TableSource>(join.right->content)) continue;
        const auto any = [&](const auto& test) {
            return std::any_of(query.where.begin(), query.where.end(),
                               [&](const ConditionRef& condition) { return test(condition, join.right); });
        };
        if (!any(RefusesRowWithout) || any(LooksUp)) continue;
        const std::vector<ConditionRef> on = Conjuncts(join.on);
        query.where.insert(query.where.begin(), on.begin(), on.end());
        query.from =
            WithReplaced(query.from, leftJoin,
                         ChangedSource(*leftJoin, JoinSource{join.left, join.right, JoinKind::FixedOrder, nullptr}));
        return FixOrderOfRequiredRows(query);
    }
}

}  // namespace quellbrook::sql
