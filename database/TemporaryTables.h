#pragma once

#include <map>
#include <string>

struct sqlite3;

namespace quellbrook {

// The temporary tables of one connection. Each change of the temporary schema makes SQLite prepare all statements
// again, which takes half the time of a small batch. Inside a transaction, a dropped table is therefore only emptied
// and kept, and the next CREATE with the same text reuses it.
class TemporaryTables {
public:
    // The database must outlive this object.
    explicit TemporaryTables(sqlite3* database) : m_database(database) {}

    // Execute a CREATE or DROP of one temporary table, with the name in double quotes.
    void Create(const std::string& statement);
    void Drop(const std::string& statement);

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
    using Tables = std::map<std::string, Table>;  // by quoted name

    void Run(const std::string& statement) const;
    bool TryReuse(const std::string& statement, const std::string& name);
    void DropIfSetAside(const std::string& name);

    sqlite3* m_database;
    Tables m_tables;
    Tables m_beforeBatch;
};

}  // namespace quellbrook
