#pragma once

#include <QImage>

#include <string>

namespace quellbrook::testing {

// Two independent barcode readers. Each returns the text of the single symbol in the picture; anything else it finds is
// described in angle brackets.
std::string ReadWithZbar(const QImage& picture);
std::string ReadWithZxing(const QImage& picture);

}  // namespace quellbrook::testing
