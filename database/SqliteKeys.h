#pragma once

#include "sql/Dialect.h"

#include <vector>

struct sqlite3;

namespace quellbrook {

// The primary keys and unique indexes of the database's tables, and the key of the view of the vehicles where that is
// the reference schema's.
std::vector<RowKey> ReadKeys(sqlite3* database);

}  // namespace quellbrook
