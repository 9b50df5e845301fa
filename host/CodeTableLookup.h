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

// Display texts of coded columns. Both look-ups give NULL for a NULL or unknown code. Officers have their names as
// PersonDirectory gives them.
class CodeTableLookup {
public:
    TaggedValue Description(int16_t tableNumber, const TaggedValue& code);
    TaggedValue Name(int16_t tableNumber, const TaggedValue& code);

    // The entries that can be chosen, in the order of their texts: the description, or the name where there is none;
    // officers by name and title, "Raman, Priya (Evidence Technician)". An inactive entry is left out, but is still
    // found by the look-ups.
    std::vector<CodeEntry> Entries(int16_t tableNumber);
};

}  // namespace quellbrook
