#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace quellbrook {

// The temporary tables of one connection. Each change of the temporary schema makes SQLite prepare all statements
// again, which takes half the time of a small batch. Inside a transaction, a dropped table is therefore only emptied
// and kept, and the next CREATE with the same text reuses it. Until then RequireInUse treats it as dropped.
class TemporaryTables {
public:
    // The database must outlive this object.
    explicit TemporaryTables(sqlite3* database) : m_database(database) {}

    // Execute a CREATE or DROP of one temporary table. Names are in double quotes and case-insensitive.
    void Create(const std::string& statement, const std::string& name);
    void Drop(const std::string& statement, const std::string& name);
    // Call it before a statement that uses these tables. Raises the error of SQLite for a table that does not exist.
    void RequireInUse(const std::vector<std::string>& names, std::string_view source) const;

    // Call these with the connection's transaction. Rollback restores the state at Begin.
    void Begin() { m_beforeBatch = m_tables; }
    void Rollback() noexcept { m_tables.swap(m_beforeBatch); }

    // Drops the tables that are in use, but not those kept for reuse.
    void DropTablesInUse();

private:
    struct Table {
        std::string creation;
        bool isInUse;  // otherwise empty and kept for reuse
    };
    using Tables = std::map<std::string, Table>;  // by quoted, folded name

    void Run(const std::string& statement) const;
    bool TryReuse(const std::string& statement, const std::string& key);
    void DropIfKept(const std::string& key);

    sqlite3* m_database;
    Tables m_tables;
    Tables m_beforeBatch;
};

}  // namespace quellbrook
