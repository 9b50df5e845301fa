#include "host/BarcodeImage.h"

#include "base/Error.h"
#include "host/HostEnvironment.h"
#include "labels/BarcodeSymbol.h"

#include <algorithm>
#include <cmath>

namespace quellbrook {

namespace {

constexpr int Code128 = 1;
constexpr double TwipsPerUnscaledPixel = 15;
constexpr double ModuleTwips = 30;  // two pixels at scale factor 1, below which readers fail
constexpr double TallestTwips = 32767;
constexpr double FinestTwipsPerPixel = 1, CoarsestTwipsPerPixel = 60;
constexpr uint32_t Black = 0xFF000000, White = 0xFFFFFFFF;

int PixelsOf(double twips, double twipsPerPixel) { return static_cast<int>(std::lround(twips / twipsPerPixel)); }

}  // namespace

void BarcodeImage::SetSymbology(int symbology) {
    if (symbology != Code128)
        throw HostEnvironment::Errors(ErrorNumber::InvalidPropertyValue, "BarcodeImage.SetSymbology");
}

void BarcodeImage::SetHeight(double heightTwips) {
    if (!(heightTwips >= 0 && heightTwips <= TallestTwips))
        throw HostEnvironment::Errors(ErrorNumber::InvalidPropertyValue, "BarcodeImage.SetHeight");
    m_heightTwips = heightTwips;
}

void BarcodeImage::SetTwipsPerPixel(double value) {
    if (!(value >= FinestTwipsPerPixel && value <= CoarsestTwipsPerPixel))
        throw HostEnvironment::Errors(ErrorNumber::InvalidPropertyValue, "BarcodeImage.SetTwipsPerPixel");
    m_twipsPerPixel = value;
}

Picture BarcodeImage::GetPicture() const {
    const BarcodeSymbol symbol = EncodeCode128(m_text);
    const int module = std::max(2, PixelsOf(ModuleTwips, m_twipsPerPixel));
    Picture picture;
    picture.scale = TwipsPerUnscaledPixel / m_twipsPerPixel;
    picture.width = symbol.WidthWithQuietZones() * module;
    picture.height = std::max(1, PixelsOf(m_heightTwips, m_twipsPerPixel));
    std::vector<uint32_t> row(static_cast<size_t>(picture.width), White);
    for (size_t k = 0; k < symbol.modules.size(); ++k)
        if (symbol.modules[k]) std::fill_n(row.begin() + (BarcodeSymbol::QuietZone + k) * module, module, Black);
    picture.pixels.reserve(row.size() * static_cast<size_t>(picture.height));
    for (int32_t y = 0; y < picture.height; ++y) picture.pixels.insert(picture.pixels.end(), row.begin(), row.end());
    return picture;
}

}  // namespace quellbrook
