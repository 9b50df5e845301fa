#include "tests/labels/reading/GrayPixels.h"

namespace quellbrook::testing {

std::string GrayPixels(const QImage& picture) {
    const QImage gray = picture.convertToFormat(QImage::Format_Grayscale8);
    std::string pixels;
    for (int y = 0; y < gray.height(); ++y)
        pixels.append(reinterpret_cast<const char*>(gray.constScanLine(y)), static_cast<size_t>(gray.width()));
    return pixels;
}

}  // namespace quellbrook::testing
