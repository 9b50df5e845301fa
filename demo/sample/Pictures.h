#pragma once

#include "demo/sample/CompanionFiles.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quellbrook::sample {

// The drawn pictures that the attachments of items name. All departments share them: what one shows follows from its
// name alone.

// The folders of attachments. They are relative: they lie in the directory in which the database file stands.
inline constexpr const char* PropertyPictures = "Pictures/Property";
inline constexpr const char* VehiclePictures = "Pictures/Vehicles";

// How many pictures there are of each category of property.
inline constexpr int32_t PicturesOfACategory = 3;

// The name of the file in the folder. Any number of a view, from 0 on, has a picture; a category that is not known or
// no longer in use shows a box or a car, and a colour that is not known is white.
std::string PropertyPictureName(int32_t category, int32_t view);
std::string VehiclePictureName(int32_t category, const std::string& colour);

std::vector<CompanionFile> DrawPictures();

}  // namespace quellbrook::sample
