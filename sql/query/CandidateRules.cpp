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

const QuerySelect* ListOf(const ConditionRef& condition) {
    const auto* membership = std::get_if<Membership>(&condition->content);
    return membership ? std::get_if<QuerySelect>(&membership->query->content) : nullptr;
}

bool ListsCandidates(const ConditionRef& condition) {
    const QuerySelect* list = ListOf(condition);
    return list && TableOf(list->from) && TableOf(list->from)->name == "CurrentPlace";
}

// A list of linked items, found by a pattern.
bool ListsByPattern(const ConditionRef& condition) {
    const QuerySelect* list = ListOf(condition);
    const auto* join = list ? std::get_if<JoinSource>(&list->from->content) : nullptr;
    return join && join->kind == JoinKind::FixedOrder && TableOf(join->left) && TableOf(join->right) &&
           std::any_of(list->where.begin(), list->where.end(),
                       [](const ConditionRef& test) { return std::holds_alternative<PatternTest>(test->content); });
}

// The candidates that the second list contains too.
SourceRef Intersection(const QuerySelect& candidates, const QuerySelect& linked) {
    const JoinSource& pair = std::get<JoinSource>(linked.from->content);
    const ExpressionRef& key = linked.columns.front().expression;
    const bool keyIsLeft = pair.left->id == ColumnOf(key)->source;
    const SourceRef keyed =
        MakeSource(JoinSource{candidates.from, keyIsLeft ? pair.left : pair.right, JoinKind::FixedOrder, nullptr});
    QuerySelect list = linked;
    list.from = MakeSource(JoinSource{keyed, keyIsLeft ? pair.right : pair.left, JoinKind::FixedOrder, nullptr});
    list.where.insert(list.where.begin(), candidates.where.begin(), candidates.where.end());
    list.where.push_back(MakeCondition(Comparison{key, true, candidates.columns.front().expression}));
    return MakeSource(std::move(list));
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

// The items of the source that have no custody row, if the query lists only those.
std::optional<QuerySelect> ListOfUntracked(const QuerySelect& query, SourceId items) {
    for (const TrackedKind& kind : trackedKinds) {
        if (!IsTable(query.from, items, kind.items)) continue;
        for (const ConditionRef& condition : query.where) {
            const auto* test = std::get_if<NullTest>(&condition->content);
            if (!test || !test->isNull || !IsColumn(test->operand, {items, "CurrTrackSeq"})) continue;
            const SourceRef table = MakeSource(TableSource{kind.items});
            QuerySelect list{table, {{MakeExpression(ColumnReference{table->id, kind.key}), kind.key}}, {}};
            list.where = {MakeCondition(NullTest{MakeExpression(ColumnReference{table->id, "CurrTrackSeq"}), true})};
            return list;
        }
    }
    return std::nullopt;
}

// Whether the pattern of the list cannot use an index, or may match very many rows.
bool IsBroad(const QuerySelect& linked) {
    return std::any_of(linked.where.begin(), linked.where.end(), [](const ConditionRef& condition) {
        const auto* test = std::get_if<PatternTest>(&condition->content);
        return test && (test->pattern.starts_with('*') || CountCharacters(LongestPlainRun(test->pattern)) < 3);
    });
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

void StartBroadPatternsFromItems(QuerySelect& query) {
    const auto linked = std::find_if(query.where.begin(), query.where.end(), ListsByPattern);
    if (linked == query.where.end()) return;
    const QuerySelect& list = *ListOf(*linked);
    const ExpressionRef key = std::get<Membership>((*linked)->content).operand;
    const auto candidates = std::find_if(query.where.begin(), query.where.end(), [&](const ConditionRef& condition) {
        return ListsCandidates(condition) && IsColumn(std::get<Membership>(condition->content).operand, *ColumnOf(key));
    });
    if (candidates != query.where.end()) {
        *candidates = MakeCondition(Membership{key, Intersection(*ListOf(*candidates), list)});
        query.where.erase(linked);
    } else if (const auto untracked = ListOfUntracked(query, ColumnOf(key)->source); untracked && IsBroad(list)) {
        *linked = MakeCondition(Membership{key, Intersection(*untracked, list)});
    }
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
