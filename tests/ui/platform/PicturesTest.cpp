#include "ui/platform/Pictures.h"

#include "tests/support/RaisedBy.h"
#include "tests/ui/controls/ControlsTest.h"

#include <QTemporaryDir>

#include <algorithm>

namespace quellbrook::testing {
namespace {

class PicturesTest : public ControlsTest {
protected:
    std::string Save(const QImage& image, const char* name) {
        const QString path = m_folder.filePath(name);
        EXPECT_TRUE(image.save(path));
        return path.toStdString();
    }

    QTemporaryDir m_folder;
};

TEST_F(PicturesTest, AnImageAndItsPictureHaveTheSamePixels) {
    QImage image(3, 2, QImage::Format_ARGB32);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 3; ++x) image.setPixelColor(x, y, QColor(10 * x, 20 * y, 30, 255 - x));
    image.setDevicePixelRatio(1.5);
    const Picture picture = ToPicture(image);
    EXPECT_EQ(picture.width, 3);
    EXPECT_EQ(picture.scale, 1.5);
    EXPECT_EQ(picture.pixels.size(), 6u);
    EXPECT_EQ(picture.At(2, 1), image.pixel(2, 1));
    EXPECT_EQ(ToImage(picture), image);
    EXPECT_EQ(ToImage(picture).devicePixelRatio(), 1.5);
}

TEST_F(PicturesTest, ReadsAPictureFile) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    for (const char* name : {"a.png", "a.jpg", "a.bmp"}) {
        const Picture picture = ReadPicture(Save(image, name));
        EXPECT_EQ(picture.width, 40) << name;
        EXPECT_EQ(picture.height, 30) << name;
        EXPECT_NEAR(qGreen(picture.At(5, 5)), 128, 2) << name;
    }
}

// The EXIF segment of a camera that was turned a quarter to the left.
const QByteArray turnedCamera = QByteArray::fromHex(
    "ffe100224578696600004d4d002a00000008"
    "0001011200030000000100060000"
    "00000000");

TEST_F(PicturesTest, APhotographIsUpright) {
    for (const int longSide : {40, 3000}) {
        QImage image(longSide, longSide / 2, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        QFile file(QString::fromStdString(Save(image, "photograph.jpg")));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const QByteArray bytes = file.readAll();
        file.seek(2);
        file.write(turnedCamera + bytes.mid(2));
        file.close();
        const Picture picture = ReadPicture(file.fileName().toStdString());
        EXPECT_EQ(picture.height, std::min(longSide, LargestPictureSide));
        EXPECT_EQ(picture.width, picture.height / 2);
    }
}

TEST_F(PicturesTest, ALargePictureIsScaledDown) {
    QImage image(3000, 1500, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const Picture picture = ReadPicture(Save(image, "large.png"));
    EXPECT_EQ(picture.width, LargestPictureSide);
    EXPECT_EQ(picture.height, LargestPictureSide / 2);
}

TEST_F(PicturesTest, AVeryNarrowPictureKeepsAPixel) {
    QImage image(1, 3000, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const Picture picture = ReadPicture(Save(image, "narrow.png"));
    EXPECT_EQ(picture.width, 1);
    EXPECT_EQ(picture.height, LargestPictureSide);
}

TEST_F(PicturesTest, AFileThatIsNotAPictureIsAnErrorWithItsName) {
    const std::string missing = m_folder.filePath("missing.png").toStdString();
    const Error error = RaisedBy([&] { ReadPicture(missing); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description().rfind("The picture '" + missing + "' can't be read: ", 0), 0u) << error.Description();
    QFile text(m_folder.filePath("text.png"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no picture");
    text.close();
    EXPECT_EQ(RaisedBy([&] { ReadPicture(text.fileName().toStdString()); }).Number(), ErrorNumber::General);
}

}  // namespace
}  // namespace quellbrook::testing
