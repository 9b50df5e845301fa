#pragma once

#include "sql/Dialect.h"
#include "sql/query/QueryNodes.h"

#include <string>
#include <vector>

namespace quellbrook::sql {

struct WrittenQuery {
    std::string text;
    std::vector<size_t> parameters;  // the number of the parameter behind each "?", in order
};

// Writes a query or union without changing it. Sources are named by their tables or aliases; a second source with the
// same name gets a number appended. Error 5 for a column of a source that the query does not select from, and for a
// source that is not a query.
WrittenQuery WriteQuery(const SourceNode& query, const Dialect& dialect);

}  // namespace quellbrook::sql
