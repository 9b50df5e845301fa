#pragma once

#include "sql/Dialect.h"

namespace quellbrook::testing {

// SQLite with a schema that has neither side tables nor stated facts.
inline Dialect Sqlite() {
    Dialect dialect;
    dialect.concatenation = "||";
    return dialect;
}

inline Dialect WithSideTables() {
    Dialect dialect = Sqlite();
    dialect.hasCurrentPlace = dialect.hasDescriptionIndex = true;
    return dialect;
}

}  // namespace quellbrook::testing
