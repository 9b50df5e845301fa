#pragma once

namespace SQLite {
class Database;
}

namespace quellbrook {

// Whether the pages and indexes of a database are sound. Rows that only break a rule of the schema do not count: they
// may be older than the rule.
bool IsFileSound(SQLite::Database& database);

}  // namespace quellbrook
