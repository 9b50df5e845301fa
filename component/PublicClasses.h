#pragma once

// The component's global object and its public classes for a host. GetSingletons().StorageLocation() gives access to
// the storage locations, StoredItemSearch and LoadItem (component/Items.h) to the items, and a StoredItem to its
// incidents, cases and chain of custody. Members under "Internal to the module" are not part of the contract.
#include "core/Singletons.h"
#include "data/CustodyRecords.h"
#include "data/StorageLocation.h"
#include "data/StorageLocationStatic.h"
#include "data/StoredItem.h"
#include "data/StoredItemSearch.h"
