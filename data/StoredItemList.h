#pragma once

#include "base/ObjectList.h"
#include "data/StoredItem.h"

namespace quellbrook {

// An ordered list of stored items, read by position from 0. Search results and the batch are of this kind; At and
// ItemAt give the same object at every call, as long as somebody holds it.
class StoredItemList : public ObjectList {
public:
    virtual StoredItemRef ItemAt(int32_t index) const = 0;  // Error 9 outside the list
    ObjectRef At(int32_t index) const override { return ItemAt(index); }
};

}  // namespace quellbrook
