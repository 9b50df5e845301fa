#pragma once

#include <string>

namespace quellbrook {

// What query composition has to know about an engine and about the schema of its database.
struct Dialect {
    std::string concatenation = "+";   // the operator that returns NULL if a part is NULL
    std::string textPrefix;            // "N" where literals need it
    bool equalsLikeLike = false;       // "=" on a text column ignores the case of the same letters as LIKE does
    bool hasCurrentPlace = false;      // the side table CurrentPlace(StorageLocNo, ItemType, ItemNo) exists
    bool hasDescriptionIndex = false;  // the trigram index PropertyDescription on Property.Description exists
    // The schema states that an item has one row in its table and its view, and at most one current custody row.
    bool itemsAreDistinct = false;

    bool operator==(const Dialect&) const = default;
};

}  // namespace quellbrook
