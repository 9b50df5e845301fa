#pragma once

#include <set>
#include <string>

namespace quellbrook {

class OdbcConnection;

// The first column of a query in the server's own SQL, as texts in lower case.
std::set<std::string> TextsOf(OdbcConnection& connection, const std::string& query);

// What the current schema of the database has, by names in lower case.
std::set<std::string> TablesAndViewsOf(OdbcConnection& connection);
std::set<std::string> IndexesOf(OdbcConnection& connection);
// Those that are switched on.
std::set<std::string> ActiveTriggersOf(OdbcConnection& connection);

}  // namespace quellbrook
