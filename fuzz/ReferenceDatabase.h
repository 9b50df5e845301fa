#pragma once

#include "database/schema/SqliteSchema.h"
#include "fuzz/Fail.h"

#include <sqlite3.h>

#include <string>

namespace quellbrook::fuzz {

// An empty department in memory, with the temporary table of a transfer.
class ReferenceDatabase {
public:
    static ReferenceDatabase& Instance() {
        static ReferenceDatabase database;
        return database;
    }

    sqlite3* Handle() const { return m_database; }

    // SQLite's error message for the statement; empty if SQLite accepts it.
    std::string FailureOf(const std::string& sql) const {
        sqlite3_stmt* statement = nullptr;
        const int code = sqlite3_prepare_v2(m_database, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
        sqlite3_finalize(statement);
        return code == SQLITE_OK ? std::string() : sqlite3_errmsg(m_database);
    }

private:
    ReferenceDatabase() {
        sqlite3_open(":memory:", &m_database);
        for (const std::string& sql : SqliteSchemaStatements()) Run(sql);
        Run("CREATE TEMPORARY TABLE \"#NextSeqNo\" (Value INT NOT NULL)");
    }

    void Run(const std::string& sql) {
        if (sqlite3_exec(m_database, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
            Fail(sqlite3_errmsg(m_database), sql);
    }

    sqlite3* m_database = nullptr;
};

}  // namespace quellbrook::fuzz
