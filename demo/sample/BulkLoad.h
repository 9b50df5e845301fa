#pragma once

#include "demo/sample/Progress.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <string>
#include <vector>

namespace quellbrook::sample {

// A database of our schema while it is filled, in one transaction.
//
// What it has until it is finished is not safe against a crash. It carries the mark of another program meanwhile, so
// that one whose filling was interrupted is refused wherever it is found.
//
// In force all the time: the guards of locations and of custody rows, keys and unique constraints. Set aside until
// Finish, since they cost most: the indexes, the triggers behind CurrentPlace and PropertyDescription, and foreign
// keys. Finish fills both tables at once and then proves what has been set aside.
class BulkLoad {
public:
    explicit BulkLoad(const std::string& path);

    SQLite::Database& Database() { return m_database; }

    // Fills what the triggers would have filled, puts indexes and triggers back, proves, commits. Error 5 with a
    // sentence when a row refers to what is not there, or an item is not found where its current custody row says.
    void Finish(const SampleProgress& progress);

private:
    struct Aside {
        std::string type;
        std::string name;
        std::string sql;
    };

    void SetAside();
    void ProveForeignKeys();
    void ProvePlaces();

    SQLite::Database m_database;
    std::vector<Aside> m_aside;
};

}  // namespace quellbrook::sample
