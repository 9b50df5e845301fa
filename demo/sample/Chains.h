#pragma once

#include "demo/sample/Random.h"
#include "demo/sample/Rows.h"

#include <vector>

namespace quellbrook::sample {

// Midnight of the day before which everything in a department has happened, and of the first day of its three years.
inline const DateTime LastDay = DateTime::FromParts({2026, 11, 20, 0, 0, 0, 0});
inline const DateTime FirstDay = DateTime::FromParts({2023, 11, 20, 0, 0, 0, 0});
inline constexpr int64_t DayLength = 24ll * 60 * 60 * 1000;
inline constexpr int32_t DayCount = 1096;  // from FirstDay to LastDay
// A chain takes so many days at least; no item comes in later.
inline constexpr int32_t LongestChain = 12;

// Where items go for which purpose.
struct Places {
    std::vector<int32_t> intake;
    std::vector<int32_t> labs;
    std::vector<int32_t> courts;
    std::vector<int32_t> officers;
    std::vector<int32_t> prosecutors;
    std::vector<int32_t> disposal;
    std::vector<int32_t> review;
};

enum class End { InStorage, SignedOut, Disposed, UnderReview, NoLocation };

// What becomes of an item between its coming and now.
struct Fate {
    int32_t day = 0;       // of its coming, counted from FirstDay; DayCount - LongestChain at most
    int32_t home = 0;      // where it is stored
    int32_t journeys = 0;  // times that it left and came back, 0 to 3
    End end = End::InStorage;
    // Of SignedOut and Disposed; drawn from the places when it is 0.
    int32_t endPlace = 0;
    bool startsInReview = false;
};

// A chain of custody that fits the fate, oldest row first: dates ascend, who hands over is who received before, a few
// rows lack a person. An item whose home is one of the places of intake stays where it came in.
std::vector<Custody> MakeChain(Random& random, const Places& places, const Fate& fate);

}  // namespace quellbrook::sample
