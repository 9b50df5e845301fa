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

// A copy of the stores record. The first call after the gate builds the four stores, in the order of the fields, and
// registers each with the dispatcher.
StoresRecord GetStores();
// The next GetStores builds new stores. Earlier references keep the old ones alive, which no longer receive actions.
void DiscardStores();

}  // namespace quellbrook
