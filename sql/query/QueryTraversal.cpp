#include "sql/query/QueryTraversal.h"

#include "base/Text.h"

#include <algorithm>

namespace quellbrook::sql {

namespace {

template <typename... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};
template <typename... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

std::vector<ExpressionRef> ReplaceInAll(const std::vector<ExpressionRef>& expressions,
                                        const ColumnReplacement& replace) {
    std::vector<ExpressionRef> replaced;
    replaced.reserve(expressions.size());
    for (const ExpressionRef& expression : expressions) replaced.push_back(ReplaceColumns(expression, replace));
    return replaced;
}

void AppendConjuncts(const ConditionRef& condition, std::vector<ConditionRef>& conjuncts) {
    const auto* all = std::get_if<Conjunction>(&condition->content);
    if (!all) {
        conjuncts.push_back(condition);
        return;
    }
    for (const ConditionRef& part : all->parts) AppendConjuncts(part, conjuncts);
}

std::optional<TaggedValue> ConstantOfText(std::string_view text) {
    if (EqualsNoCase(text, "NULL")) return TaggedValue(Null());
    const bool isShortNumber = IsNumeric(text) && text.size() < 10 && Trim(text) == text;
    if (isShortNumber) return TaggedValue(ParseInt32(text));
    const bool isQuoted = text.size() >= 2 && text.front() == '\'' && text.find('\'', 1) == text.size() - 1;
    if (isQuoted) return TaggedValue(text.substr(1, text.size() - 2));
    return std::nullopt;
}

bool IsStarOfTable(const ResultColumn& column) {
    const auto* raw = std::get_if<RawText>(&column.expression->content);
    return raw && raw->text.ends_with(".*");
}

void AppendSources(const SourceRef& from, std::vector<SourceRef>& sources) {
    sources.push_back(from);
    if (const auto* join = std::get_if<JoinSource>(&from->content)) {
        AppendSources(join->left, sources);
        AppendSources(join->right, sources);
    }
}

}  // namespace

void ForEachColumn(const ExpressionRef& expression, const ColumnVisitor& visit) {
    std::visit(Overloaded{[&](const ColumnReference& column) { visit(column); },
                          [&](const FunctionCall& call) {
                              for (const ExpressionRef& argument : call.arguments) ForEachColumn(argument, visit);
                          },
                          [&](const Concatenation& text) {
                              for (const ExpressionRef& part : text.parts) ForEachColumn(part, visit);
                          },
                          [&](const HiddenFromIndexes& hidden) { ForEachColumn(hidden.operand, visit); },
                          [](const Literal&) {}, [](const RawText&) {}, [](const Parameter&) {}},
               expression->content);
}

void ForEachColumn(const ConditionRef& condition, const ColumnVisitor& visit) {
    std::visit(Overloaded{[&](const Comparison& comparison) {
                              ForEachColumn(comparison.left, visit);
                              ForEachColumn(comparison.right, visit);
                          },
                          [&](const NullTest& test) { ForEachColumn(test.operand, visit); },
                          [&](const PatternTest& test) { ForEachColumn(test.operand, visit); },
                          [&](const Membership& membership) { ForEachColumn(membership.operand, visit); },
                          [&](const Conjunction& all) {
                              for (const ConditionRef& part : all.parts) ForEachColumn(part, visit);
                          },
                          [](const Contradiction&) {}},
               condition->content);
}

ExpressionRef ReplaceColumns(const ExpressionRef& expression, const ColumnReplacement& replace) {
    const auto changed = [&](auto content) { return MakeExpression(std::move(content), expression->alias); };
    return std::visit(
        Overloaded{[&](const ColumnReference& column) {
                       const ExpressionRef replacement = replace(column);
                       return replacement ? replacement : expression;
                   },
                   [&](const FunctionCall& call) {
                       return changed(FunctionCall{call.name, ReplaceInAll(call.arguments, replace)});
                   },
                   [&](const Concatenation& text) { return changed(Concatenation{ReplaceInAll(text.parts, replace)}); },
                   [&](const HiddenFromIndexes& hidden) {
                       return changed(HiddenFromIndexes{ReplaceColumns(hidden.operand, replace)});
                   },
                   [&](const Literal&) { return expression; }, [&](const RawText&) { return expression; },
                   [&](const Parameter&) { return expression; }},
        expression->content);
}

