#pragma once

#include "demo/sample/Rows.h"

namespace quellbrook::sample {

// How the pictures of an item are filed. Only One and Several have a main picture that can be shown.
enum class Filing {
    One,
    Several,   // three pictures, the second is the main one
    NoMain,    // pictures, none of them the main one
    NoFolder,  // the main picture has no folder
    Gone,      // the row of the main picture is missing
};

// Files pictures for an item that already has its description. The view selects the first of its category's pictures.
void AttachPictures(Property& property, Filing filing, int32_t view);
void AttachPictures(Vehicle& vehicle, Filing filing);

// The folder numbers with the paths from Pictures.h.
inline constexpr int32_t PropertyFolder = 1, VehicleFolder = 2;

}  // namespace quellbrook::sample
