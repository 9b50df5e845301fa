#pragma once

#include "host/Picture.h"

#include <QImage>

namespace quellbrook {

// With the device pixel ratio that the picture's scale is.
QImage ToImage(const Picture& picture);
Picture ToPicture(const QImage& image);

// From now on LoadPicture reads what the toolkit reads: PNG, JPEG, GIF, BMP at least.
void InstallPictureLoader();

}  // namespace quellbrook
