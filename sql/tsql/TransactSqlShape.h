#pragma once

#include <cstdint>
#include <list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quellbrook::sql {

// A changing statement text without its values: literals that a parameter can stand for are replaced by the markers ?1,
// ?2 and so on, so that texts which differ in values alone have one shape. The patterns of LIKE stay, since they decide
// the plan, and so do literals that are names.
struct StatementShape {
    std::string text;
    std::vector<std::variant<int64_t, std::string_view>> values;  // of ?1, ?2, ...; texts view source or `unquoted`
    std::list<std::string> unquoted;
};

// False, and the shape of no use, for a text that is better taken as it stands: one that is no INSERT, UPDATE, DELETE
// or DECLARE, defines tables, orders rows, or holds anything out of the way, among it all that the subset refuses as a
// token. Each statement of a batch passes here, so this looks at every character once. The source must outlive the
// shape.
bool FindShape(std::string_view source, StatementShape& shape);

}  // namespace quellbrook::sql
