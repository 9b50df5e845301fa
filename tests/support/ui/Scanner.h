#pragma once

#include <string_view>

namespace quellbrook::testing {

// Types into whatever window has the focus as a keyboard-wedge scanner does: Ctrl+B for STX, Ctrl+C for ETX, capitals
// with Shift, each key pressed and released, nothing between them.
void TypeAsScanner(std::string_view characters);

// One barcode: STX, the text, ETX.
void Scan(std::string_view text);

}  // namespace quellbrook::testing
