#pragma once

#include "sql/query/QueryFactory.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace quellbrook {

// The values that a search passes to its query when it runs.
enum SearchParameter : size_t { LocationParameter, NumberParameter };

// All other criteria of a search. Two searches of equal shape differ only in those values.
struct SearchShape {
    bool inLocation = false;
    int32_t itemType = 0;                           // a StoredItemTypes value; 0 for any
    int32_t numberType = 0;                         // a NumberSearchTypes value; 0 for none
    std::optional<std::string> numberPattern = {};  // not set: equal to NumberParameter
    std::string description = {};
    bool untracked = false;
    bool anywhere = false;  // with and without a location; untracked is ignored
    bool tagged = false;
    bool seesProperty = true;
    bool seesVehicles = true;

    auto operator<=>(const SearchShape&) const = default;
};

// The query that returns property and vehicles with the same columns: ItemType, ID, CategoryNo, CurrTrackSeq,
// StorageLocNo, DisplayID, Description, Quantity, Value, Make, Model, Serial, RecordTypeInd.
QuerySource ComposeQuery(const SearchShape& shape);

}  // namespace quellbrook
