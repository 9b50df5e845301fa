#pragma once

#include "sql/tsql/TransactSqlTokens.h"

#include <cstddef>

namespace quellbrook::sql {

// A word that one of the engines, or Transact-SQL, keeps for itself, so that it can be a name only within quotes.
bool IsReserved(const Token& token);

// A function that means the same on all engines.
struct SqlFunction {
    std::string_view name;
    size_t fewestArguments;
    size_t mostArguments;
    bool isAggregate = false;
};
const SqlFunction* FindFunction(const Token& token);  // null for any other

}  // namespace quellbrook::sql
