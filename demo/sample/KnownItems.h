#pragma once

#include "demo/sample/Rows.h"

#include <vector>

namespace quellbrook::sample {

// The fixed part of the sample department: the items on Shelf B, their incidents, and the evidence that waits to be
// checked in.

struct KnownItem {
    const char* id;
    int32_t category;
    const char* description;
    const char* location;  // full name of its location; empty for an item that was never tracked
};

struct KnownLink {
    const char* incident;
    const char* item;  // property by its identifier, a vehicle by its tag
};

struct KnownRow {
    DateTime::Parts received;
    int32_t from;
    int32_t to;  // 0 if unknown
    int32_t reason;
    const char* location;
};

const std::vector<Incident>& KnownIncidents();
const std::vector<KnownItem>& KnownProperty();
// Links besides the incident that an item's identifier starts with.
const std::vector<KnownLink>& KnownLinks();
// The chain of custody of the laptop computer 2026-0417-03.
const std::vector<KnownRow>& LaptopChain();
inline constexpr const char* LaptopId = "2026-0417-03";

}  // namespace quellbrook::sample
