#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quellbrook::sql {

using QueryKey = std::variant<int64_t, std::string>;

// The text of a SELECT without its keys: whole numbers and texts right behind "=" are replaced by the markers ?1, ?2
// and so on, so that queries which differ in keys alone have one shape. Other literals stay, since they may decide the
// plan or the columns, or whether the subset takes the text at all ("+" beside a text).
struct QueryShape {
    std::string text;
    std::vector<QueryKey> keys;  // of ?1, ?2, ...
};

// A text that has markers of its own, or is no SELECT, is its own shape. Error 5 for one that the subset refuses.
QueryShape FindQueryShape(std::string_view text);

}  // namespace quellbrook::sql
