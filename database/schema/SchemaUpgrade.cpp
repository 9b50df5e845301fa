#include "database/schema/SchemaUpgrade.h"

#include "base/Error.h"
#include "database/schema/SchemaTriggers.h"
#include "database/schema/SideTables.h"
#include "database/schema/SqliteSchema.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <fcntl.h>
#include <unistd.h>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace quellbrook {

namespace {

namespace fs = std::filesystem;

const char* const source = "UpgradeDatabase";

// Adding a foreign key this way leaves the rows as they are. SQLite's ALTER TABLE cannot add one, and copying the
// table would lose what an administrator added to it.
std::string AddForeignKey(const std::string& table, const std::string& key, const std::string& referenced) {
    std::string statement = "UPDATE sqlite_schema SET sql = SUBSTR(sql, 1, LENGTH(sql) - 1) || ', FOREIGN KEY (";
    statement += key + ") REFERENCES " + referenced + " DEFERRABLE INITIALLY DEFERRED)' ";
    return statement + "WHERE type = 'table' AND name = '" + table + "'";
}

// Only for the view of version 1, not for one that a host has put in its place.
const char* const stateThatItemsAreDistinct =
    "INSERT OR IGNORE INTO SchemaFact (Name) SELECT 'ItemsAreDistinct' FROM sqlite_schema "
    "WHERE name = 'vwVehicleDisplayInfo' AND sql = 'CREATE VIEW vwVehicleDisplayInfo AS' || CHAR(10) || "
    "'SELECT VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel FROM Vehicle'";

const char* const addContainerPath =
    "ALTER TABLE StorageLocation ADD COLUMN ContainerPath TEXT COLLATE NOCASE GENERATED ALWAYS AS "
    "(RTRIM(RTRIM(Path, '/'), '0123456789')) VIRTUAL";

SchemaStep ToVersion3() {
    return {3,
            {"CREATE TABLE IF NOT EXISTS SchemaFact (Name TEXT NOT NULL PRIMARY KEY) WITHOUT ROWID",
             stateThatItemsAreDistinct, addContainerPath, "PRAGMA writable_schema = ON",
             AddForeignKey("StorageLocation", "ContainerNo, ContainerPath, Type", "StorageLocation (IdNo, Path, Type)"),
             AddForeignKey("Property", "PropertyNo, CurrTrackSeq", "PropertyTracking (PropertyNo, SeqNo)"),
             AddForeignKey("Vehicle", "VehicleNo, CurrTrackSeq", "VehicleTracking (VehicleNo, SeqNo)"),
             "PRAGMA writable_schema = RESET",
             "CREATE UNIQUE INDEX StorageLocationPlace ON StorageLocation (IdNo, Path, Type)",
             "DROP INDEX StorageLocationContainer",
             "CREATE INDEX StorageLocationContainer ON StorageLocation (ContainerNo, ContainerPath, Type)"}};
}

int32_t VersionOf(SQLite::Database& database) { return database.execAndGet("PRAGMA user_version").getInt(); }

void RunSteps(SQLite::Database& database, int32_t version) {
    for (const SchemaStep& step : SchemaSteps()) {
        if (step.version <= version) continue;
        for (const std::string& statement : step.statements) database.exec(statement);
    }
    RestoreTriggers(database);
    RestoreSideTables(database);
    database.exec("PRAGMA user_version = " + std::to_string(SchemaVersion));
}

void RemoveFile(const std::string& path) {
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) fs::remove(path + suffix, ignored);
}

[[noreturn]] void RaiseSystemError(const std::string& what, const std::string& path) {
    Raise(ErrorNumber::General, source, what + " '" + path + "': " + std::strerror(errno));
}

void FlushFolderOf(const std::string& path) {
    const fs::path folder = fs::absolute(path).parent_path();
    const int handle = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) RaiseSystemError("the folder can't be opened", folder.string());
    const bool flushed = fsync(handle) == 0;
    close(handle);
    if (!flushed) RaiseSystemError("the folder can't be written to the disk", folder.string());
}

// A path for the copy that is not in use.
std::string NewBackupPath(const std::string& path, int32_t version) {
    const std::string name = path + ".version-" + std::to_string(version);
    std::string candidate = name;
    for (int i = 2; fs::exists(candidate); ++i) candidate = name + "-" + std::to_string(i);
    return candidate;
}

// Call it while a connection has locked the database for writing. Removes what an earlier attempt left behind.
void CopyDatabase(const std::string& path, const std::string& target) {
    const std::string unfinished = path + ".copying";
    RemoveFile(unfinished);
    const int handle = open(unfinished.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (handle < 0) RaiseSystemError("a copy can't be made as", unfinished);
    close(handle);
    try {
        {
            SQLite::Database from(path, SQLite::OPEN_READONLY);
            SQLite::Database to(unfinished, SQLite::OPEN_READWRITE);
            SQLite::Backup backup(to, from);
            const int code = backup.executeStep();
            if (code != SQLITE_DONE) throw SQLite::Exception("the copy was not completed", code);
        }
        fs::rename(unfinished, target);
        FlushFolderOf(target);
    } catch (...) {
        RemoveFile(unfinished);
        RemoveFile(target);
        throw;
    }
}

std::optional<SchemaUpgrade> Upgrade(const std::string& path, int busyMilliseconds, bool& isCommitting) {
    SQLite::Database database(path, SQLite::OPEN_READWRITE, busyMilliseconds);
    if (VersionOf(database) >= SchemaVersion) return std::nullopt;
    database.exec("PRAGMA synchronous = FULL");
    SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
    const int32_t version = VersionOf(database);
    if (version >= SchemaVersion) return std::nullopt;
    const std::string backup = NewBackupPath(path, version);
    CopyDatabase(path, backup);
    try {
        RunSteps(database, version);
    } catch (...) {
        RemoveFile(backup);
        throw;
    }
    isCommitting = true;
    transaction.commit();
    return SchemaUpgrade{version, backup};
}

}  // namespace

const std::vector<SchemaStep>& SchemaSteps() {
    static const std::vector<SchemaStep> steps = {
        {2, {"CREATE TABLE BatchMark (MarkNo INTEGER PRIMARY KEY, Token INTEGER NOT NULL)"}}, ToVersion3()};
    return steps;
}

std::optional<SchemaUpgrade> UpgradeDatabase(const std::string& path, int busyMilliseconds) {
    bool isCommitting = false;
    try {
        return Upgrade(path, busyMilliseconds, isCommitting);
    } catch (const std::exception& failure) {
        const auto* const ofSqlite = dynamic_cast<const SQLite::Exception*>(&failure);
        const bool isLocked = ofSqlite && ofSqlite->getErrorCode() == SQLITE_BUSY;
        std::string sentence = "The database '" + path + "' is from an older version of this program and could not be ";
        sentence += "upgraded: ";
        sentence += isLocked ? "another program is writing to it. Close it there and try again" : failure.what();
        sentence += isCommitting ? ". It may have been upgraded all the same." : ". It has not been changed.";
        Raise(ErrorNumber::General, source, sentence);
    }
}

}  // namespace quellbrook
