#pragma once

#include "demo/sample/Chains.h"
#include "demo/sample/Locations.h"

#include <map>
#include <vector>

namespace quellbrook::sample {

// What the locations of the sample department are for.
struct SmallPlaces {
    Places purposes;
    std::map<int32_t, Disposition> dispositions;  // by the location that means it
    std::vector<int32_t> shelves;
    std::vector<int32_t> vaults;
    std::vector<int32_t> rows;  // of the impound lot; a place stands twice where it takes twice as many
};

SmallPlaces PlacesIn(const LocationTree& smallTree);

}  // namespace quellbrook::sample
