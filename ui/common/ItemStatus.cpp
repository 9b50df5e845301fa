#include "ui/common/ItemStatus.h"

#include "data/StoredItem.h"

namespace quellbrook {

ItemStatus StatusOf(StoredItem& item) {
    const StorageLocationRef location = item.Location();
    if (!location)
        return item.TrackingRecords().empty() ? ItemStatus{"Not in Storage", 0x0000FF}
                                              : ItemStatus{"Disposed", 0x808080};
    switch (location->LocationType()) {
    case StorageLocationTypes::Unassigned: return {"In Uncategorized Location", 0x0080FF};
    case StorageLocationTypes::Internal: return {"In Storage", 0x87AD24};
    case StorageLocationTypes::External: return {"Signed Out", 0x0000C0};
    case StorageLocationTypes::DisposalLocation: return {"Disposed", 0x808080};
    case StorageLocationTypes::Other: return {"Needs Review", 0x0080FF};
    default: return {"", 0};
    }
}

}  // namespace quellbrook
