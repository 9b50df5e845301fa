#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

namespace quellbrook::testing {

// The pages of a PDF at the resolution of a printer, in grayscale. Fails the test and returns an
// empty list if they can't be created.
std::vector<QImage> RasterizePages(const QByteArray& pdf, int dotsPerInch);

}  // namespace quellbrook::testing
