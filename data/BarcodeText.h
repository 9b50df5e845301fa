#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quellbrook {

// The text that every barcode of the evidence room encodes and that a scanner types: STX (2), the type letter, the key
// in ten digits, ETX (3). The letters are L for a storage location, P for property, V for a vehicle. The text has 13
// characters for any key that is not negative.
std::string MakeBarcodeText(std::string_view typeLetter, int32_t id);

}  // namespace quellbrook
