#pragma once

#include "component/PublicClasses.h"
#include "ui/common/ItemStatus.h"

namespace quellbrook {

// Functions that a host's page for one item needs in addition to the public classes.

// The item with this key, with or without a location. Null if there is none or the user may not view items of this
// kind. A search is no substitute: it finds only items with a location, or only those that never had one.
StoredItemRef LoadItem(StoredItemTypes type, int32_t key);

// Whether a user is logged in and has the right. Lets the host reuse the component's access rules.
bool MayViewItems(StoredItemTypes type);
bool MayViewChainOfCustody();

}  // namespace quellbrook
