#include "sql/query/PlannerRules.h"

#include "sql/query/QueryTraversal.h"

#include <algorithm>
#include <functional>
#include <optional>

namespace quellbrook::sql {

namespace {

using ColumnPosition = std::function<std::optional<size_t>(const ColumnReference&)>;

// Whether the condition means the same for an arm's expressions as for the columns of the union, which may convert and
// collate them by the rules of the first arm.
bool MeansTheSameInArm(const ConditionRef& condition) {
    const auto* comparison = std::get_if<Comparison>(&condition->content);
    if (!comparison) return true;
    const auto isPlain = [](const ExpressionRef& side) {
        return ColumnOf(side) || ConstantOf(side) || IsParameter(side);
    };
    return isPlain(comparison->left) && isPlain(comparison->right);
}

// The query with the condition added to each of its arms, or null if this is not possible for one of them.
SourceRef WithCondition(const SourceRef& query, const ConditionRef& condition, const ColumnPosition& position) {
    if (const auto* all = std::get_if<UnionOfQueries>(&query->content)) {
        UnionOfQueries changed;
        for (const SourceRef& arm : all->arms) {
            changed.arms.push_back(WithCondition(arm, condition, position));
            if (!changed.arms.back()) return nullptr;
        }
        return ChangedSource(*query, std::move(changed));
    }
    QuerySelect changed = std::get<QuerySelect>(query->content);
    const auto columns = ExpandedColumns(changed);
    if (!columns || !HasRowwiseColumns(changed)) return nullptr;
    bool isResolved = true;
    const ConditionRef resolved = ReplaceColumns(condition, [&](const ColumnReference& column) -> ExpressionRef {
        const auto found = position(column);
        if (found && *found < columns->size()) return (*columns)[*found].expression;
        isResolved = false;
        return nullptr;
    });
    if (!isResolved || !MeansTheSameInArm(resolved)) return nullptr;
    changed.where.push_back(resolved);
    return ChangedSource(*query, std::move(changed));
}

std::optional<double> NumberOf(const TaggedValue& value) {
    const bool isNumber = value.Holds<int32_t>() || value.Holds<double>() || value.Holds<Decimal>();
    if (!isNumber) return std::nullopt;
    return ToDouble(value);
}

// The result of the condition if constants decide it. A NULL makes it false.
std::optional<bool> Decide(const ConditionRef& condition) {
    if (const auto* test = std::get_if<NullTest>(&condition->content)) {
        const auto constant = ConstantOf(test->operand);
        if (!constant) return std::nullopt;
        return constant->HasNoValue() == test->isNull;
    }
    if (const auto* test = std::get_if<PatternTest>(&condition->content)) {
        const auto constant = ConstantOf(test->operand);
        if (constant && constant->HasNoValue()) return false;
        return std::nullopt;
    }
    const auto* comparison = std::get_if<Comparison>(&condition->content);
    if (!comparison) return std::nullopt;
    const auto left = ConstantOf(comparison->left);
    const auto right = ConstantOf(comparison->right);
    if ((left && left->HasNoValue()) || (right && right->HasNoValue())) return false;
    if (!left || !right) return std::nullopt;
    const auto leftNumber = NumberOf(*left);
    const auto rightNumber = NumberOf(*right);
    if (!leftNumber || !rightNumber) return std::nullopt;
    return (*leftNumber == *rightNumber) == comparison->equal;
}

bool RefusesNullOf(const ConditionRef& condition, const ColumnReference& column) {
    if (const auto* comparison = std::get_if<Comparison>(&condition->content))
        return IsColumn(comparison->left, column) || IsColumn(comparison->right, column);
    if (const auto* pattern = std::get_if<PatternTest>(&condition->content)) return IsColumn(pattern->operand, column);
    return false;
}

}  // namespace

void PushConditionsIntoArms(QuerySelect& query) {
    const auto* derived = std::get_if<DerivedTable>(&query.from->content);
    if (!derived) return;
    const auto names = ResultNames(*query.from);
    if (!names) return;
    SourceRef inner = derived->query;
    const SourceId ids[] = {query.from->id, inner->id};
    const ColumnPosition position = [&](const ColumnReference& column) -> std::optional<size_t> {
        if (column.source != ids[0] && column.source != ids[1]) return std::nullopt;
        return FindName(*names, column.name);
    };
    std::vector<ConditionRef> staying;
    for (const ConditionRef& condition : query.where) {
        if (const SourceRef changed = WithCondition(inner, condition, position))
            inner = changed;
        else
            staying.push_back(condition);
    }
    query.where = std::move(staying);
    query.from = ChangedSource(*query.from, DerivedTable{inner, derived->alias});
}

void FoldConstants(QuerySelect& query) {
    std::vector<ConditionRef> open;
    for (const ConditionRef& condition : query.where) {
        const auto holds = Decide(condition);
        if (!holds) {
            open.push_back(condition);
        } else if (!*holds) {
            query.where = {MakeCondition(Contradiction{})};
            return;
        }
    }
    query.where = std::move(open);
}

bool IsEmptyArm(const QuerySelect& query) {
    return query.where.size() == 1 && std::holds_alternative<Contradiction>(query.where.front()->content);
}

void DropImpliedNullTests(QuerySelect& query) {
    const std::vector<ConditionRef> all = query.where;
    const auto isImplied = [&](const ConditionRef& condition) {
        const auto* test = std::get_if<NullTest>(&condition->content);
        const ColumnReference* column = test && !test->isNull ? ColumnOf(test->operand) : nullptr;
        return column && std::any_of(all.begin(), all.end(),
                                     [&](const ConditionRef& other) { return RefusesNullOf(other, *column); });
    };
    query.where.erase(std::remove_if(query.where.begin(), query.where.end(), isImplied), query.where.end());
}

bool HasRowwiseColumns(const QuerySelect& query) {
    const auto columns = ExpandedColumns(query);
    return columns && std::all_of(columns->begin(), columns->end(),
                                  [](const ResultColumn& column) { return IsRowwise(column.expression); });
}

}  // namespace quellbrook::sql
