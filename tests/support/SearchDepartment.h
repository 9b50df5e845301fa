#pragma once

#include "data/Types.h"
#include "tests/support/TestDatabase.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace quellbrook::testing {

// Random choices that are the same on every machine.
class Dice {
public:
    explicit Dice(unsigned seed) : m_random(seed) {}

    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool OneIn(int count) { return Below(count) == 0; }
    template <typename T>
    const T& AnyOf(const std::vector<T>& choices) {
        return choices[static_cast<size_t>(Below(static_cast<int>(choices.size())))];
    }

private:
    std::mt19937 m_random;
};

// Fills a database with a few dozen items in every state that the tables allow, including states that no program
// creates: missing current custody rows, rows without a location or with a deleted one, duplicate links, links to
// deleted incidents, secured incidents, disabled subtrees, vehicles without a state, quantities that are not numbers,
// missing, empty and blank texts, and texts with every special character of a pattern.
class SearchDepartment {
public:
    SearchDepartment(TestDatabase& database, Dice& dice);

    // Replaces the view of vehicles with one that lacks some vehicles and repeats others, as a host's view might, and
    // deletes the fact that items are distinct.
    void ReplaceTheView();

    const std::vector<int32_t>& Locations() const { return m_locations; }
    // The keys of the items whose current custody row has a location.
    std::vector<int32_t> StoredKeys(StoredItemTypes kind) const;

private:
    void AddLocations();
    void AddIncidents();
    void AddProperty();
    void AddVehicle();
    void AddCustody(StoredItemTypes kind, int32_t item);
    void AddLinks(StoredItemTypes kind, int32_t item);
    void AddFalseCandidates();
    TaggedValue NumberOf(const std::vector<TaggedValue>& choices);

    TestDatabase& m_database;
    Dice& m_dice;
    std::vector<int32_t> m_locations;
    std::vector<int32_t> m_incidents;
};

}  // namespace quellbrook::testing
