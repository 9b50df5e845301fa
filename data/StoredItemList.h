#pragma once

#include "base/ObjectList.h"
#include "data/StoredItem.h"

namespace quellbrook {

// An ordered list of stored items with positions from 0: a search result or the batch. At and ItemAt return the same
// object on every call while the caller keeps it alive.
class StoredItemList : public ObjectList {
public:
    virtual StoredItemRef ItemAt(int32_t index) const = 0;  // Error 9 outside the list
    ObjectRef At(int32_t index) const override { return ItemAt(index); }
};

}  // namespace quellbrook
