#pragma once

#include "demo/sample/Rows.h"

#include <optional>
#include <string>
#include <vector>

namespace quellbrook::sample {

// Builds the location tree of a department. Identifiers count from 1; containers precede their contents.
class LocationTree {
public:
    // Adds a location to this container, or to the top of the category for 0. Returns the new identifier.
    int32_t Add(int32_t container, const std::string& name, int32_t type, std::optional<bool> active = true);

    const std::vector<Location>& All() const { return m_locations; }
    // Finds a location by its full name, joined by " > ". Error 5 if there is none.
    int32_t Find(const std::string& fullName) const;

private:
    std::vector<Location> m_locations;
    std::vector<std::string> m_fullNames;
};

// The sixty locations of the sample department.
LocationTree MakeSmallTree();
// Twenty-one uncategorized locations on three levels with unique names.
LocationTree MakeUncategorizedTree();

// The number of locations of a generated department: one per twenty items, between 100 and 5,000.
int32_t LocationsFor(int32_t items);

struct LargeTree {
    LocationTree tree;
    int32_t counter = 0;           // the sign-in counter
    int32_t fullShelf = 0;         // of 190 items
    int32_t warehouse = 0;         // of one item in fifty
    std::vector<int32_t> storage;  // other sign-in locations that hold items
    std::vector<int32_t> signOut;
    std::vector<int32_t> disposal;
    std::vector<int32_t> other;
};

// Builds `count` locations, at least 100, on five levels in every category except Uncategorized. One in eleven has an
// edge-case name. Some have no active flag, some are out of use, and some of those contain locations in use.
LargeTree MakeLargeTree(int32_t locations);

}  // namespace quellbrook::sample
