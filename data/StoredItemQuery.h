#pragma once

#include "data/StorageLocation.h"
#include "data/Types.h"
#include "sql/Row.h"
#include "sql/query/QueryFactory.h"

#include <cstdint>
#include <functional>
#include <string>

namespace quellbrook {

// What a search for stored items asks for. The number and the description are patterns in which "*" stands for any run
// of characters, but for the two kinds of primary key.
struct StoredItemCriteria {
    StorageLocationRef location;  // itself, without its sublocations
    int32_t itemType = 0;         // a StoredItemTypes value; 0 for any
    int32_t numberType = 0;       // a NumberSearchTypes value; 0 for none
    std::string number;
    std::string description;
    bool untracked = false;  // items without a place and without custody; otherwise items with a place
    bool tagged = false;

    // Neither place, description, number nor kind: such a search finds nothing and is not put to the database.
    bool IsEmpty() const;
};

// The one query that brings property and vehicles under one list of columns: ItemType, ID, CategoryNo, CurrTrackSeq,
// StorageLocNo, DisplayID, Description, Quantity, Value, Make, Model, Serial, RecordTypeInd. Which kinds it holds
// follows from the user's rights. A number of one kind makes that kind the item type of the criteria. Error 13 or 6 for
// a primary key that is no number.
enum class KeyForm { Written, Place };  // Place: the one key stands as the place of a QueryTemplate
QuerySource ComposeQuery(StoredItemCriteria& criteria, KeyForm keys = KeyForm::Written);

// The text of that query. Where the criteria name a single key - a location's or an item's, or a number without "*" -,
// it comes from a template that is planned once for each shape of criteria, set of rights and engine.
std::string StoredItemQueryText(StoredItemCriteria& criteria);

// The rows of the query in the database's order. The criteria's item type may change, as ComposeQuery says.
RowList QueryStoredItems(StoredItemCriteria& criteria);
void ForEachStoredItem(StoredItemCriteria& criteria, const std::function<void(const Row&)>& receiver);
// How many rows it has, counted by the database.
int32_t CountStoredItems(StoredItemCriteria& criteria);

}  // namespace quellbrook
