#include "demo/sample/Locations.h"

#include <algorithm>
#include <map>
#include <set>

#include <gtest/gtest.h>

namespace quellbrook::sample {

namespace {

using Depths = std::map<int32_t, std::set<std::ptrdiff_t>>;

// The levels on which locations of each category stand, from 1.
Depths LevelsOf(const LocationTree& tree) {
    Depths levels;
    for (const Location& location : tree.All()) {
        levels[location.type].insert(std::count(location.path.begin(), location.path.end(), '/') - 1);
    }
    return levels;
}

}  // namespace

TEST(LocationsFor, GrowsWithTheItemsUpToAHundredThousand) {
    EXPECT_EQ(LocationsFor(1), 100);
    EXPECT_EQ(LocationsFor(2'000), 100);
    EXPECT_EQ(LocationsFor(2'020), 101);
    EXPECT_EQ(LocationsFor(30'000), 1'500);
    EXPECT_EQ(LocationsFor(100'000), 5'000);
    EXPECT_EQ(LocationsFor(1'000'000), 5'000);
}

TEST(LargeTree, HoldsTheLocationsAskedForOnFiveLevelsInEveryCategory) {
    for (const int32_t count : {100, 101, 137, 999, 5'000}) {
        SCOPED_TRACE(count);
        const LargeTree large = MakeLargeTree(count);
        EXPECT_EQ(large.tree.All().size(), static_cast<size_t>(count));
        const std::set<std::ptrdiff_t> five = {1, 2, 3, 4, 5};
        EXPECT_EQ(LevelsOf(large.tree), (Depths{{Internal, five}, {External, five}, {Disposal, five}, {Other, five}}));
    }
}

TEST(LargeTree, EveryCategoryHasPlacesForItems) {
    const LargeTree large = MakeLargeTree(100);
    for (const auto* places : {&large.storage, &large.signOut, &large.disposal, &large.other})
        EXPECT_FALSE(places->empty());
}

TEST(LargeTree, NoTwoNamesInAContainerAreTheSame) {
    std::set<std::tuple<std::string, int32_t, std::string>> names;
    const LargeTree large = MakeLargeTree(5'000);
    for (const Location& location : large.tree.All()) {
        EXPECT_TRUE(names.emplace(location.path, location.type, location.name).second) << location.name;
    }
}

TEST(LargeTree, TheCounterAndTheFullShelfKeepPlainNamesAndAreInUse) {
    const LargeTree large = MakeLargeTree(100);
    for (const int32_t id : {large.counter, large.warehouse, large.fullShelf}) {
        const Location& location = large.tree.All()[static_cast<size_t>(id) - 1];
        EXPECT_EQ(location.active, true);
        EXPECT_EQ(location.type, Internal);
    }
    EXPECT_EQ(large.tree.Find("Property Warehouse > Bulk Shelf"), large.fullShelf);
    EXPECT_EQ(large.tree.Find("Sign-In Counter"), large.counter);
}

}  // namespace quellbrook::sample
