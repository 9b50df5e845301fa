#pragma once

#include <string>
#include <vector>

namespace quellbrook {

// Columns of a table or view in which no two of its rows agree: whole numbers, never NULL.
struct RowKey {
    std::string table;
    std::vector<std::string> columns;

    bool operator==(const RowKey&) const = default;
};

// What query composition has to know about an engine and about the schema that it found there.
struct Dialect {
    std::string concatenation = "+";   // the operator that makes NULL of a NULL part
    std::string textPrefix;            // "N" where literals need it
    bool equalsLikeLike = false;       // "=" on a text column disregards the case of the same letters as LIKE does
    bool hasCurrentPlace = false;      // the side table CurrentPlace(StorageLocNo, ItemType, ItemNo) stands
    std::vector<RowKey> keys;          // what is known of them; empty is always right
    bool hasDescriptionIndex = false;  // the trigram index PropertyDescription on Property.Description stands

    bool operator==(const Dialect&) const = default;
};

}  // namespace quellbrook
