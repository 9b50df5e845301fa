#pragma once

#include "demo/sample/CompanionFiles.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quellbrook::sample {

// The pictures that attachments refer to. All departments share them; the file name determines the picture.

// The attachment folders, relative to the folder of the database file.
inline constexpr const char* PropertyPictures = "Pictures/Property";
inline constexpr const char* VehiclePictures = "Pictures/Vehicles";

// The number of pictures for each category of property.
inline constexpr int32_t PicturesOfACategory = 3;

// The file name in the folder. Every view from 0 on has a picture. An unknown or inactive category shows a box or a
// car, an unknown color is white.
std::string PropertyPictureName(int32_t category, int32_t view);
std::string VehiclePictureName(int32_t category, const std::string& color);

std::vector<CompanionFile> DrawPictures();

}  // namespace quellbrook::sample
