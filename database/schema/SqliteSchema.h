#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quellbrook {

// The reference schema of the host's tables, as SQLite statements.
//
// Dates are texts in the format of DateTime::ToText, booleans are 0 and 1. Text columns that are searched or unique
// ignore the case of ASCII letters. The database assigns the keys of StorageLocation, Property, Vehicle and Incident,
// starting at 1, and never reuses one.
//
// Triggers ensure on every connection that:
// - Custody rows are never changed, deleted or replaced. A new one has whole numbers of 32 bits, and dates.
// - A new location has a container that exists and has the same category. So has a location that gets another Path or
//   Type; during a move its container may still be at the old location.
// - A location is not moved or recategorized if that would leave sublocations behind. A new or changed location has a
//   name, a flag and dates.
// - Without foreign keys, locations are not moved, deleted or replaced.
// - CurrentPlace lists every item at the location of its current custody row, if that is changed by INSERT, UPDATE and
//   DELETE only. It may have extra rows; readers check the custody row.
// - PropertyDescription is the trigram index on Property.Description, under the same condition.
//
// Foreign keys ensure, on connections that check them (PRAGMA foreign_keys = ON):
// - At each commit, every location is in the tree: its container exists, Path is the path of that container, and both
//   have the same category. (ContainerNo and ContainerPath are computed from Path.)
// - At each commit, CurrTrackSeq of an item is NULL or names one of its custody rows.
// - A location with sublocations or custody rows is not deleted without them, nor an item with custody rows or links.
//
// Triggers do not look at rows that were there before them: a database from an older version keeps its rows as they
// are. --verify names those that break a rule.
//
// SchemaFact lists the guarantees that queries may rely on. BatchMark has a row for each of the latest batches, written
// with it. The row proves that the batch was committed.

// Every database file has these in its header, as SQLite's application_id ("QBK1") and user_version.
inline constexpr int32_t DatabaseApplicationId = 0x51424B31;
inline constexpr int32_t SchemaVersion = 3;

// Creates everything in an empty database, in order, in one transaction. SchemaUpgrade.h brings older files there.
std::vector<std::string> SqliteSchemaStatements();

// The row of SchemaFact which states that an item has one row in its table and in its view, and at most one current
// custody row. If you replace vwVehicleDisplayInfo with a view that repeats vehicles, delete this row.
inline constexpr const char* ItemsAreDistinctFact = "ItemsAreDistinct";

// Creates an empty department database at the path. Raises error 5 with a message for the user if the path exists
// or the file cannot be created; then no incomplete file remains.
void CreateDatabase(const std::string& path);

}  // namespace quellbrook
