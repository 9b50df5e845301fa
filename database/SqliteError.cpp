#include "database/SqliteError.h"

#include "base/Error.h"

#include <filesystem>

#include <sqlite3.h>

namespace quellbrook {

namespace {

int32_t NumberFor(int code) {
    switch (code) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
    case SQLITE_CONSTRAINT_FOREIGNKEY: return ErrorNumber::IntegrityViolation;
    default: return code;
    }
}

}  // namespace

void RaiseSqliteError(sqlite3* database, std::string_view source) {
    Raise(NumberFor(sqlite3_extended_errcode(database)), source, sqlite3_errmsg(database));
}

void RaiseOpenFailure(const std::string& path, int code, std::string_view words) {
    std::string sentence;
    switch (code & 0xFF) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: sentence = "The database '" + path + "' is damaged. Restore it from a backup."; break;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        sentence = "The database '" + path + "' is locked by another program. Close it there and try again.";
        break;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
        if (std::error_code ignored; !std::filesystem::exists(path, ignored)) {
            sentence = "There is no database '" + path + "'.";
            break;
        }
        sentence = "The database '" + path + "' or its folder is write-protected.";
        break;
    default: sentence = "The database '" + path + "' can't be opened: " + std::string(words) + ".";
    }
    Raise(ErrorNumber::General, "SqliteEngine.Open", sentence);
}

bool IsUsableAfterLastCall(sqlite3* database) {
    switch (sqlite3_errcode(database)) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_NOMEM:
    case SQLITE_MISUSE: return false;
    default: return true;
    }
}

}  // namespace quellbrook
