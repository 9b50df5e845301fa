#pragma once

#include "data/StoredItemList.h"
#include "data/StoredItemQuery.h"

#include <string>

namespace quellbrook {

// Finds items; every StoredItem comes from here. The first six operations record a criterion and return the search. In
// patterns "*" matches any run of characters; the search adds none itself. A search without a location, description,
// number and type finds nothing and does not query the database. Do not reuse a search for different criteria.
// Results are limited to the kinds that the session's user may view, but a user who may view neither still gets
// vehicles, and without a user nothing is checked: a host asks for the rights before it searches.
class StoredItemSearch {
public:
    StoredItemSearch& InLocation(StorageLocationRef location);
    StoredItemSearch& OfType(StoredItemTypes itemType);
    StoredItemSearch& WithNumber(NumberSearchTypes numberType, const std::string& number);
    StoredItemSearch& WithDescription(const std::string& description);
    StoredItemSearch& Untracked();
    StoredItemSearch& Tagged();

    // The items in the database's order. Their rows are packed; ItemAt creates the item.
    std::shared_ptr<StoredItemList> Execute();
    RowList ExecuteRaw();
    int32_t Count();

private:
    StoredItemCriteria m_criteria;
};

}  // namespace quellbrook
