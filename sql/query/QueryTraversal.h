#pragma once

#include "sql/query/QueryNodes.h"

#include <functional>
#include <optional>
#include <vector>

namespace quellbrook::sql {

// Functions that inspect a query tree or copy it with changes.

using ColumnVisitor = std::function<void(const ColumnReference&)>;
void ForEachColumn(const ExpressionRef& expression, const ColumnVisitor& visit);
void ForEachColumn(const ConditionRef& condition,
                   const ColumnVisitor& visit);  // an IN query's own columns not included

// A copy with replaced columns. `replace` returns null for a column that remains.
using ColumnReplacement = std::function<ExpressionRef(const ColumnReference&)>;
ExpressionRef ReplaceColumns(const ExpressionRef& expression, const ColumnReplacement& replace);
ConditionRef ReplaceColumns(const ConditionRef& condition, const ColumnReplacement& replace);

// The conditions that a condition joins by AND.
std::vector<ConditionRef> Conjuncts(const ConditionRef& condition);
std::vector<ConditionRef> Conjuncts(const std::vector<ConditionRef>& conditions);

// The value of a literal, or of raw text that is a number, a quoted text or NULL.
std::optional<TaggedValue> ConstantOf(const ExpressionRef& expression);
bool IsParameter(const ExpressionRef& expression);
const ColumnReference* ColumnOf(const ExpressionRef& expression);  // null for any other expression
bool IsColumn(const ExpressionRef& expression, const ColumnReference& column);

// Whether the value of the expression depends only on the columns it names: it has no aggregate and no unknown raw
// text.
bool IsRowwise(const ExpressionRef& expression);

// The result columns by name, "*" resolved; nothing if that needs the schema.
std::optional<std::vector<ResultColumn>> ExpandedColumns(const QuerySelect& query);
// The names of the result columns of a query, a union or a derived table; nothing for any other source.
std::optional<std::vector<std::string>> ResultNames(const SourceNode& source);
// Position of a name, case-insensitive.
std::optional<size_t> FindName(const std::vector<std::string>& names, std::string_view name);

// The sources that a FROM clause joins, joins included, from the outside in.
std::vector<SourceRef> SourcesOf(const SourceRef& from);
bool HoldsSource(const SourceRef& from, SourceId id);

}  // namespace quellbrook::sql
