#pragma once

#include <string>

namespace quellbrook {

// What query composition has to know about an engine and about the schema that it found there.
struct Dialect {
    std::string concatenation = "+";  // the operator that makes NULL of a NULL part
    std::string textPrefix;           // "N" where literals need it
    bool equalsLikeLike = false;      // "=" on a text column disregards the case of the same letters as LIKE does
    bool hasCurrentPlace = false;     // the side table CurrentPlace(StorageLocNo, ItemType, ItemNo) stands
    bool hasDescriptionIndex = false; // the trigram index PropertyDescription on Property.Description stands
};

}  // namespace quellbrook
