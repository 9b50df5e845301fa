#pragma once

#include "sql/query/QueryNodes.h"

namespace quellbrook::sql {

// The planner's rules for one SELECT, described in QueryPlanner.h. The rules on joins need a SELECT whose duplicate
// rows are removed and whose columns are IsRowwise.

void PushConditionsIntoArms(QuerySelect& query);
void FoldConstants(QuerySelect& query);
void DropImpliedNullTests(QuerySelect& query);
void TurnLinkedCriteriaToLists(QuerySelect& query);
void DropUnusedLeftJoins(QuerySelect& query);
void FixOrderOfRequiredRows(QuerySelect& query);
void UseCurrentPlaces(QuerySelect& query);
void StartBroadPatternsFromItems(QuerySelect& query);
void UseDescriptionIndex(QuerySelect& query);

// Whether FoldConstants found that the query returns no row.
bool IsEmptyArm(const QuerySelect& query);
bool HasLeftJoin(const SourceRef& from);
// Whether a pair of tables is left-joined, which may repeat rows.
bool HasLeftJoinedPair(const SourceRef& from);
// Whether every column of the select list is known and IsRowwise.
bool HasRowwiseColumns(const QuerySelect& query);

}  // namespace quellbrook::sql
