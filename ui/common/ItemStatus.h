#pragma once

#include <cstdint>
#include <string>

namespace quellbrook {

class StoredItem;

// What the status tag of an item shows.
struct ItemStatus {
    std::string caption;
    int32_t color = 0;  // 0xBBGGRR

    bool operator==(const ItemStatus&) const = default;
};

// Follows from the category of the item's location. Without a location, from whether it has a chain of custody.
ItemStatus StatusOf(StoredItem& item);

}  // namespace quellbrook
