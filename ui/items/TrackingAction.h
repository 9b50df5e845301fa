#pragma once

#include "data/CustodyRecords.h"

#include <cstdint>

namespace quellbrook {

// What was done to an item at a step of its chain of custody. A record does not say so; it is inferred from where the
// item ended up, and where it came from.
struct TrackingAction {
    const char* text;
    int32_t color;  // 0xBBGGRR

    bool operator==(const TrackingAction& other) const;
};

TrackingAction ActionOf(TrackingRecord& record);

}  // namespace quellbrook
