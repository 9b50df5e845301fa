#pragma once

#include "database/SqliteStatement.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quellbrook {

// The prepared statements of one connection: its latest queries by their text, and the data-changing statements of its
// latest batches by their normalized text.
class StatementCache {
public:
    // The database must outlive this object.
    explicit StatementCache(sqlite3* database) : m_database(database) {}

    // A prepared query, removed from the cache. Return it with KeepQuery after a successful run.
    std::unique_ptr<SqliteStatement> TakeQuery(const std::string& text);
    void KeepQuery(const std::string& text, std::unique_ptr<SqliteStatement> query);

    // The statements of a normalized text; empty if it cannot be prepared.
    std::vector<SqliteStatement>& ForBatch(const std::string& normalizedText);
    // Limits the number of statements that are kept for batches.
    void EndBatch() noexcept;

private:
    std::unique_ptr<SqliteStatement> PrepareQuery(const std::string& text) const;
    std::vector<SqliteStatement> PrepareForBatch(const std::string& normalizedText) const;

    sqlite3* m_database;
    std::vector<std::pair<std::string, std::unique_ptr<SqliteStatement>>> m_queries;  // the latest last
    std::unordered_map<std::string, std::vector<SqliteStatement>> m_ofBatches;
};

}  // namespace quellbrook
