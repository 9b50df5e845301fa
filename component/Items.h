#pragma once

#include "component/PublicClasses.h"
#include "ui/common/ItemStatus.h"

namespace quellbrook {

// What a page of the host that shows one item needs beyond the public classes.

// The item with this key, wherever it is. Null if there is none, and for a user who may not view items of this kind. A
// search does not do: it finds only items that have a location, or only those that never had one.
StoredItemRef LoadItem(StoredItemTypes type, int32_t key);

// Whether somebody is logged in and has the right, so that the host does not repeat the rules of access.
bool MayViewItems(StoredItemTypes type);
bool MayViewChainOfCustody();

}  // namespace quellbrook
