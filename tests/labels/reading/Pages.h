#pragma once

#include <QByteArray>
#include <QImage>

#include <vector>

namespace quellbrook::testing {

// The pages of a PDF as a printer of so many dots to an inch would have them, in grey. A failed test and an empty list
// where they can't be made.
std::vector<QImage> RasterisePages(const QByteArray& pdf, int dotsPerInch);

}  // namespace quellbrook::testing
