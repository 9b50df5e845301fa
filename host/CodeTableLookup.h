#pragma once

#include "base/TaggedValue.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quellbrook {

// Code tables by number.
namespace CodeTable {
inline constexpr int16_t FinalDispositionStatus = 30;
inline constexpr int16_t PropertyCategory = 31;
inline constexpr int16_t CustodyReason = 38;
inline constexpr int16_t VehicleCategory = 46;
inline constexpr int16_t Officers = 9999;  // officers and employees
}  // namespace CodeTable

struct CodeEntry {
    int32_t code;
    std::string text;
};

// Display texts of coded columns. Both lookups return NULL for a NULL or unknown code. Officers have the names of
// PersonDirectory.
class CodeTableLookup {
public:
    TaggedValue Description(int16_t tableNumber, const TaggedValue& code);
    TaggedValue Name(int16_t tableNumber, const TaggedValue& code);

    // The active entries, ordered by text: the description, or the name if there is none; officers with name and title,
    // "Raman, Priya (Evidence Technician)". The lookups also find inactive entries.
    std::vector<CodeEntry> Entries(int16_t tableNumber);
};

}  // namespace quellbrook
