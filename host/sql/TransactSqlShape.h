#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quellbrook::sql {

// A changing statement text without its values: literals that a parameter can stand for are replaced by the markers ?1,
// ?2 and so on, so that texts which differ in values alone have one shape. The patterns of LIKE stay, since they decide
// the plan, and so do numbers other than whole ones.
struct StatementShape {
    std::string text;
    std::vector<std::variant<int64_t, std::string>> values;  // of ?1, ?2, ...
};

// False, and the shape of no use, for a text that is better taken as it stands: one that is no INSERT, UPDATE, DELETE or
// DECLARE, defines tables, has markers of its own, or orders rows. Error 5 for a text that is not in the subset.
bool FindShape(std::string_view text, StatementShape& shape);

}  // namespace quellbrook::sql
