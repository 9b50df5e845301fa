#pragma once

#include "base/Object.h"
#include "data/StorageLocationStatic.h"

namespace quellbrook {

// The module's global object. The host uses it without creating it.
class Singletons {
public:
    // The access gate: returns whether the user may enter. Shows a refused user the reason, unless the user left the
    // wizard. Drops the dispatcher and the stores of an earlier run. Call SetDialogParent first.
    bool InitializeQuellbrook();
    StorageLocationStatic& StorageLocation();
    // A host passes its window to the function in component/Quellbrook.h.
    void SetDialogParent(ObjectRef parent);
    // Drops the stores, the dispatcher and the dialog parent. Shutdown calls it.
    void Reset();
};

Singletons& GetSingletons();

}  // namespace quellbrook
