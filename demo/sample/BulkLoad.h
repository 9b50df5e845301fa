#pragma once

#include "demo/sample/Progress.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <vector>

namespace quellbrook::sample {

// Fills a database of our schema in one transaction.
//
// The file is not crash-safe until Finish. Until then, its header identifies another program, so an interrupted load is
// not accepted as a database.
//
// The guards of locations and custody rows, keys and unique constraints are always active. Indexes, foreign keys and
// the triggers of CurrentPlace and PropertyDescription are expensive, so they are off until Finish, which fills both
// tables at once and checks everything.
class BulkLoad {
public:
    explicit BulkLoad(const std::string& path);

    SQLite::Database& Database() { return m_database; }

    // Fills the tables that the triggers maintain, restores indexes and triggers, checks and commits. Error 5 with a
    // sentence if a row refers to a missing one, as an item does whose current custody row is missing.
    void Finish(const SampleProgress& progress);

private:
    struct Aside {
        std::string type;
        std::string name;
        std::string sql;
    };

    void SetAside();
    void CheckForeignKeys();
    void CheckSideTables();

    SQLite::Database m_database;
    std::vector<Aside> m_aside;
};

}  // namespace quellbrook::sample
