#include "ui/items/TrackingAction.h"

#include <string_view>

namespace quellbrook {

namespace {

constexpr int32_t Orange = 0x0080FF, Blue = 0xD6711E, Green = 0x87AD24, Red = 0x0000C0, Gray = 0x808080;

bool CameFrom(const TrackingRecord& record, StorageLocationTypes type) {
    const auto previous = record.Previous();
    if (!previous) return false;
    const StorageLocationRef location = previous->Location();
    return location && location->LocationType() == type;
}

}  // namespace

bool TrackingAction::operator==(const TrackingAction& other) const {
    return std::string_view(text) == other.text && color == other.color;
}

TrackingAction ActionOf(TrackingRecord& record) {
    constexpr TrackingAction unknown{"Unknown Action", Orange};
    const StorageLocationRef location = record.Location();
    if (!location) return unknown;
    switch (location->LocationType()) {
    case StorageLocationTypes::Unassigned: return unknown;
    case StorageLocationTypes::Internal:
        if (CameFrom(record, StorageLocationTypes::Internal)) return {"Moved", Blue};
        return {"Signed In", Green};
    case StorageLocationTypes::External: return {"Signed Out", Red};
    case StorageLocationTypes::DisposalLocation: return {"Disposed", Gray};
    case StorageLocationTypes::Other: return {"Other", Orange};
    }
    return unknown;
}

}  // namespace quellbrook
