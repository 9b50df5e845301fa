#pragma once

#include "sql/query/QueryNodes.h"

#include <string_view>
#include <vector>

namespace quellbrook::sql {

// The result columns that raw text of a select list stands for: "1 AS Quantity, NULL AS Value" gives two, "*" the star.
// An entry without a plain name behind AS keeps its text whole and has no name, but for a plain column name.
std::vector<ResultColumn> ParseSelectText(std::string_view text);

}  // namespace quellbrook::sql
