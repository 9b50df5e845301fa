#pragma once

#include "data/StorageLocation.h"
#include "data/Types.h"
#include "sql/Row.h"

#include <cstdint>
#include <functional>
#include <string>

namespace quellbrook {

// The criteria of a search for stored items. In the description and the number, "*" matches any run of characters,
// except in a number of one of the two primary key types.
struct StoredItemCriteria {
    StorageLocationRef location;  // only this location, without its sublocations
    int32_t itemType = 0;         // a StoredItemTypes value; 0 for any
    int32_t numberType = 0;       // a NumberSearchTypes value; 0 for none
    std::string number;
    std::string description;
    bool untracked = false;  // items without a location and without custody; otherwise items with a location
    bool anywhere = false;   // items with and without a location; untracked is ignored
    bool tagged = false;

    // No location, description, number or item type: such a search finds nothing and does not query the database.
    bool IsEmpty() const;
};

// The rows of the query that ComposeQuery composes (data/StoredItemComposition.h), in the database's order, limited to
// what the user may view. A number of one kind of item sets the item type of the criteria to that kind. Error 13 or 6
// for a primary key that is not a number.
RowList QueryStoredItems(StoredItemCriteria& criteria);
void ForEachStoredItem(StoredItemCriteria& criteria, const std::function<void(const Row&)>& receiver);
// The number of rows, counted by the database.
int32_t CountStoredItems(StoredItemCriteria& criteria);

}  // namespace quellbrook
