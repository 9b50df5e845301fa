#pragma once

#include "base/Event.h"
#include "core/Dispatcher.h"
#include "data/StorageLocationStatic.h"

namespace quellbrook {

// Gives access to the storage locations and remembers the location to select after a change. The constructor loads the
// location document.
class LocationStore : public DispatcherCallback {
public:
    LocationStore();

    StorageLocationRef GetLocation(int32_t id) const;
    const KeyedCollection<StorageLocationRef>& GetRootLocations() const;
    StorageLocationRef GetRootLocation(StorageLocationTypes type) const;
    StorageLocationRef GetSelectedLocation() const { return m_selected; }

    void Handle(const Action& action) override;
    std::string CallbackTypeName() const override { return "LocationStore"; }

    Event<> OnChange;

private:
    StorageLocationRef m_selected;
};

}  // namespace quellbrook
