#pragma once

#include "data/Types.h"
#include "tests/support/TestDatabase.h"

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace quellbrook::testing {

// Picks by turns that are the same on every machine.
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

// Fills a database with a few dozen items in all the states that the tables allow, those that no program would leave
// behind included: current rows that are not there or without a place, places that have gone, links twice over and to
// incidents that have gone, secured incidents, disabled subtrees, vehicles without a state, quantities that are no
// numbers, missing, empty and blank texts, and texts with every character that a pattern knows.
class SearchDepartment {
public:
    SearchDepartment(TestDatabase& database, Dice& dice);

    // Makes the view of vehicles as a host's own might be: not every vehicle, and some of them twice.
    void TwistTheView();

    const std::vector<int32_t>& Locations() const { return m_locations; }
    // The keys of the items whose current custody row names a place.
    std::vector<int32_t> StoredKeys(StoredItemTypes kind) const;

private:
    void AddLocations();
    void AddIncidents();
    void AddProperty();
    void AddVehicle();
    void AddCustody(StoredItemTypes kind, int32_t item);
    void AddLinks(StoredItemTypes kind, int32_t item);
    void AddFalseCandidates();

    TestDatabase& m_database;
    Dice& m_dice;
    std::vector<int32_t> m_locations;
    std::vector<int32_t> m_incidents;
};

}  // namespace quellbrook::testing
