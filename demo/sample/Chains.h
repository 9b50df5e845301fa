#pragma once

#include "demo/sample/Random.h"
#include "demo/sample/Rows.h"

#include <vector>

namespace quellbrook::sample {

// Midnight after the last day of a department's three years, and of their first day.
inline const DateTime LastDay = DateTime::FromParts({2026, 11, 20, 0, 0, 0, 0});
inline const DateTime FirstDay = DateTime::FromParts({2023, 11, 20, 0, 0, 0, 0});
inline constexpr int64_t DayLength = 24ll * 60 * 60 * 1000;
inline constexpr int32_t DayCount = 1096;  // from FirstDay to LastDay
// the longest chain, in days; items arrive at least this long before the end
inline constexpr int32_t LongestChain = 12;

// The locations for each purpose.
struct LocationPurposes {
    std::vector<int32_t> intake;
    std::vector<int32_t> labs;
    std::vector<int32_t> courts;
    std::vector<int32_t> officers;
    std::vector<int32_t> prosecutors;
    std::vector<int32_t> disposal;
    std::vector<int32_t> review;
};

enum class End { InStorage, SignedOut, Disposed, UnderReview, NoLocation };

// What happens to an item between its arrival and now.
struct Fate {
    int32_t day = 0;       // of its arrival, from FirstDay; at most DayCount - LongestChain
    int32_t home = 0;      // where it is stored
    int32_t journeys = 0;  // the number of times it left and returned, 0 to 3
    End end = End::InStorage;
    // For SignedOut and Disposed; 0 picks one of the purposes' locations.
    int32_t endLocation = 0;
    bool startsInReview = false;
};

// A chain of custody for the fate, oldest row first. Dates ascend, each item is received from the person who had it,
// and a few rows lack a person. An item with an intake location as its home stays there.
std::vector<Custody> MakeChain(Random& random, const LocationPurposes& purposes, const Fate& fate);

}  // namespace quellbrook::sample
