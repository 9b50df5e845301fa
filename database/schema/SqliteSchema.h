#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quellbrook {

// The reference schema of the host's tables, as SQLite statements.
//
// Dates stand as texts in the form of DateTime::ToText, booleans as 0 and 1. Texts that are searched or must be unique
// compare without regard to the case of ASCII letters. Keys of StorageLocation, Property, Vehicle and Incident are
// assigned by the database, begin at 1 and are never given twice.
//
// What the schema guards by itself:
// - Custody rows are never changed or deleted.
// - A location stands in a container that stands, in the same category; a moved one leaves nothing behind below its old
//   place; one that holds others can't be deleted alone (StorageLocation.ContainerNo follows from Path).
// - CurrentPlace lists every item at the location of its current custody row. A row too many may be left by changes by
//   hand, none is ever missing; readers check against the custody row.
// - PropertyDescription is the trigram index on Property.Description.

// The marks that every database file of ours carries in its header: SQLite's application_id ("QBK1") and user_version.
inline constexpr int32_t DatabaseApplicationId = 0x51424B31;
inline constexpr int32_t SchemaVersion = 1;

// What takes a database from the version before to this one.
struct SchemaScript {
    int32_t version;
    std::vector<std::string> statements;
};

// Ascending, the last for SchemaVersion.
const std::vector<SchemaScript>& SqliteSchemaScripts();

// The triggers that keep CurrentPlace, and those that keep PropertyDescription. Where one of them is missing the table
// can't be relied on.
const std::vector<std::string>& CurrentPlaceTriggers();
const std::vector<std::string>& DescriptionIndexTriggers();

// The statement that makes vwVehicleDisplayInfo, a row for each row of Vehicle.
std::string VehicleViewStatement();

// Makes an empty department database at the path. Error 5 with a sentence when something stands there already or the
// file can't be made; no half-made file is left.
void CreateDatabase(const std::string& path);

}  // namespace quellbrook
