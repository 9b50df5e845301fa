#pragma once

#include "database/odbc/OdbcLink.h"
#include "database/schema/CustodyRules.h"

#include <string>
#include <vector>

namespace quellbrook {

// Checks the rules of the custody data in a database on a server, also for rows that are older than a rule. In our
// schema, also its objects and the side table CurrentPlace. Reads the whole database and changes nothing, except that
// it upgrades an older version of our schema. Errors as OdbcEngine::Open, and those of the server.
std::vector<RuleCheck> VerifyServerDatabase(const std::string& connectionString,
                                            const ServerLimits& limits = WholeDatabaseLimits);

// Fills the side table CurrentPlace again from the custody rows, in one transaction, for which other workstations wait.
// Error 5 with a message for the user if there is no such table; then, and after any other failure, nothing has
// changed.
void RebuildServerPlaces(const std::string& connectionString, const ServerLimits& limits = WholeDatabaseLimits);

}  // namespace quellbrook
