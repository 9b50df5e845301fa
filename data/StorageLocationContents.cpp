#include "data/StoredItemSearch.h"

namespace quellbrook {

std::shared_ptr<StoredItemList> StorageLocation::StoredItems() {
    RequireNotDeleted("StorageLocation.StoredItems");
    return StoredItemSearch().InLocation(shared_from_this()).Execute();
}

int32_t StorageLocation::StoredItemsCount() {
    RequireNotDeleted("StorageLocation.StoredItemsCount");
    return StoredItemSearch().InLocation(shared_from_this()).Count();
}

}  // namespace quellbrook
