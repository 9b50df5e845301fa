#pragma once

#include "demo/sample/Rows.h"

namespace quellbrook::sample {

// How the pictures of an item are filed. Only One and Several have a main picture that can be shown.
enum class Filing {
    One,
    Several,   // three of them, the second is the main one
    NoMain,    // pictures, none of them the main one
    NoFolder,  // the main one is filed in no folder
    Gone,      // the main one is not filed any more
};

// Files the pictures of an item that is described. The view tells which of those of its category comes first.
void AttachPictures(Property& property, Filing filing, int32_t view);
void AttachPictures(Vehicle& vehicle, Filing filing);

// The numbers of the folders, with the paths in Pictures.h.
inline constexpr int32_t PropertyFolder = 1, VehicleFolder = 2;

}  // namespace quellbrook::sample
