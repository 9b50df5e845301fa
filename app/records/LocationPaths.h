#pragma once

#include "base/TaggedValue.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace quellbrook {

// Where storage locations stand, read from the database as it is now. Each is asked for once.
class LocationPaths {
public:
    // The names from the outermost location down, "Property Room > Aisle 3 > Shelf B". Empty for no value, and where
    // the location's row has gone.
    std::string FullPath(const TaggedValue& locationNo);
    // The number of its category; nothing where FullPath is empty.
    std::optional<int32_t> Type(const TaggedValue& locationNo);

private:
    struct Place {
        std::string name;
        std::string path;
        int32_t type;
    };
    const std::optional<Place>& Find(int32_t id);

    std::map<int32_t, std::optional<Place>> m_places;
};

}  // namespace quellbrook
