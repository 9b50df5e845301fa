#pragma once

// The component's global object and its public classes, as a host reads them: GetSingletons().StorageLocation() leads
// to the storage locations, StoredItemSearch and LoadItem (component/Items.h) to the items, and a StoredItem to its
// incidents, cases and chain of custody. Members under "For the module's own use" are not part of the contract.
#include "core/Singletons.h"
#include "data/CustodyRecords.h"
#include "data/StorageLocation.h"
#include "data/StorageLocationStatic.h"
#include "data/StoredItem.h"
#include "data/StoredItemSearch.h"
