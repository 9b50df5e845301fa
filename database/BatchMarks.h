#pragma once

#include "database/SqliteStatement.h"

#include <optional>
#include <string>

struct sqlite3;

namespace quellbrook {

// The marks in the table BatchMark: each batch writes one, so that a commit that reported a failure can be checked. In
// a database without this table, it cannot be.
class BatchMarks {
public:
    // The database must outlive this object.
    explicit BatchMarks(sqlite3* database) : m_database(database) {}

    // Writes a mark in the open transaction and returns its name. Deletes marks that are too old to be asked for.
    // Without the table, writes nothing; the name is not empty.
    std::string Write();
    // Whether the mark's transaction was committed. Raises error 5 if the mark or the table is gone.
    bool WasCommitted(const std::string& mark) const;

private:
    bool HasTable() const;

    sqlite3* m_database;
    std::optional<SqliteStatement> m_insert;
    std::optional<SqliteStatement> m_delete;
};

}  // namespace quellbrook
