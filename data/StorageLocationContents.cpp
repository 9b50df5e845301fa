#include "base/Error.h"
#include "data/StoredItemSearch.h"

namespace quellbrook {

namespace {

void RequireStanding(const StorageLocation& location, const char* source) {
    if (location.IsDeleted()) Raise(ErrorNumber::General, source, "The current location has been deleted.");
}

}  // namespace

std::shared_ptr<StoredItemList> StorageLocation::StoredItems() {
    RequireStanding(*this, "StorageLocation.StoredItems");
    return StoredItemSearch().InLocation(shared_from_this()).Execute();
}

int32_t StorageLocation::StoredItemsCount() {
    RequireStanding(*this, "StorageLocation.StoredItemsCount");
    return StoredItemSearch().InLocation(shared_from_this()).Count();
}

}  // namespace quellbrook
