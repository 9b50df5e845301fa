#pragma once

#include <QImage>

#include <string>

namespace quellbrook::testing {

// Two independent barcode readers. Each returns the text of the single symbol in the picture, or in angle brackets what
// it found instead.
std::string ReadWithZbar(const QImage& picture);
std::string ReadWithZxing(const QImage& picture);

}  // namespace quellbrook::testing
