#pragma once

#include <string>
#include <string_view>

namespace quellbrook::sql {

// A query that locks the rows that it reads until the end of the transaction, in the order of its first column. Only
// for a SELECT of rows of one table; any other query is returned unchanged.

std::string WithLocksForPostgreSql(std::string_view query);
// The server locks the rows in the order in which it reads them.
std::string WithLocksForSqlServer(std::string_view query);

}  // namespace quellbrook::sql
