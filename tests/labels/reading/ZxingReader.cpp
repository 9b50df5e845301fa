#include "tests/labels/reading/GrayPixels.h"
#include "tests/labels/reading/Readers.h"

#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>

namespace quellbrook::testing {

std::string ReadWithZxing(const QImage& picture) {
    const std::string pixels = GrayPixels(picture);
    ZXing::DecodeHints hints;
    hints.setFormats(ZXing::BarcodeFormat::Code128);
    hints.setMaxNumberOfSymbols(1);
    const ZXing::Result result = ZXing::ReadBarcode(
        {reinterpret_cast<const uint8_t*>(pixels.data()), picture.width(), picture.height(), ZXing::ImageFormat::Lum},
        hints);
    if (!result.isValid()) return "<no symbol>";
    return std::string(result.bytes().begin(), result.bytes().end());
}

}  // namespace quellbrook::testing
