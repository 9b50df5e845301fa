#pragma once

#include <QImage>

#include <string>

namespace quellbrook::testing {

// Two readers of barcodes that know nothing of each other. Each gives the text of the one symbol in the picture, or
// says in angle brackets what it found instead.
std::string ReadWithZbar(const QImage& picture);
std::string ReadWithZxing(const QImage& picture);

}  // namespace quellbrook::testing
