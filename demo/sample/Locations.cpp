#include "demo/sample/Locations.h"

#include "base/Error.h"
#include "demo/sample/EdgeCases.h"
#include "demo/sample/SampleDepartment.h"
#include "host/LocationPath.h"

#include <algorithm>

namespace quellbrook::sample {

int32_t LocationTree::Add(int32_t container, const std::string& name, int32_t type, std::optional<bool> active) {
    LocationPath path = LocationPath().Append(0);
    std::string fullName = name;
    if (container > 0) {
        const size_t index = static_cast<size_t>(container) - 1;
        path = LocationPath().Parse(m_locations[index].ownPath);
        fullName = m_fullNames[index] + " > " + name;
    }
    Location location;
    location.id = static_cast<int32_t>(m_locations.size()) + 1;
    location.name = name;
    location.type = type;
    location.path = path.ToText();
    location.ownPath = path.Append(location.id).ToText();
    location.active = active;
    m_locations.push_back(std::move(location));
    m_fullNames.push_back(std::move(fullName));
    return m_locations.back().id;
}

int32_t LocationTree::Find(const std::string& fullName) const {
    const auto found = std::find(m_fullNames.begin(), m_fullNames.end(), fullName);
    if (found == m_fullNames.end()) {
        Raise(ErrorNumber::General, "LocationTree.Find", "There is no location '" + fullName + "'.");
    }
    return static_cast<int32_t>(found - m_fullNames.begin()) + 1;
}

namespace {

struct Entry {
    int depth;
    const char* name;
    bool active = true;
};

void AddEntries(LocationTree& tree, int32_t type, const std::vector<Entry>& entries) {
    std::vector<int32_t> containers = {0};
    for (const Entry& entry : entries) {
        containers.resize(static_cast<size_t>(entry.depth) + 1);
        containers.push_back(tree.Add(containers.back(), entry.name, type, entry.active));
    }
}

// Whether the location at this position is in use. The contents of a container out of use are out of use, too.
std::optional<bool> IsActive(int level, int32_t index) {
    if (level >= 2 && index % 29 == 5) return std::nullopt;
    return !(level >= 2 && index % 23 == 3);
}

// Builds a category of `count` locations, at least five, on five levels with about equal fan-out. Adds the identifiers
// of all but the first two levels to `leaves`.
void AddCategory(LocationTree& tree, int32_t type, int32_t count, std::vector<int32_t>& leaves) {
    static const char* const names[] = {"Building ", "Floor ", "Room ", "Aisle ", "Shelf "};
    const int32_t shares[] = {count / 400 + 1, count / 100 + 1, count / 20 + 1, count / 5, count};
    std::vector<int32_t> containers = {0};
    int32_t left = count;
    for (int level = 0; level < 5; ++level) {
        const int32_t here = std::min(left, shares[level]);
        std::vector<int32_t> added;
        for (int32_t k = 0; k < here; ++k) {
            const auto width = static_cast<int32_t>(containers.size());
            const int32_t container = containers[static_cast<size_t>(k % width)];
            const std::string name = names[level] + std::to_string(k / width + 1);
            const auto index = static_cast<int32_t>(tree.All().size());
            added.push_back(tree.Add(container, EdgeCaseName(index, name), type, IsActive(level, k)));
            if (level >= 2) leaves.push_back(added.back());
        }
        left -= here;
        containers = std::move(added);
    }
}

}  // namespace

LocationTree MakeSmallTree() {
    LocationTree tree;
    AddEntries(tree, Internal,
               {{0, "Property Room"},
                {1, "Aisle 1"},
                {2, "Shelf A"},
                {2, "Shelf B"},
                {2, "Shelf C"},
                {1, "Aisle 2"},
                {2, "Shelf A"},
                {2, "Shelf B"},
                {2, "Shelf C"},
                {2, "Shelf D"},
                {1, "Aisle 3"},
                {2, "Shelf A"},
                {2, "Shelf B"},
                {3, "Bin B-1"},
                {4, "Tray 1"},
                {4, "Tray 2"},
                {3, "Bin B-2"},
                {2, "Shelf C"},
                {1, "Drug Vault"},
                {2, "Safe 1"},
                {2, "Safe 2"},
                {3, "Drawer 1"},
                {3, "Drawer 2  "},
                {1, "Firearms Cage"},
                {0, "Impound Lot"},
                {1, "Row 1"},
                {1, "Row 2"},
                {1, "Row 3"},
                {1, "Covered Bay"},
                {0, "Intake Lockers"},
                {1, "Locker 11"},
                {1, "Locker 12"},
                {1, "Locker 13"},
                {1, "Locker 14 \"Oversize\""},
                {0, "Refrigerated Storage"},
                {0, "Records Annex", false},
                {1, "Cage 1", false},
                {1, "Cage 2 – Peña"}});
    AddEntries(tree, External,
               {{0, "Circuit Court"},
                {0, "Crime Lab"},
                {1, "Biology"},
                {1, "Digital Forensics"},
                {1, "Firearms"},
                {1, "Latent Prints"},
                {1, "Toxicology"},
                {0, "Municipal Court"},
                {0, "Officer Custody"},
                {0, "Prosecutor's Office"},
                {0, "State Archive", false}});
    AddEntries(tree, Disposal,
               {{0, "Auction"},
                {0, "Destroyed"},
                {1, "Incineration"},
                {1, "Shredding"},
                {0, "Released to Agency"},
                {0, "Returned to Owner"},
                {0, "Scrap Yard", false}});
    AddEntries(tree, Other,
               {{0, "Pending Review"}, {1, "Awaiting Court Order"}, {1, "Missing Paperwork"}, {0, "In Transit"}});
    return tree;
}

LocationTree MakeUncategorizedTree() {
    LocationTree tree;
    AddEntries(tree, Unassigned,
               {{0, "Auction"},
                {0, "Circuit Court"},
                {1, "Clerk Vault"},
                {0, "Crime Lab"},
                {1, "Digital Forensics"},
                {0, "Destroyed"},
                {0, "Detective Bureau"},
                {0, "Evidence Room"},
                {1, "Aisle 1"},
                {2, "Shelf 1A"},
                {2, "Shelf 1B"},
                {1, "Aisle 2"},
                {2, "Shelf 2A"},
                {0, "Impound Lot"},
                {0, "Intake Lockers"},
                {0, "Officer Custody"},
                {0, "Prosecutor's Office"},
                {0, "Records Annex", false},
                {0, "Refrigerated Storage"},
                {0, "Returned to Owner"},
                {0, "Unknown (2014 import)"}});
    return tree;
}

int32_t LocationsFor(int32_t items) { return std::clamp(items / 20, 100, 5000); }

LargeTree MakeLargeTree(int32_t locations) {
    LargeTree large;
    large.counter = large.tree.Add(0, SampleNames::SignInCounter, Internal);
    large.warehouse = large.tree.Add(0, "Property Warehouse", Internal);
    large.fullShelf = large.tree.Add(large.warehouse, SampleNames::FullShelf, Internal);
    const int32_t external = locations * 12 / 100, disposal = locations * 6 / 100;
    const int32_t other = std::max(5, locations * 2 / 100);
    AddCategory(large.tree, Internal, locations - 3 - external - disposal - other, large.storage);
    AddCategory(large.tree, External, external, large.signOut);
    AddCategory(large.tree, Disposal, disposal, large.disposal);
    AddCategory(large.tree, Other, other, large.other);
    return large;
}

}  // namespace quellbrook::sample
