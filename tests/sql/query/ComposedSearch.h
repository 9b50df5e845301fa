#pragma once

#include "sql/query/QueryFactory.h"

#include <optional>
#include <string>

namespace quellbrook::testing {

// What a search for items asks for.
struct SearchCriteria {
    std::optional<int32_t> location = {};
    int32_t itemType = 0;    // 1 property, 2 vehicles
    int32_t numberType = 0;  // 1 incident, 2 case, 3 property ID, 4 vehicle tag, 5 property key, 6 vehicle key
    std::string number = {};
    std::string description = {};
    bool untracked = false;
    bool tagged = false;
    bool seesProperty = true;
    bool seesVehicles = true;
};

// The search for items as one query over both kinds, put together step by step: the richest query that the composer
// gets.
QuerySource ComposeSearch(const SearchCriteria& criteria);

std::string Describe(const SearchCriteria& criteria);

}  // namespace quellbrook::testing
