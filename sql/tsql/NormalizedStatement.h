#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quellbrook::sql {

// A data-changing statement with parameters instead of literals: whole numbers and texts become ?1, ?2 and so on, so
// statements that differ only in values have the same text. Literals stay after LIKE and ESCAPE, because they affect
// the plan, and after a sign.
struct NormalizedStatement {
    std::string text;
    std::vector<std::variant<int64_t, std::string_view>> values;  // of ?1, ?2, ...; views the source or `unquoted`
    std::list<std::string> unquoted;
};

// Returns false, with an unusable result, unless the text begins with INSERT, UPDATE, DELETE or DECLARE, has no
// parameters, and does not create or drop a table. Fast, since it only splits the text into tokens; throws for an
// invalid token. The source must outlive the result.
bool NormalizeStatement(std::string_view source, NormalizedStatement& result);

}  // namespace quellbrook::sql
