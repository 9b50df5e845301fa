#pragma once

#include "host/engines/Dialect.h"
#include "host/sql/QueryNodes.h"

#include <string>

namespace quellbrook::sql {

// The text of a query or union, written as the tree stands. Sources are named by their tables, or by their aliases; a
// second source of one name gets a number behind it. Error 5 for a column of a source that the query does not select
// from, and for a source that is no query.
std::string WriteQuery(const SourceNode& query, const Dialect& dialect);

}  // namespace quellbrook::sql
