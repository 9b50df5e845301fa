#pragma once

#include <string>
#include <string_view>

namespace quellbrook::sql {

// What lets a query lock the rows that it reads until the end of the transaction. Only for a SELECT of rows of one
// table; any other query stays as it is.

// The end of the query for PostgreSQL. The rows are locked in the order of the first column, unless the query has one.
std::string LocksForPostgreSql(std::string_view query);
// The query for SQL Server, which locks the rows in the order in which it reads them.
std::string WithLocksForSqlServer(std::string_view query);

}  // namespace quellbrook::sql
