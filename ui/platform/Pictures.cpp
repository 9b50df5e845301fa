#include "ui/platform/Pictures.h"

#include "base/Error.h"
#include "ui/platform/Strings.h"

#include <QImageReader>

#include <algorithm>

namespace quellbrook {

Picture ReadPicture(const std::string& fileName) {
    QImageReader reader(ToQString(fileName));
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (std::max(size.width(), size.height()) > LargestPictureSide)
        reader.setScaledSize(
            size.scaled(LargestPictureSide, LargestPictureSide, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    const QImage image = reader.read();
    if (image.isNull()) {
        Raise(ErrorNumber::General, "LoadPicture",
              "The picture '" + fileName + "' can't be read: " + ToUtf8(reader.errorString()) + ".");
    }
    return ToPicture(image);
}

QImage ToImage(const Picture& picture) {
    QImage image(picture.width, picture.height, QImage::Format_ARGB32);
    for (int y = 0; y < picture.height; ++y) {
        const auto row = picture.pixels.begin() + static_cast<ptrdiff_t>(y) * picture.width;
        std::copy(row, row + picture.width, reinterpret_cast<QRgb*>(image.scanLine(y)));
    }
    image.setDevicePixelRatio(picture.scale);
    return image;
}

Picture ToPicture(const QImage& image) {
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    Picture picture;
    picture.width = source.width();
    picture.height = source.height();
    picture.scale = source.devicePixelRatio();
    picture.pixels.reserve(static_cast<size_t>(source.width()) * static_cast<size_t>(source.height()));
    for (int y = 0; y < source.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        picture.pixels.insert(picture.pixels.end(), row, row + source.width());
    }
    return picture;
}

}  // namespace quellbrook
