#include "demo/sample/Motifs.h"
#include "demo/sample/Pictures.h"
#include "demo/sample/Png.h"

#include <QImage>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

QImage Loaded(const std::string& bytes) {
    return QImage::fromData(reinterpret_cast<const uchar*>(bytes.data()), static_cast<int>(bytes.size()), "PNG");
}

}  // namespace

TEST(SamplePictures, QtLoadsEveryPicture) {
    for (const sample::CompanionFile& file : sample::DrawPictures()) {
        const QImage image = Loaded(file.bytes);
        EXPECT_EQ(image.size(), QSize(sample::PictureWidth, sample::PictureHeight)) << file.path;
    }
}

TEST(SamplePictures, QtReadsEveryPixelInItsColor) {
    sample::Picture picture{301, 500, {{255, 0, 0}, {0, 128, 0}, {10, 20, 30}, {255, 255, 255}}, {}};
    for (int dot = 0; dot < 301 * 500; ++dot) picture.dots.push_back(static_cast<uint8_t>(dot * 5 / 3 % 4));
    const QImage image = Loaded(sample::EncodePng(picture));
    ASSERT_EQ(image.size(), QSize(301, 500));
    for (int y = 0; y < 500; ++y) {
        for (int x = 0; x < 301; ++x) {
            const sample::Color& color = picture.colors[picture.dots[static_cast<size_t>(y * 301 + x)]];
            ASSERT_EQ(image.pixelColor(x, y), QColor(color.red, color.green, color.blue)) << x << ", " << y;
        }
    }
}

}  // namespace quellbrook::testing
