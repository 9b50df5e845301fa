#include "host/BarcodeImage.h"

#include "base/Error.h"
#include "labels/BarcodeSymbol.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

#include <limits>

namespace quellbrook::testing {
namespace {

constexpr uint32_t black = 0xFF000000, white = 0xFFFFFFFF;
const std::string itemText = "\x02P0000004711\x03";

Picture Draw(double heightTwips, double twipsPerPixel, const std::string& text = itemText) {
    BarcodeImage image;
    image.SetSymbology(1);
    image.SetHeight(heightTwips);
    image.SetTwipsPerPixel(twipsPerPixel);
    image.SetText(text);
    return image.GetPicture();
}

TEST(BarcodeImage, HasItsHeightInDevicePixels) {
    EXPECT_EQ(Draw(600, 15).height, 40);
    EXPECT_EQ(Draw(600, 10).height, 60);
    EXPECT_EQ(Draw(600, 7.5).height, 80);
    EXPECT_EQ(Draw(0, 15).height, 1);
}

TEST(BarcodeImage, ModulesAreWholeDevicePixelsAtEveryScaleFactor) {
    EXPECT_EQ(Draw(600, 15).width, 165 * 2);
    EXPECT_EQ(Draw(600, 10).width, 165 * 3) << "scale factor 1.5";
    EXPECT_EQ(Draw(600, 7.5).width, 165 * 4) << "scale factor 2";
    EXPECT_EQ(Draw(600, 12).width, 165 * 3) << "scale factor 1.25";
    EXPECT_EQ(Draw(600, 40).width, 165 * 2) << "never below two";
}

TEST(BarcodeImage, KnowsTheScaleOfItsDisplay) {
    EXPECT_DOUBLE_EQ(Draw(600, 10).scale, 1.5);
    EXPECT_DOUBLE_EQ(Draw(600, 15).scale, 1);
}

TEST(BarcodeImage, EachRowIsTheSymbolBetweenItsQuietZones) {
    const BarcodeSymbol symbol = EncodeCode128(itemText);
    const Picture picture = Draw(45, 10);
    ASSERT_EQ(picture.pixels.size(), static_cast<size_t>(picture.width) * picture.height);
    for (int32_t y = 0; y < picture.height; ++y)
        for (int32_t x = 0; x < picture.width; ++x) {
            const int32_t module = x / 3 - BarcodeSymbol::QuietZone;
            const bool bar = module >= 0 && module < 145 && symbol.modules[static_cast<size_t>(module)];
            ASSERT_EQ(picture.At(x, y), bar ? black : white) << x << ", " << y;
        }
}

TEST(BarcodeImage, OnlySymbologyOneIsKnown) {
    BarcodeImage image;
    for (const int symbology : {0, 2, -1})
        EXPECT_EQ(RaisedBy([&] { image.SetSymbology(symbology); }).Number(), ErrorNumber::InvalidPropertyValue);
}

TEST(BarcodeImage, SizesThatNoDisplayHasAreRefused) {
    BarcodeImage image;
    const double nothing = std::numeric_limits<double>::quiet_NaN();
    for (const double value : {0.0, -15.0, 0.5, 61.0, nothing})
        EXPECT_EQ(RaisedBy([&] { image.SetTwipsPerPixel(value); }).Number(), ErrorNumber::InvalidPropertyValue);
    for (const double value : {-1.0, 32768.0, nothing})
        EXPECT_EQ(RaisedBy([&] { image.SetHeight(value); }).Number(), ErrorNumber::InvalidPropertyValue);
}

TEST(BarcodeImage, ATextThatCantBeASymbolFails) {
    EXPECT_EQ(RaisedBy([] { Draw(600, 15, ""); }).Description(), "The barcode has no text.");
}

}  // namespace
}  // namespace quellbrook::testing
