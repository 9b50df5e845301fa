#pragma once

#include <cstdint>

namespace quellbrook {

enum class StorageLocationTypes : int32_t {
    Unassigned = 1,
    Internal = 2,
    External = 4,
    DisposalLocation = 8,
    Other = 16
};

enum class StoredItemTypes : int32_t { Property = 1, vehicle = 2 };

enum class NumberSearchTypes : int32_t {
    IncidentId = 1,
    CaseNumber = 2,
    PropertyID = 3,
    VehicleTag = 4,
    PropertyPK = 5,
    VehiclePK = 6
};

// Transaction types of a batch.
namespace TransactionType {
inline constexpr int32_t None = 0, SignOut = 1, SignIn = 2, Move = 3, Dispose = 4;
}

}  // namespace quellbrook
