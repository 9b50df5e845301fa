#pragma once

#include "sql/Dialect.h"
#include "sql/query/QueryNodes.h"

#include <vector>

namespace quellbrook::sql {

// The planner's rules on one SELECT, described in QueryPlanner.h. Those on joins need a SELECT whose duplicate rows are
// removed and whose columns are IsRowwise.

void PushConditionsIntoArms(QuerySelect& query);
void FoldConstants(QuerySelect& query);
void DropImpliedNullTests(QuerySelect& query);
void TurnLinkedCriteriaToLists(QuerySelect& query);
void DropUnusedLeftJoins(QuerySelect& query);
void UseCurrentPlaces(QuerySelect& query);
void UseDescriptionIndex(QuerySelect& query);

// Whether FoldConstants has found that no row can come.
bool IsEmptyArm(const QuerySelect& query);
bool HasLeftJoin(const SourceRef& from);
// Whether every column of the select list is known and IsRowwise.
bool HasRowwiseColumns(const QuerySelect& query);
// Whether the keys alone make any two rows of the result differ.
bool HasNoEqualRows(const QuerySelect& query, const std::vector<RowKey>& keys);
// Whether a column tells the rows of the one from those of the other: a constant, and another one.
bool ShareNoRow(const QuerySelect& a, const QuerySelect& b);

}  // namespace quellbrook::sql
