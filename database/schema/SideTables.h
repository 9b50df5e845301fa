#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace SQLite {
class Database;
}

namespace quellbrook {

// The side tables CurrentPlace and PropertyDescription repeat what other tables contain, so that searches are faster.
// Triggers maintain them. If the triggers were missing for a while, the tables lack rows and searches would not find
// the items. SideTableProof therefore records that each table was right while the schema had a certain cookie
// (PRAGMA schema_version). As long as the schema has that cookie, no trigger has been dropped or created.

// Create the tables, empty.
const std::vector<std::string>& SideTableStatements();

// Empty and fill the tables. Run them in a transaction.
extern const char* const RebuildCurrentPlace;
extern const char* const RebuildDescriptionIndex;

// Record that the tables are right. Run them in the same transaction, after the last change of the schema.
const std::vector<std::string>& SideTableProofStatements();

// The number of items that CurrentPlace lacks. Takes about a second for a million items.
int64_t ItemsMissingInCurrentPlace(SQLite::Database& database);
// Whether PropertyDescription agrees with Property. Takes some seconds for a million items, and a write lock.
bool IsDescriptionIndexRight(SQLite::Database& database);

struct SideTableState {
    bool currentPlace = false;       // may be used
    bool descriptionIndex = false;   // may be used
    std::vector<std::string> notes;  // for the log, about tables that are not used
};

// Checks the tables if their triggers are complete: CurrentPlace always in a file of up to 64 MiB, both after a change
// of the schema. Records what it found right. A table that cannot be checked, since another connection is writing, is
// not used.
SideTableState ProveSideTables(const std::string& path, int busyMilliseconds);

// Creates both side tables again, in a transaction of the caller.
void RestoreSideTables(SQLite::Database& database);

// Restores the triggers and both side tables of a file in one transaction. Raises error 5 with a message for the user
// if that fails; then nothing has changed, except that the outcome of a failed commit is unknown.
void RepairSideTables(const std::string& path, int busyMilliseconds);

}  // namespace quellbrook
