#include "database/schema/SideTables.h"

#include "base/Error.h"
#include "base/FormatCount.h"
#include "database/schema/SchemaTriggers.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <map>

namespace quellbrook {

const char* const RebuildCurrentPlace = R"sql(
DELETE FROM CurrentPlace;
INSERT INTO CurrentPlace (StorageLocNo, ItemType, ItemNo)
    SELECT t.StorageLocNo, 1, i.PropertyNo FROM Property i
    INNER JOIN PropertyTracking t ON t.PropertyNo = i.PropertyNo AND t.SeqNo = i.CurrTrackSeq
    WHERE t.StorageLocNo IS NOT NULL
    UNION ALL
    SELECT t.StorageLocNo, 2, i.VehicleNo FROM Vehicle i
    INNER JOIN VehicleTracking t ON t.VehicleNo = i.VehicleNo AND t.SeqNo = i.CurrTrackSeq
    WHERE t.StorageLocNo IS NOT NULL ORDER BY 1, 2, 3)sql";

const char* const RebuildDescriptionIndex = "INSERT INTO PropertyDescription (PropertyDescription) VALUES ('rebuild')";

namespace {

constexpr uintmax_t alwaysCheckedLimit = 64u << 20;
constexpr const char* placeTable = "CurrentPlace";
constexpr const char* descriptionTable = "PropertyDescription";

const char* const missingItems = R"sql(
SELECT (SELECT COUNT(*) FROM Property i
        INNER JOIN PropertyTracking t ON t.PropertyNo = i.PropertyNo AND t.SeqNo = i.CurrTrackSeq
        WHERE t.StorageLocNo IS NOT NULL AND NOT EXISTS (SELECT 1 FROM CurrentPlace c
            WHERE c.StorageLocNo = t.StorageLocNo AND c.ItemType = 1 AND c.ItemNo = i.PropertyNo))
    + (SELECT COUNT(*) FROM Vehicle i
        INNER JOIN VehicleTracking t ON t.VehicleNo = i.VehicleNo AND t.SeqNo = i.CurrTrackSeq
        WHERE t.StorageLocNo IS NOT NULL AND NOT EXISTS (SELECT 1 FROM CurrentPlace c
            WHERE c.StorageLocNo = t.StorageLocNo AND c.ItemType = 2 AND c.ItemNo = i.VehicleNo)))sql";

int Cookie(SQLite::Database& database) { return database.execAndGet("PRAGMA schema_version").getInt(); }

bool HasTriggers(SQLite::Database& database, const char* table, const std::vector<std::string>& names) {
    std::map<std::string, std::string> present;
    SQLite::Statement list(database, "SELECT name, sql FROM sqlite_schema WHERE type = 'trigger'");
    while (list.executeStep()) present[list.getColumn(0).getString()] = list.getColumn(1).getString();
    if (!database.tableExists(table)) return false;
    for (const SchemaTrigger& trigger : SchemaTriggers()) {
        const bool wanted = std::find(names.begin(), names.end(), trigger.name) != names.end();
        if (wanted && present[trigger.name] != trigger.sql) return false;
    }
    return true;
}

bool IsProven(SQLite::Database& database, const char* table) {
    if (!database.tableExists("SideTableProof")) return false;
    SQLite::Statement proof(database, "SELECT 1 FROM SideTableProof WHERE Name = ? AND SchemaCookie = ?");
    proof.bind(1, table);
    proof.bind(2, Cookie(database));
    return proof.executeStep();
}

void Record(SQLite::Database& database, const char* table) {
    if (!database.tableExists("SideTableProof")) return;
    SQLite::Statement proof(database, "INSERT OR REPLACE INTO SideTableProof (Name, SchemaCookie) VALUES (?, ?)");
    proof.bind(1, table);
    proof.bind(2, Cookie(database));
    proof.exec();
}

std::string NotUsed(const std::string& reason) {
    return reason + " Searches are slower until it is rebuilt with --repair.";
}

void CheckPlaces(SQLite::Database& database, SideTableState& state) {
    const int64_t missing = ItemsMissingInCurrentPlace(database);
    state.currentPlace = missing == 0;
    if (state.currentPlace) return;
    state.notes.push_back(
        NotUsed("The side table CurrentPlace lacks " + FormatCount(missing, "%d item", "%d items") + "."));
}

void CheckDescriptions(SQLite::Database& database, SideTableState& state) {
    state.descriptionIndex = IsDescriptionIndexRight(database);
    if (!state.descriptionIndex)
        state.notes.push_back(NotUsed("The side table PropertyDescription disagrees with the items."));
}

// What is not proven is checked under a write lock, which the check of the description index and the record need.
void CheckUnproven(SQLite::Database& database, bool places, bool descriptions, SideTableState& state) {
    SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
    if (places) CheckPlaces(database, state);
    if (descriptions) CheckDescriptions(database, state);
    if (places && state.currentPlace) Record(database, placeTable);
    if (descriptions && state.descriptionIndex) Record(database, descriptionTable);
    transaction.commit();
}

