#include "database/SqliteError.h"

#include "base/Error.h"
#include "database/schema/SchemaTriggers.h"

#include <filesystem>

#include <sqlite3.h>

namespace quellbrook {

namespace {

int32_t NumberFor(int code, std::string_view words) {
    switch (code) {
    case SQLITE_CONSTRAINT_TRIGGER: return words == CustodyRowExistsText ? ErrorNumber::IntegrityViolation : code;
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
    case SQLITE_CONSTRAINT_FOREIGNKEY: return ErrorNumber::IntegrityViolation;
    default: return code;
    }
}

const char* SentenceForConstraint(int code) {
    switch (code) {
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return "A record that belongs to this change has been deleted, or is still in use. Refresh and try again.";
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID: return "A record with this name or number already exists. Refresh and try again.";
    default: return "One of the values is not allowed here. Check the values and try again.";
    }
}

const char* SentenceFor(int code, std::string_view words) {
    switch (code & 0xFF) {
    case SQLITE_CONSTRAINT: return SentenceForConstraint(code);
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return "Another program is writing to the database and did not finish in time. Try again.";
    case SQLITE_FULL: return "The disk of the database is full. Free some space and try again.";
    case SQLITE_IOERR:
        return "The disk of the database reports an error. Check your last change before you go on, and have the disk "
               "checked.";
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB: return "The database is damaged. Stop working with it and have it restored from a backup.";
    case SQLITE_READONLY:
    case SQLITE_PERM: return "The database or its folder is write-protected. Have its permissions checked.";
    case SQLITE_CANTOPEN: return "The database can't be reached. Check the connection to its folder and try again.";
    case SQLITE_NOMEM: return "There is not enough memory. Close other programs and try again.";
    case SQLITE_TOOBIG: return "A text is too long. Shorten it and try again.";
    case SQLITE_ERROR:
        if (words.starts_with("no such") || words.find(" has no column ") != std::string_view::npos)
            return "The database does not have the structure that this program expects. Have it checked.";
        break;
    default: break;
    }
    return "The database could not complete this. Change what you entered, or try again.";
}

}  // namespace

void RaiseSqliteError(int code, std::string_view words, std::string_view source) {
    std::string description(words);
    if (code != SQLITE_CONSTRAINT_TRIGGER) description = SentenceFor(code, words) + (" (" + description + ")");
    Raise(NumberFor(code, words), source, description);
}

void RaiseSqliteError(sqlite3* database, std::string_view source) {
    RaiseSqliteError(sqlite3_extended_errcode(database), sqlite3_errmsg(database), source);
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
        sentence = "The database '" + path +
                   "' or its folder is write-protected. Check the permissions of the file and its folder.";
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
