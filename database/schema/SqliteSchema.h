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
// Triggers and constraints of the schema ensure that:
// - Custody rows are never changed or deleted.
// - The container of a location exists and has the same category. A move includes all sublocations. A location that has
//   sublocations cannot be deleted without them. (StorageLocation.ContainerNo is computed from Path.)
// - CurrentPlace lists every item at the location of its current custody row. Manual changes may leave extra rows, but
//   no row is ever missing; readers check the custody row.
// - PropertyDescription is the trigram index on Property.Description.
// - SchemaFact lists the guarantees that queries may rely on.
//
// BatchMark has a row for each of the latest batches, written with it. The row proves that the batch was committed.

// Every database file has these in its header, as SQLite's application_id ("QBK1") and user_version.
inline constexpr int32_t DatabaseApplicationId = 0x51424B31;
inline constexpr int32_t SchemaVersion = 2;

// Upgrades a database from the previous version to this one.
struct SchemaScript {
    int32_t version;
    std::vector<std::string> statements;
};

// In ascending order; the last one is for SchemaVersion.
const std::vector<SchemaScript>& SqliteSchemaScripts();

// The row of SchemaFact which states that an item has one row in its table and in its view, and at most one current
// custody row. If you replace vwVehicleDisplayInfo with a view that repeats vehicles, delete this row.
inline constexpr const char* ItemsAreDistinctFact = "ItemsAreDistinct";

// The triggers that maintain CurrentPlace, and those that maintain PropertyDescription. If one of them is missing, the
// table may be out of date.
const std::vector<std::string>& CurrentPlaceTriggers();
const std::vector<std::string>& DescriptionIndexTriggers();

// Creates an empty department database at the path. Raises error 5 with a message for the user if the path
// exists or the file cannot be created; then no incomplete file remains.
void CreateDatabase(const std::string& path);

}  // namespace quellbrook
