#pragma once

#include "demo/sample/Chains.h"
#include "demo/sample/Locations.h"

#include <map>
#include <vector>

namespace quellbrook::sample {

// The purposes of the sample department's locations.
struct SmallLocations {
    LocationPurposes purposes;
    std::map<int32_t, Disposition> dispositions;  // by location
    std::vector<int32_t> shelves;
    std::vector<int32_t> vaults;
    std::vector<int32_t> rows;  // of the impound lot; listed twice if a row has room for twice the vehicles
};

SmallLocations SmallLocationsOf(const LocationTree& smallTree);

}  // namespace quellbrook::sample
