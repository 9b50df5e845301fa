#include "core/LocationStore.h"

#include "core/ActionTypes.h"

namespace quellbrook {

LocationStore::LocationStore() {
    HostLocationData().GetDocument();
    m_selected = *GetStorageLocationStatic().Roots().begin();
}

StorageLocationRef LocationStore::GetLocation(int32_t id) const { return GetStorageLocationStatic().FindByID(id); }

const KeyedCollection<StorageLocationRef>& LocationStore::GetRootLocations() const {
    return GetStorageLocationStatic().Roots();
}

StorageLocationRef LocationStore::GetRootLocation(StorageLocationTypes type) const {
    return GetStorageLocationStatic().GetRoot(type);
}

void LocationStore::Handle(const Action& action) {
    if (action.ActionType != ActionTypes::LOCATION_CREATE_SUCCESS) return;
    m_selected = ToObject<StorageLocation>(action.Payload);
    OnChange();
}

}  // namespace quellbrook
