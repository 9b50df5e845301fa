#pragma once

#include "sql/query/QueryNodes.h"

#include <string_view>
#include <vector>

namespace quellbrook::sql {

// The result columns in the raw text of a select list: "1 AS Quantity, NULL AS Value" is two columns, "*" is the star.
// An entry without a plain name after AS is kept unchanged and unnamed, unless it is a plain column name.
std::vector<ResultColumn> ParseSelectText(std::string_view text);

}  // namespace quellbrook::sql
