#pragma once

#include "sql/Dialect.h"
#include "sql/query/QueryNodes.h"

namespace quellbrook::sql {

// Rewrites a composed query into one that gives the same rows and can be found by indexes. A query that holds a left
// join gives each row once, as a union does. What a rule can't be sure of, it leaves as it stands. The query is not
// changed.
//
// The rules, one function each, in the order in which they are applied:
//   PushConditionsIntoArms     a condition on a derived table goes into each arm of it, said by the arm's own columns
//   FoldConstants              a condition between constants is decided; one that can't hold makes the arm empty
//   DropEmptyArms              an empty arm of a union is left out; the last one stays and says 1 = 0
//   DropImpliedNullTests       IS NOT NULL beside another condition that refuses NULL is left out
//   TurnLinkedCriteriaToLists  a criterion on a left-joined pair of tables becomes key IN (SELECT ... FROM the pair)
//   DropUnusedLeftJoins        a left-joined source that nothing selects or tests is left out
//   UseCurrentPlaces           an item's place is looked for among the candidates of CurrentPlace, where that stands
//   UseDescriptionIndex        a description is looked for among the candidates of PropertyDescription, where that
//                              stands
//   HaveNoEqualRows            nothing is told to look for equal rows where the keys leave none to come: UNION ALL, and
//                              no DISTINCT
// The join of the current custody row stays a left join all along: as an inner join it would invite the engine to start
// from the tracking table.
SourceRef PlanQuery(const SourceRef& query, const Dialect& dialect);

}  // namespace quellbrook::sql
