#pragma once

#include "sql/Dialect.h"
#include "sql/query/QueryNodes.h"

namespace quellbrook::sql {

// Returns a query with the same rows that can use indexes. A query with a left join returns each distinct row once, as
// a union does. A rule skips any part that it cannot analyze. The given query is not changed.
//
// The rules, one function each, in order:
//   PushConditionsIntoArms     a condition on a derived table moves into each arm, in terms of the arm's columns
//   FoldConstants              a condition between constants is evaluated; a false one makes the arm empty
//   DropEmptyArms              an empty arm of a union is dropped; the last one stays with 1 = 0
//   DropImpliedNullTests       IS NOT NULL beside another condition that rejects NULL is dropped
//   TurnLinkedCriteriaToLists  a criterion on a left-joined pair of tables becomes key IN (SELECT ... FROM the pair)
//   DropUnusedLeftJoins        a left-joined source that nothing selects or tests is dropped
//   UseCurrentPlaces           items at a location are looked up in CurrentPlace, if it exists
//   StartBroadPatternsFromItems
//                              a pattern for incidents is tested only for the items in CurrentPlace, or only for
//                              untracked items, where it might match far more incidents than there are such items
//   UseDescriptionIndex        a description is looked up in PropertyDescription, if it exists
//   FixOrderOfRequiredRows     a left join with a table whose row is required becomes an inner join that starts from
//                              the left side, unless a condition looks the row up by a value
//   HaveNoEqualRows            a query of items uses UNION ALL and no DISTINCT where the schema states that items are
//                              distinct
SourceRef PlanQuery(const SourceRef& query, const Dialect& dialect);

}  // namespace quellbrook::sql
