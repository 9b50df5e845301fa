#pragma once

#include "demo/sample/Picture.h"

#include <string>

namespace quellbrook::sample {

// The bytes of an uncompressed PNG file with four-bit palette indices. A picture has the same bytes on every machine.
// It needs at least one dot and one color.
std::string EncodePng(const Picture& picture);

}  // namespace quellbrook::sample
