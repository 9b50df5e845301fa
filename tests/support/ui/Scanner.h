#pragma once

#include <string_view>

namespace quellbrook::testing {

// Types into the focused window like a keyboard-wedge scanner: Ctrl+B for STX, Ctrl+C for ETX, capitals with Shift.
// Each key is pressed and released, without pauses.
void TypeAsScanner(std::string_view characters);

// One barcode: STX, the text, ETX.
void Scan(std::string_view text);

}  // namespace quellbrook::testing
