#pragma once

#include "sql/Dialect.h"
#include "sql/query/QueryNodes.h"

#include <string>
#include <vector>

namespace quellbrook::sql {

// The text of a query or union, written as the tree stands. Sources are named by their tables, or by their aliases; a
// second source of one name gets a number behind it. Error 5 for a column of a source that the query does not select
// from, and for a source that is no query.
struct WrittenQuery {
    std::string text;
    std::vector<size_t> keyPlaces;  // ascending positions in the text at which the key is to be filled in
};
WrittenQuery WriteTemplate(const SourceNode& query, const Dialect& dialect);

// For a query without such places; Error 5 for one that has any.
std::string WriteQuery(const SourceNode& query, const Dialect& dialect);

}  // namespace quellbrook::sql
