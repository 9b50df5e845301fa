#pragma once

#include "demo/sample/Rows.h"

#include <optional>
#include <string>
#include <vector>

namespace quellbrook::sample {

// The tree of a department while it is made. Identifiers count from 1; a container stands before what lies in it.
class LocationTree {
public:
    // Under the container with this identifier, or at the top of the category when it is 0. The new identifier.
    int32_t Add(int32_t container, const std::string& name, int32_t type, std::optional<bool> active = true);

    const std::vector<Location>& All() const { return m_locations; }
    // By the names from the top down, joined by " > ". Error 5 when there is no such location.
    int32_t Find(const std::string& fullName) const;

private:
    std::vector<Location> m_locations;
    std::vector<std::string> m_fullNames;
};

// The sixty locations of the sample department.
LocationTree MakeSmallTree();

// How many locations a generated department has: one for twenty items, 100 at least and 5,000 at most. One of more than
// 100,000 items has no more places than that, but fuller ones.
int32_t LocationsFor(int32_t items);

struct LargeTree {
    LocationTree tree;
    int32_t counter = 0;           // the sign-in counter
    int32_t fullShelf = 0;         // where 190 items lie
    int32_t warehouse = 0;         // where one item in fifty lies
    std::vector<int32_t> storage;  // other sign-in locations that hold items
    std::vector<int32_t> signOut;
    std::vector<int32_t> disposal;
    std::vector<int32_t> other;
};

// So many locations, 100 at least, on five levels in every category but the uncategorised. One in eleven has an odd
// name. Some have no word on whether they are in use, some are out of use, and some of these hold others that are not.
LargeTree MakeLargeTree(int32_t locations);

}  // namespace quellbrook::sample
