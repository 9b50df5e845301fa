#include "ui/controls/PictureBox.h"

#include "tests/support/ui/Widgets.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

QImage Filled(const QSize& size, const QColor& color) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    return image;
}

TEST(PictureBox, HasThePicturesOwnSize) {
    PictureBox box;
    box.SetImage(Filled(QSize(40, 20), Qt::red));
    EXPECT_EQ(box.size(), QSize(40, 20));
    EXPECT_EQ(PixelAt(Grab(box), QPoint(39, 19)), QColor(Qt::red));
}

TEST(PictureBox, APictureOfHighResolutionIsAsLargeAsItsDeviceIndependentSize) {
    QImage image = Filled(QSize(40, 20), Qt::red);
    image.setDevicePixelRatio(2);
    PictureBox box;
    box.SetImage(image);
    EXPECT_EQ(box.size(), QSize(20, 10));
    EXPECT_EQ(PixelAt(Grab(box), QPoint(19, 9)), QColor(Qt::red));
}

TEST(PictureBox, ALargePictureIsReducedInProportion) {
    PictureBox box;
    box.SetImage(Filled(QSize(400, 100), Qt::red), QSize(200, 200));
    EXPECT_EQ(box.size(), QSize(200, 50));
    EXPECT_EQ(PixelAt(Grab(box), QPoint(199, 49)), QColor(Qt::red));
    box.SetImage(Filled(QSize(100, 400), Qt::red), QSize(200, 200));
    EXPECT_EQ(box.size(), QSize(50, 200));
    box.SetImage(Filled(QSize(5000, 1), Qt::red), QSize(200, 200));
    EXPECT_EQ(box.size(), QSize(200, 1));
}

TEST(PictureBox, ASmallPictureIsNotEnlarged) {
    PictureBox box;
    box.SetImage(Filled(QSize(40, 20), Qt::red), QSize(200, 200));
    EXPECT_EQ(box.size(), QSize(40, 20));
}

TEST(PictureBox, TransparentPixelsAreWhite) {
    PictureBox box;
    box.SetImage(Filled(QSize(40, 20), Qt::transparent));
    EXPECT_EQ(PixelAt(Grab(box), QPoint(20, 10)), QColor(Qt::white));
}

TEST(PictureBox, ANullImageHasNoSize) {
    PictureBox box;
    box.SetImage(Filled(QSize(40, 20), Qt::red), QSize(200, 200));
    box.SetImage(QImage(), QSize(200, 200));
    EXPECT_TRUE(box.size().isEmpty());
}

}  // namespace
}  // namespace quellbrook::testing
