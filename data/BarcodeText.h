#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quellbrook {

// What every barcode of the evidence room encodes, and what a scanner types: STX (2), the type letter, the key in ten
// digits, ETX (3). Letters are L for a storage location, P for property, V for a vehicle. 13 characters for one letter
// and any key of 32 bits that is not negative.
std::string MakeBarcodeText(std::string_view typeLetter, int32_t id);

}  // namespace quellbrook
