#include "sql/query/PlannerRules.h"

#include "base/Text.h"
#include "sql/query/QueryTraversal.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace quellbrook::sql {

namespace {

// How CurrentPlace refers to each kind of item.
struct TrackedKind {
    const char* items;
    const char* tracking;
    const char* key;
    int32_t itemType;
};
constexpr TrackedKind trackedKinds[] = {{"Property", "PropertyTracking", "PropertyNo", 1},
                                        {"Vehicle", "VehicleTracking", "VehicleNo", 2}};

const TableSource* TableOf(const SourceRef& source) { return std::get_if<TableSource>(&source->content); }

bool IsTable(const SourceRef& from, SourceId id, std::string_view name) {
    for (const SourceRef& source : SourcesOf(from)) {
        const TableSource* table = TableOf(source);
        if (source->id == id && table && EqualsNoCase(table->name, name)) return true;
    }
    return false;
}

bool Equate(const ConditionRef& condition, const ColumnReference& a, const ColumnReference& b) {
    const auto* comparison = std::get_if<Comparison>(&condition->content);
    return comparison && comparison->equal &&
           ((IsColumn(comparison->left, a) && IsColumn(comparison->right, b)) ||
            (IsColumn(comparison->left, b) && IsColumn(comparison->right, a)));
}

// The item table that the tracking table is joined to as its current custody row, by key and sequence number only.
std::optional<SourceId> ItemOfCurrentRow(const SourceRef& from, SourceId tracking, const TrackedKind& kind) {
    for (const SourceRef& source : SourcesOf(from)) {
        const auto* join = std::get_if<JoinSource>(&source->content);
        if (!join || join->right->id != tracking || !join->on) continue;
        const std::vector<ConditionRef> on = Conjuncts(join->on);
        for (const SourceRef& candidate : SourcesOf(join->left)) {
            if (!IsTable(from, candidate->id, kind.items)) continue;
            const SourceId item = candidate->id;
            const auto joins = [&](const char* trackingColumn, const char* itemColumn) {
                return std::any_of(on.begin(), on.end(), [&](const ConditionRef& condition) {
                    return Equate(condition, {tracking, trackingColumn}, {item, itemColumn});
                });
            };
            if (on.size() == 2 && joins(kind.key, kind.key) && joins("SeqNo", "CurrTrackSeq")) return item;
        }
    }
    return std::nullopt;
}

struct PlaceTest {
    ColumnReference column;
    ExpressionRef location;
};

// A test for one location: column StorageLocNo = a whole number.
std::optional<PlaceTest> PlaceTestOf(const ConditionRef& condition) {
    const auto* comparison = std::get_if<Comparison>(&condition->content);
    if (!comparison || !comparison->equal) return std::nullopt;
    const ColumnReference* column = ColumnOf(comparison->left);
    const auto number = ConstantOf(comparison->right);
    const bool isNumber = IsParameter(comparison->right) || (number && number->Holds<int32_t>());
    if (!column || !EqualsNoCase(column->name, "StorageLocNo") || !isNumber) return std::nullopt;
    return PlaceTest{*column, comparison->right};
}

ConditionRef EqualsValue(SourceId source, const char* column, ExpressionRef value) {
    return MakeCondition(Comparison{MakeExpression(ColumnReference{source, column}), true, std::move(value)});
}

ConditionRef IsCandidateForLocation(SourceId item, const TrackedKind& kind, const ExpressionRef& location) {
    const SourceRef candidates = MakeSource(TableSource{"CurrentPlace"});
    QuerySelect list{candidates, {{MakeExpression(ColumnReference{candidates->id, "ItemNo"}), "ItemNo"}}, {}};
    list.where = {EqualsValue(candidates->id, "StorageLocNo", location),
                  EqualsValue(candidates->id, "ItemType", MakeExpression(Literal{kind.itemType}))};
    return MakeCondition(Membership{MakeExpression(ColumnReference{item, kind.key}), MakeSource(std::move(list))});
}

size_t CountCharacters(std::string_view text) {
    return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

// The longest run without a special character of LIKE on any engine; the first of several.
std::string_view LongestPlainRun(std::string_view pattern) {
    std::string_view longest;
    while (!pattern.empty()) {
        const std::string_view run = pattern.substr(0, pattern.find_first_of("*%_[]\\"));
        if (CountCharacters(run) > CountCharacters(longest)) longest = run;
        pattern.remove_prefix(std::min(pattern.size(), run.size() + 1));
    }
    return longest;
}

const PatternTest* DescriptionTestOf(const ConditionRef& condition, const SourceRef& from) {
    const auto* test = std::get_if<PatternTest>(&condition->content);
    const ColumnReference* column = test ? ColumnOf(test->operand) : nullptr;
    if (!column || !EqualsNoCase(column->name, "Description") || !IsTable(from, column->source, "Property"))
        return nullptr;
    return test;
}

// Whether an index on this condition finds few enough rows that a list of candidates would only add cost.
bool IsNarrow(const ConditionRef& condition) {
    if (std::holds_alternative<Membership>(condition->content)) return true;
    if (const auto* pattern = std::get_if<PatternTest>(&condition->content))
        return ColumnOf(pattern->operand) && !pattern->pattern.starts_with('*') &&
               !EqualsNoCase(ColumnOf(pattern->operand)->name, "Description");
    const auto* comparison = std::get_if<Comparison>(&condition->content);
    const ColumnReference* column = comparison && comparison->equal ? ColumnOf(comparison->left) : nullptr;
    return column && (EqualsNoCase(column->name, "PropertyNo") || EqualsNoCase(column->name, "PropertyID") ||
                      EqualsNoCase(column->name, "StorageLocNo"));
}

}  // namespace

void UseCurrentPlaces(QuerySelect& query) {
    std::vector<ConditionRef> where;
    for (const ConditionRef& condition : query.where) {
        const auto test = PlaceTestOf(condition);
        bool isTurned = false;
        for (const TrackedKind& kind : trackedKinds) {
            if (!test || !IsTable(query.from, test->column.source, kind.tracking)) continue;
            const auto item = ItemOfCurrentRow(query.from, test->column.source, kind);
            if (!item) continue;
            where.push_back(IsCandidateForLocation(*item, kind, test->location));
            where.push_back(MakeCondition(
                Comparison{MakeExpression(HiddenFromIndexes{MakeExpression(test->column)}), true, test->location}));
            isTurned = true;
        }
        if (!isTurned) where.push_back(condition);
    }
    query.where = std::move(where);
}

void UseDescriptionIndex(QuerySelect& query) {
    if (std::any_of(query.where.begin(), query.where.end(), IsNarrow)) return;
    for (const ConditionRef& condition : query.where) {
        const PatternTest* test = DescriptionTestOf(condition, query.from);
        if (!test) continue;
        const std::string_view run = LongestPlainRun(test->pattern);
        if (CountCharacters(run) < 3) continue;
        const SourceRef index = MakeSource(TableSource{"PropertyDescription"});
        QuerySelect list{index, {{MakeExpression(ColumnReference{index->id, "rowid"}), "rowid"}}, {}};
        list.where = {MakeCondition(
            PatternTest{MakeExpression(ColumnReference{index->id, "Description"}), "*" + std::string(run) + "*"})};
        const SourceId items = ColumnOf(test->operand)->source;
        query.where.insert(query.where.begin(),
                           MakeCondition(Membership{MakeExpression(ColumnReference{items, "PropertyNo"}),
                                                    MakeSource(std::move(list))}));
        return;
    }
}

}  // namespace quellbrook::sql
