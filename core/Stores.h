#pragma once

#include "core/CartStore.h"
#include "core/LoadingStore.h"
#include "core/LocationStore.h"
#include "core/ViewStore.h"

namespace quellbrook {

struct StoresRecord {
    std::shared_ptr<LocationStore> Locations;
    std::shared_ptr<CartStore> Cart;
    std::shared_ptr<LoadingStore> Loading;
    std::shared_ptr<ViewStore> View;
    bool Initialized = false;
};

// A copy of the stores record. The first call after the gate creates the four stores in the order of the fields and
// registers them with the dispatcher.
StoresRecord GetStores();
// The next GetStores creates new stores. Old references stay valid, but their stores no longer receive actions.
void DiscardStores();

}  // namespace quellbrook
