#include "database/SqliteFileCheck.h"

#include "base/Error.h"
#include "database/DatabaseFile.h"
#include "database/HostTables.h"
#include "database/LockWait.h"
#include "database/LogCheck.h"
#include "database/PageCheck.h"
#include "database/SqliteError.h"
#include "database/schema/SqliteSchema.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <array>
#include <filesystem>
#include <string_view>

namespace quellbrook {

namespace {

constexpr uintmax_t wholeCheckLimit = 64u << 20;
const std::string readAdvice("Check the permissions of the file, or restore it from a backup.");
constexpr std::string_view signature("SQLite format 3\0", 16);
constexpr size_t versionOffset = 60;
constexpr size_t applicationOffset = 68;

const char* const requiredTables[] = {"StorageLocation",  "Property",        "Vehicle",   "PropertyTracking",
                                      "VehicleTracking",  "IncdProperty",    "Incident",  "IncdVehicle",
                                      "AttachmentFolder", "AttachmentIndex", "CodeTable", "Person",
                                      "Account",          "AccountRight",    "Setting"};

[[noreturn]] void Refuse(const std::string& sentence) { Raise(ErrorNumber::General, "SqliteEngine.Open", sentence); }

[[noreturn]] void RefuseNewer(const std::string& path) {
    Refuse("The database '" + path + "' was created by a newer version of this program.");
}

[[noreturn]] void RefuseLog(const std::string& path) {
    Refuse("The file '" + path + "-wal' belongs to another copy of the database '" + path +
           "'. If you have restored a backup, close the program everywhere, move '" + path + "-wal' and '" + path +
           "-shm' into another folder, and restore the backup again.");
}

[[noreturn]] void RefuseDamaged(const std::string& path) {
    std::error_code ignored;
    const bool hasLog =
        std::filesystem::exists(path + "-wal", ignored) && !std::filesystem::is_empty(path + "-wal", ignored);
    if (!hasLog) RaiseOpenFailure(path, SQLITE_CORRUPT, "");
    if (IsWholeWithoutLog(path)) RefuseLog(path);
    Refuse("The database '" + path + "' is damaged. Move '" + path + "-wal' and '" + path +
           "-shm' into another folder, then restore a backup.");
}

using Header = std::array<unsigned char, 100>;

int32_t NumberAt(const Header& header, size_t offset) {
    uint32_t number = 0;
    for (size_t i = 0; i < 4; ++i) number = number << 8 | header[offset + i];
    return static_cast<int32_t>(number);
}

// Reads through SQLite's own file handle. Closing another handle would release all locks that this process has on the
// file.
Header ReadHeader(const std::string& path) {
    try {
        const SQLite::Database database(path, SQLite::OPEN_READONLY);
        sqlite3_file* file = nullptr;
        sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
        Header header{};
        const int code = file->pMethods->xRead(file, header.data(), static_cast<int>(header.size()), 0);
        if (code == SQLITE_IOERR_SHORT_READ) Refuse("The file '" + path + "' is not a database.");
        if (code != SQLITE_OK) Refuse("The database '" + path + "' can't be read. " + readAdvice);
        return header;
    } catch (const SQLite::Exception&) {
        Refuse("The database '" + path + "' can't be read. " + readAdvice);
    }
}

Header CheckIsDatabase(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::exists(path, ignored)) Refuse("There is no database '" + path + "'.");
    if (!std::filesystem::is_regular_file(path, ignored)) Refuse("The file '" + path + "' is not a database.");
    if (IsOnNetwork(path))
        Refuse("The database '" + path +
               "' is on another machine, where transfers could damage it. Move it to a disk of this machine.");
    const Header header = ReadHeader(path);
    if (std::string_view(reinterpret_cast<const char*>(header.data()), signature.size()) != signature)
        Refuse("The file '" + path + "' is not a database.");
    return header;
}

void CheckHeader(const std::string& path) {
    const Header header = CheckIsDatabase(path);
    if (NumberAt(header, applicationOffset) != DatabaseApplicationId)
        Refuse("The database '" + path + "' belongs to another program.");
    if (NumberAt(header, versionOffset) > SchemaVersion) RefuseNewer(path);
}

void CheckVersion(SQLite::Database& database, const std::string& path) {
    const int version = database.execAndGet("PRAGMA user_version").getInt();
    if (version > SchemaVersion) RefuseNewer(path);
    if (version < 1) Refuse("The database '" + path + "' was not completed. Create it again.");
}

void CheckTables(SQLite::Database& database, const std::string& path) {
    for (const char* table : requiredTables)
        if (!database.tableExists(table)) RefuseDamaged(path);
}

void CheckPages(SQLite::Database& database, const std::string& path) {
    if (!IsCheckedWhenOpened(path)) return;
    if (!IsFileSound(database)) RefuseDamaged(path);
}

// Also of a view.
bool HasColumn(SQLite::Database& database, const char* table, const char* column) {
    SQLite::Statement find(database, "SELECT 1 FROM pragma_table_xinfo(?) WHERE name = ? COLLATE NOCASE");
    find.bind(1, table);
    find.bind(2, column);
    return find.executeStep();
}

bool HasTable(SQLite::Database& database, const char* table) {
    SQLite::Statement find(database, "SELECT 1 FROM pragma_table_xinfo(?)");
    find.bind(1, table);
    return find.executeStep();
}

void CheckHostTables(SQLite::Database& database, const std::string& path) {
    const auto refuse = [&](const std::string& what) {
        Refuse("The database '" + path + "' has no " + what + ", which this program needs.");
    };
    for (const HostTable& table : HostTables()) {
        if (!HasTable(database, table.name)) refuse("table or view '" + std::string(table.name) + "'");
        for (const char* column : table.columns)
            if (!HasColumn(database, table.name, column))
                refuse("column '" + std::string(column) + "' in '" + table.name + "'");
    }
}

// Otherwise closing the last connection would run a checkpoint, which writes to the file.
void AllowCheckpoint(SQLite::Database& database, bool allowed) {
    sqlite3_db_config(database.getHandle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, allowed ? 0 : 1, nullptr);
}

// Leaves the file as it is unless the check allows a checkpoint.
template <typename Check>
void CheckContents(const std::string& path, std::chrono::milliseconds lockLimit, Check check) {
    if (HasLogOfAnotherFile(path)) RefuseLog(path);
    try {
        SQLite::Database database(path, SQLite::OPEN_READWRITE);
        WaitForLocks(database.getHandle(), lockLimit);
        AllowCheckpoint(database, false);
        if (sqlite3_db_readonly(database.getHandle(), "main") == 1) RaiseOpenFailure(path, SQLITE_READONLY, "");
        check(database);
    } catch (const SQLite::Exception& failure) {
        if (failure.getErrorCode() == SQLITE_CORRUPT || failure.getErrorCode() == SQLITE_NOTADB) RefuseDamaged(path);
        RaiseOpenFailure(path, failure.getExtendedErrorCode(), failure.what());
    }
}

}  // namespace

bool IsCheckedWhenOpened(const std::string& path) {
    std::error_code failure;
    const uintmax_t size = std::filesystem::file_size(path, failure);
    return !failure && size <= wholeCheckLimit;
}

void CheckSqliteFile(const std::string& path, std::chrono::milliseconds lockLimit) {
    CheckHeader(path);
    CheckContents(path, lockLimit, [&](SQLite::Database& database) {
        CheckVersion(database, path);
        CheckTables(database, path);
        CheckPages(database, path);
        AllowCheckpoint(database, true);
        MakePrivate(path);
    });
}

void CheckHostFile(const std::string& path, std::chrono::milliseconds lockLimit) {
    CheckIsDatabase(path);
    CheckContents(path, lockLimit, [&](SQLite::Database& database) { CheckHostTables(database, path); });
}

}  // namespace quellbrook
