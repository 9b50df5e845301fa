#pragma once

#include "demo/sample/Picture.h"

#include <string>

namespace quellbrook::sample {

// The bytes of a PNG file: indexed colours, four bits a dot, not compressed, so that a picture has the same bytes on
// every machine. The picture has at least one dot and one colour.
std::string EncodePng(const Picture& picture);

}  // namespace quellbrook::sample
