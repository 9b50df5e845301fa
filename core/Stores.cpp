#include "core/Stores.h"

namespace quellbrook {

namespace {

StoresRecord& Record() {
    static StoresRecord record;
    return record;
}

}  // namespace

StoresRecord GetStores() {
    if (!Record().Initialized) {
        const StoresRecord made{std::make_shared<LocationStore>(), std::make_shared<CartStore>(),
                                std::make_shared<LoadingStore>(), std::make_shared<ViewStore>(), true};
        const auto dispatcher = GetDispatcher();
        dispatcher->Register(made.Locations);
        dispatcher->Register(made.Cart);
        dispatcher->Register(made.Loading);
        dispatcher->Register(made.View);
        Record() = made;
    }
    return Record();
}

void DiscardStores() { Record() = {}; }

}  // namespace quellbrook
