#include "sql/query/PlannerRules.h"

#include "base/Text.h"
#include "sql/query/QueryTraversal.h"

#include <algorithm>
#include <optional>

namespace quellbrook::sql {

namespace {

const TableSource* TableOf(const SourceRef& source) { return std::get_if<TableSource>(&source->content); }

bool IsColumn(const ExpressionRef& expression, SourceId source, const std::string& name) {
    const ColumnReference* column = ColumnOf(expression);
    return column && column->source == source && EqualsNoCase(column->name, name);
}

// Whether the test holds for every column of one of the table's keys.
template <typename Test>
bool HasKeyOf(const SourceRef& table, const std::vector<RowKey>& keys, const Test& test) {
    return std::any_of(keys.begin(), keys.end(), [&](const RowKey& key) {
        return EqualsNoCase(key.table, TableOf(table)->name) &&
               std::all_of(key.columns.begin(), key.columns.end(), test);
    });
}

// Whether the condition says: this column of the source equals a column of another.
bool Pins(const ConditionRef& condition, SourceId source, const std::string& name) {
    const auto* comparison = std::get_if<Comparison>(&condition->content);
    if (!comparison || !comparison->equal) return false;
    const auto isElsewhere = [&](const ExpressionRef& side) {
        const ColumnReference* column = ColumnOf(side);
        return column && column->source != source;
    };
    return (IsColumn(comparison->left, source, name) && isElsewhere(comparison->right)) ||
           (IsColumn(comparison->right, source, name) && isElsewhere(comparison->left));
}

// The table whose rows the joins repeat none of; null where they may.
SourceRef TableOfRows(const SourceRef& from, const std::vector<RowKey>& keys) {
    if (TableOf(from)) return from;
    const auto* join = std::get_if<JoinSource>(&from->content);
    if (!join || !join->on || !TableOf(join->right)) return nullptr;
    const std::vector<ConditionRef> on = Conjuncts(join->on);
    const SourceId joined = join->right->id;
    const bool joinsOneRow = HasKeyOf(join->right, keys, [&](const std::string& name) {
        return std::any_of(on.begin(), on.end(),
                           [&](const ConditionRef& condition) { return Pins(condition, joined, name); });
    });
    return joinsOneRow ? TableOfRows(join->left, keys) : nullptr;
}

std::optional<int32_t> WholeNumberIn(const ResultColumn& column) {
    const auto constant = ConstantOf(column.expression);
    const auto* number = constant ? constant->If<int32_t>() : nullptr;
    return number ? std::optional(*number) : std::nullopt;
}

}  // namespace

bool HasNoEqualRows(const QuerySelect& query, const std::vector<RowKey>& keys) {
    const SourceRef table = TableOfRows(query.from, keys);
    return table && HasKeyOf(table, keys, [&](const std::string& name) {
               return std::any_of(query.columns.begin(), query.columns.end(), [&](const ResultColumn& column) {
                   return !column.IsStar() && IsColumn(column.expression, table->id, name);
               });
           });
}

bool ShareNoRow(const QuerySelect& a, const QuerySelect& b) {
    if (!HasRowwiseColumns(a) || !HasRowwiseColumns(b)) return false;
    const std::vector<ResultColumn> ofA = *ExpandedColumns(a), ofB = *ExpandedColumns(b);
    for (size_t i = 0; i < std::min(ofA.size(), ofB.size()); ++i) {
        const auto left = WholeNumberIn(ofA[i]), right = WholeNumberIn(ofB[i]);
        if (left && right && *left != *right) return true;
    }
    return false;
}

}  // namespace quellbrook::sql
