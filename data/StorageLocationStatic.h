#pragma once

#include "base/KeyedCollection.h"
#include "data/StorageLocation.h"

namespace quellbrook {

// Shared access to the storage locations. Owns the five roots.
class StorageLocationStatic : public Object {
public:
    StorageLocationStatic();
    std::string TypeName() const override { return "StorageLocationStatic"; }

    // Error 5 "Unknown root." for any other value.
    StorageLocationRef GetRoot(StorageLocationTypes locationType) const;
    // Sign-in, sign-out, final disposition, other, uncategorized; keyed by the decimal text of the type.
    const KeyedCollection<StorageLocationRef>& Roots() const { return m_roots; }
    // A new object for the row, or null.
    StorageLocationRef FindByID(int32_t id) const;
    // Reloads the location document of the whole module.
    TaggedValue Refresh();

private:
    KeyedCollection<StorageLocationRef> m_roots;
};

StorageLocationStatic& GetStorageLocationStatic();

}  // namespace quellbrook
