#pragma once

#include "base/Picture.h"

#include <QImage>

namespace quellbrook {

// The picture's scale becomes the image's device pixel ratio, and the reverse. A caller of
// StoredItem::GetBarcodeImage draws the barcode with ToImage.
QImage ToImage(const Picture& picture);
Picture ToPicture(const QImage& image);

// Implements LoadPicture with the formats that Qt reads: at least PNG, JPEG, GIF and BMP.
Picture ReadPicture(const std::string& fileName);

}  // namespace quellbrook
