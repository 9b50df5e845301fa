#pragma once

#include "database/schema/CustodyRules.h"

#include <string>
#include <vector>

namespace quellbrook {

// Checks every rule that the schema and the transfers keep, also for rows that are older than a rule: the file itself,
// references, the objects of the schema, custody rows, items, locations and side tables. Reads the whole database;
// changes nothing, but needs a write lock for one check. Raises error 5 with a message for the user if the database
// cannot be read.
std::vector<RuleCheck> VerifyDatabase(const std::string& path, int busyMilliseconds);

// Checks custody rows, items, locations, references and the file itself in a database of a host's own schema. Reads the
// whole database and changes nothing. Raises error 5 with a message for the user if it cannot be read or lacks a table.
std::vector<RuleCheck> VerifyHostSchema(const std::string& path, int busyMilliseconds);

}  // namespace quellbrook
