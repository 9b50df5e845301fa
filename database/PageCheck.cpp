#include "database/PageCheck.h"

#include <SQLiteCpp/SQLiteCpp.h>

namespace quellbrook {

bool IsFileSound(SQLite::Database& database) {
    SQLite::Statement fault(database,
                            "SELECT 1 FROM pragma_quick_check(1000000000) WHERE quick_check <> 'ok' AND quick_check "
                            "NOT LIKE 'CHECK constraint failed %' AND quick_check NOT LIKE 'NULL value in %' LIMIT 1");
    return !fault.executeStep();
}

}  // namespace quellbrook
