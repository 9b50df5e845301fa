#pragma once

#include "demo/sample/Rows.h"

#include <vector>

namespace quellbrook::sample {

// The part of the sample department that is the same in every telling: what lies on Shelf B, the incidents around it,
// and the evidence that waits to be checked in.

struct KnownItem {
    const char* id;
    int32_t category;
    const char* description;
    const char* place;  // full name of its location now; empty for an item that was never tracked
};

struct KnownLink {
    const char* incident;
    const char* item;  // property by its number, a vehicle by its tag
};

struct KnownRow {
    DateTime::Parts received;
    int32_t from;
    int32_t to;  // 0: not known
    int32_t reason;
    const char* place;
};

const std::vector<Incident>& KnownIncidents();
const std::vector<KnownItem>& KnownProperty();
// Besides an incident that an item's number begins with.
const std::vector<KnownLink>& KnownLinks();
// The chain of the laptop computer 2026-0417-03.
const std::vector<KnownRow>& LaptopChain();
inline constexpr const char* LaptopId = "2026-0417-03";

}  // namespace quellbrook::sample