ConditionRef ReplaceColumns(const ConditionRef& condition, const ColumnReplacement& replace) {
    return std::visit(
        Overloaded{[&](const Comparison& comparison) {
                       return MakeCondition(Comparison{ReplaceColumns(comparison.left, replace), comparison.equal,
                                                       ReplaceColumns(comparison.right, replace)});
                   },
                   [&](const NullTest& test) {
                       return MakeCondition(NullTest{ReplaceColumns(test.operand, replace), test.isNull});
                   },
                   [&](const PatternTest& test) {
                       return MakeCondition(PatternTest{ReplaceColumns(test.operand, replace), test.pattern});
                   },
                   [&](const Membership& membership) {
                       return MakeCondition(Membership{ReplaceColumns(membership.operand, replace), membership.query});
                   },
                   [&](const Conjunction& all) {
                       std::vector<ConditionRef> parts;
                       for (const ConditionRef& part : all.parts) parts.push_back(ReplaceColumns(part, replace));
                       return MakeCondition(Conjunction{std::move(parts)});
                   },
                   [&](const Contradiction&) { return condition; }},
        condition->content);
}

std::vector<ConditionRef> Conjuncts(const ConditionRef& condition) {
    std::vector<ConditionRef> conjuncts;
    AppendConjuncts(condition, conjuncts);
    return conjuncts;
}

std::vector<ConditionRef> Conjuncts(const std::vector<ConditionRef>& conditions) {
    std::vector<ConditionRef> conjuncts;
    for (const ConditionRef& condition : conditions) AppendConjuncts(condition, conjuncts);
    return conjuncts;
}

std::optional<TaggedValue> ConstantOf(const ExpressionRef& expression) {
    if (const auto* literal = std::get_if<Literal>(&expression->content)) return literal->value;
    if (const auto* raw = std::get_if<RawText>(&expression->content)) return ConstantOfText(raw->text);
    return std::nullopt;
}

bool IsParameter(const ExpressionRef& expression) { return std::holds_alternative<Parameter>(expression->content); }

const ColumnReference* ColumnOf(const ExpressionRef& expression) {
    return std::get_if<ColumnReference>(&expression->content);
}

bool IsColumn(const ExpressionRef& expression, const ColumnReference& column) {
    const ColumnReference* found = ColumnOf(expression);
    return found && found->source == column.source && EqualsNoCase(found->name, column.name);
}

bool IsRowwise(const ExpressionRef& expression) {
    const auto allRowwise = [](const std::vector<ExpressionRef>& parts) {
        return std::all_of(parts.begin(), parts.end(), [](const ExpressionRef& part) { return IsRowwise(part); });
    };
    if (const auto* text = std::get_if<Concatenation>(&expression->content)) return allRowwise(text->parts);
    if (const auto* call = std::get_if<FunctionCall>(&expression->content))
        return EqualsNoCase(call->name, "COALESCE") && allRowwise(call->arguments);
    if (const auto* hidden = std::get_if<HiddenFromIndexes>(&expression->content)) return IsRowwise(hidden->operand);
    return ColumnOf(expression) || ConstantOf(expression) || IsParameter(expression);
}

std::optional<std::vector<ResultColumn>> ExpandedColumns(const QuerySelect& query) {
    std::vector<ResultColumn> columns;
    for (const ResultColumn& column : query.columns) {
        if (!column.IsStar()) {
            if (IsStarOfTable(column)) return std::nullopt;
            columns.push_back(column);
            continue;
        }
        const auto names = ResultNames(*query.from);
        if (!names) return std::nullopt;
        for (const std::string& name : *names)
            columns.push_back({MakeExpression(ColumnReference{query.from->id, name}), name});
    }
    return columns;
}

std::optional<std::vector<std::string>> ResultNames(const SourceNode& source) {
    if (const auto* derived = std::get_if<DerivedTable>(&source.content)) return ResultNames(*derived->query);
    if (const auto* all = std::get_if<UnionOfQueries>(&source.content)) return ResultNames(*all->arms.front());
    const auto* query = std::get_if<QuerySelect>(&source.content);
    if (!query) return std::nullopt;
    const auto columns = ExpandedColumns(*query);
    if (!columns) return std::nullopt;
    std::vector<std::string> names;
    for (const ResultColumn& column : *columns) names.push_back(column.name);
    return names;
}

std::optional<size_t> FindName(const std::vector<std::string>& names, std::string_view name) {
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&](const std::string& candidate) { return EqualsNoCase(candidate, name); });
    if (found == names.end()) return std::nullopt;
    return static_cast<size_t>(found - names.begin());
}

std::vector<SourceRef> SourcesOf(const SourceRef& from) {
    std::vector<SourceRef> sources;
    AppendSources(from, sources);
    return sources;
}

bool HoldsSource(const SourceRef& from, SourceId id) {
    const std::vector<SourceRef> sources = SourcesOf(from);
    return std::any_of(sources.begin(), sources.end(), [id](const SourceRef& source) {
        if (source->id == id) return true;
        const auto* derived = std::get_if<DerivedTable>(&source->content);
        return derived && derived->query->id == id;
    });
}

}  // namespace quellbrook::sql
