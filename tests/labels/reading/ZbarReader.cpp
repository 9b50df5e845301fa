#include "tests/labels/reading/GrayPixels.h"
#include "tests/labels/reading/Readers.h"

#include <zbar.h>

namespace quellbrook::testing {

std::string ReadWithZbar(const QImage& picture) {
    const std::string pixels = GrayPixels(picture);
    zbar::ImageScanner scanner;
    scanner.set_config(zbar::ZBAR_NONE, zbar::ZBAR_CFG_ENABLE, 0);
    scanner.set_config(zbar::ZBAR_CODE128, zbar::ZBAR_CFG_ENABLE, 1);
    zbar::Image image(static_cast<unsigned>(picture.width()), static_cast<unsigned>(picture.height()), "Y800",
                      pixels.data(), pixels.size());
    scanner.scan(image);
    const zbar::SymbolSet symbols = image.get_symbols();
    if (symbols.get_size() != 1) return "<" + std::to_string(symbols.get_size()) + " symbols>";
    return zbar::Symbol(*symbols.symbol_begin()).get_data();
}

}  // namespace quellbrook::testing
