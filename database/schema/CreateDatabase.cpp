#include "base/Error.h"
#include "database/schema/SqliteSchema.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <filesystem>

namespace quellbrook {

namespace {

const char* const source = "CreateDatabase";

void RunScripts(SQLite::Database& database) {
    database.exec("PRAGMA journal_mode = WAL");
    database.exec("PRAGMA foreign_keys = ON");
    SQLite::Transaction transaction(database, SQLite::TransactionBehavior::IMMEDIATE);
    database.exec("PRAGMA application_id = " + std::to_string(DatabaseApplicationId));
    for (const SchemaScript& script : SqliteSchemaScripts()) {
        for (const std::string& statement : script.statements) database.exec(statement);
        database.exec("PRAGMA user_version = " + std::to_string(script.version));
    }
    transaction.commit();
}

void RemoveFile(const std::string& path) {
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(path + suffix, ignored);
}

}  // namespace

void CreateDatabase(const std::string& path) {
    if (std::filesystem::exists(path))
        Raise(ErrorNumber::General, source, "The database can't be created: the file '" + path + "' already exists.");
    const std::string unfinished = path + ".unfinished";
    RemoveFile(unfinished);
    try {
        {
            SQLite::Database database(unfinished, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            RunScripts(database);
        }
        std::filesystem::rename(unfinished, path);
    } catch (const std::exception& failure) {
        RemoveFile(unfinished);
        Raise(ErrorNumber::General, source,
              "The database '" + path + "' can't be created: " + std::string(failure.what()) + ".");
    }
}

}  // namespace quellbrook
