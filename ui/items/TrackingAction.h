#pragma once

#include "data/CustodyRecords.h"

#include <cstdint>

namespace quellbrook {

// What was done to an item at a step of its chain of custody. A record does not store this; it is inferred from the
// record's location and the previous one.
struct TrackingAction {
    const char* text;
    int32_t color;  // 0xBBGGRR

    bool operator==(const TrackingAction& other) const;
};

TrackingAction ActionOf(TrackingRecord& record);

}  // namespace quellbrook
