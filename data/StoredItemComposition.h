#pragma once

#include "sql/query/QueryFactory.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace quellbrook {

// The values that a search passes to its query when it runs.
enum SearchParameter : size_t { LocationParameter, NumberParameter };

// Everything else that a search asks for: two searches of equal shape differ in those values alone.
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

// The one query that brings property and vehicles under one list of columns: ItemType, ID, CategoryNo, CurrTrackSeq,
// StorageLocNo, DisplayID, Description, Quantity, Value, Make, Model, Serial, RecordTypeInd.
QuerySource ComposeQuery(const SearchShape& shape);

}  // namespace quellbrook
