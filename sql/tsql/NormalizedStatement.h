#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quellbrook::sql {

// A changing statement with parameters instead of literals: whole numbers and texts become ?1, ?2 and so on, so that
// statements which differ only in values have the same text. Literals stay after LIKE and ESCAPE, which decide the
// plan, and after a sign.
struct NormalizedStatement {
    std::string text;
    std::vector<std::variant<int64_t, std::string_view>> values;  // of ?1, ?2, ...; views the source or `unquoted`
    std::list<std::string> unquoted;
};

// Returns false, with an unusable result, unless the text begins with INSERT, UPDATE, DELETE or DECLARE, has no
// parameters of its own, and creates and drops no table. Only splits the text into tokens, so this is fast; it throws
// where a token is refused. The source must outlive the result.
bool NormalizeStatement(std::string_view source, NormalizedStatement& result);

}  // namespace quellbrook::sql
