#pragma once

#include <QImage>

#include <string>

namespace quellbrook::testing {

// One byte per pixel, row by row without a gap.
std::string GrayPixels(const QImage& picture);

}  // namespace quellbrook::testing
