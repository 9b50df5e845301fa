#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace quellbrook::testing {

// The criteria of a search and the rights of its user.
struct AskedSearch {
    std::optional<int32_t> location = {};  // 0 for a root
    int32_t itemType = 0;                  // 1 property, 2 vehicles
    int32_t numberType = 0;                // 1 incident, 2 case, 3 property ID, 4 tag, 5 property key, 6 vehicle key
    std::string number = {};
    std::string description = {};
    bool untracked = false;
    bool tagged = false;
    bool seesProperty = true;
    bool seesVehicles = true;
};

// The search as one unplanned statement: both kinds of item with all their joins. The search must find its distinct
// rows.
std::string LiteralSearchText(const AskedSearch& asked);

std::string Describe(const AskedSearch& asked);

}  // namespace quellbrook::testing
