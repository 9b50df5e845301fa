#pragma once

#include <cstdint>
#include <string>

namespace quellbrook {

class StoredItem;

// The content of an item's status tag.
struct ItemStatus {
    std::string caption;
    int32_t color = 0;  // 0xBBGGRR

    bool operator==(const ItemStatus&) const = default;
};

// Depends on the category of the item's location or, without a location, on whether it has a chain of custody.
ItemStatus StatusOf(StoredItem& item);

}  // namespace quellbrook