bool IsSmall(const std::string& path) {
    std::error_code failure;
    const uintmax_t size = std::filesystem::file_size(path, failure);
    return !failure && size <= alwaysCheckedLimit;
}

void Prove(SQLite::Database& database, bool isSmall, SideTableState& state) {
    const bool hasPlaces = HasTriggers(database, placeTable, CurrentPlaceTriggers());
    const bool hasDescriptions = HasTriggers(database, descriptionTable, DescriptionIndexTriggers());
    if (!hasPlaces) state.notes.push_back(NotUsed("The side table CurrentPlace or one of its triggers is missing."));
    if (!hasDescriptions)
        state.notes.push_back(NotUsed("The side table PropertyDescription or one of its triggers is missing."));
    const bool placesProven = hasPlaces && IsProven(database, placeTable);
    const bool descriptionsProven = hasDescriptions && IsProven(database, descriptionTable);
    state.currentPlace = placesProven;
    state.descriptionIndex = descriptionsProven;
    if (placesProven && isSmall) CheckPlaces(database, state);
    const bool checkPlaces = hasPlaces && !placesProven, checkDescriptions = hasDescriptions && !descriptionsProven;
    if (checkPlaces || checkDescriptions) CheckUnproven(database, checkPlaces, checkDescriptions, state);
}

}  // namespace

const std::vector<std::string>& SideTableStatements() {
    static const std::vector<std::string> statements = {
        R"sql(
CREATE TABLE CurrentPlace (
    StorageLocNo INTEGER NOT NULL,
    ItemType INTEGER NOT NULL,
    ItemNo INTEGER NOT NULL,
    PRIMARY KEY (StorageLocNo, ItemType, ItemNo)
) WITHOUT ROWID)sql",
        R"sql(
CREATE VIRTUAL TABLE PropertyDescription USING fts5(Description, content='Property', content_rowid='PropertyNo',
    tokenize='trigram', detail='none', columnsize=0))sql",
        "CREATE TABLE SideTableProof (Name TEXT NOT NULL PRIMARY KEY, SchemaCookie INTEGER NOT NULL) WITHOUT ROWID"};
    return statements;
}

const std::vector<std::string>& SideTableProofStatements() {
    static const std::vector<std::string> statements = {
        "DELETE FROM SideTableProof",
        "INSERT INTO SideTableProof (Name, SchemaCookie) SELECT 'CurrentPlace', schema_version "
        "FROM pragma_schema_version UNION ALL SELECT 'PropertyDescription', schema_version FROM pragma_schema_version"};
    return statements;
}

int64_t ItemsMissingInCurrentPlace(SQLite::Database& database) { return database.execAndGet(missingItems).getInt64(); }

bool IsDescriptionIndexRight(SQLite::Database& database) {
    try {
        database.exec("INSERT INTO PropertyDescription (PropertyDescription, rank) VALUES ('integrity-check', 1)");
        return true;
    } catch (const SQLite::Exception& failure) {
        if (failure.getErrorCode() == SQLITE_CORRUPT) return false;
        throw;
    }
}

SideTableState ProveSideTables(const std::string& path, int busyMilliseconds) {
    SideTableState state;
    try {
        SQLite::Database database(path, SQLite::OPEN_READWRITE, busyMilliseconds);
        Prove(database, IsSmall(path), state);
    } catch (const SQLite::Exception& failure) {
        state.currentPlace = state.descriptionIndex = false;
        std::string note = "The side tables could not be checked (";
        note += failure.what();
        state.notes = {note + "). Searches are slower until the program starts again."};
    }
    return state;
}

void RestoreSideTables(SQLite::Database& database) {
    for (const char* table : {placeTable, descriptionTable, "SideTableProof"})
        database.exec(std::string("DROP TABLE IF EXISTS ") + table);
    for (const std::string& statement : SideTableStatements()) database.exec(statement);
    database.exec(RebuildCurrentPlace);
    database.exec(RebuildDescriptionIndex);
    for (const std::string& statement : SideTableProofStatements()) database.exec(statement);
}

void RepairSideTables(const std::string& path, int busyMilliseconds) {
    bool isCommitting = false;
    try {
        SQLite::Database database(path, SQLite::OPEN_READWRITE, busyMilliseconds);
        database.exec("PRAGMA synchronous = FULL");
        SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
        RestoreTriggers(database);
        RestoreSideTables(database);
        isCommitting = true;
        transaction.commit();
    } catch (const SQLite::Exception& failure) {
        std::string sentence = "The side tables could not be rebuilt: ";
        sentence += failure.what();
        sentence += isCommitting ? ". They may have been rebuilt all the same." : ". Nothing has been changed.";
        Raise(ErrorNumber::General, "RepairSideTables", sentence);
    }
}

}  // namespace quellbrook
