#pragma once

namespace quellbrook {

class OdbcConnection;

// Brings our schema to the version of this program, in one transaction for which other workstations wait. Error 5 with
// a message for the user if the schema has a later version, or can't be upgraded; nothing has changed then.
void UpgradeServerSchema(OdbcConnection& connection);

}  // namespace quellbrook
