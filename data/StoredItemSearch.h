#pragma once

#include "data/StoredItemList.h"
#include "data/StoredItemQuery.h"

#include <string>

namespace quellbrook {

// The one way in which items are found. The first six operations record a criterion and return the search. Patterns
// know "*"; the search adds none of its own. A search without location, description, number and type finds nothing and
// does not ask the database. Not to be used twice with different criteria.
class StoredItemSearch {
public:
    StoredItemSearch& InLocation(StorageLocationRef location);
    StoredItemSearch& OfType(StoredItemTypes itemType);
    StoredItemSearch& WithNumber(NumberSearchTypes numberType, const std::string& number);
    StoredItemSearch& WithDescription(const std::string& description);
    StoredItemSearch& Untracked();
    StoredItemSearch& Tagged();

    // The items in the database's order. Their rows are kept packed; an item is made when it is asked for.
    std::shared_ptr<StoredItemList> Execute();
    RowList ExecuteRaw();
    int32_t Count();

private:
    StoredItemCriteria m_criteria;
};

}  // namespace quellbrook
