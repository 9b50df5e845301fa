#pragma once

#include <string>

namespace quellbrook {

// The properties of an engine and of its database's schema that affect the composed queries.
struct Dialect {
    std::string concatenation = "+";   // the operator that returns NULL if a part is NULL
    std::string textPrefix;            // "N" where literals need it
    bool equalsLikeLike = false;       // "=" on a text column ignores case for the same letters as LIKE
    bool hasCurrentPlace = false;      // the side table CurrentPlace(StorageLocNo, ItemType, ItemNo) exists
    bool hasDescriptionIndex = false;  // the trigram index PropertyDescription on Property.Description exists
    // The schema states that an item has one row in its table and its view, and at most one current custody row.
    bool itemsAreDistinct = false;

    bool operator==(const Dialect&) const = default;
};

}  // namespace quellbrook
