#pragma once

#include "demo/sample/Picture.h"

#include <cstdint>
#include <vector>

namespace quellbrook::sample {

// The motifs of item pictures, 160 dots wide and 120 high, with a scale below the object.
inline constexpr int32_t PictureWidth = 160, PictureHeight = 120;

// The colors of a motif by purpose. Back, Shade, Main and Light differ from picture to picture.
namespace Ink {
inline constexpr uint8_t Back = 0, Shade = 1, Main = 2, Light = 3, Dark = 4, White = 5, Metal = 6, Steel = 7,
                         Leather = 8, Paper = 9, Black = 10, Red = 11, Glass = 12, Yellow = 13, Green = 14, Copper = 15;
}

// By a category from Codes.h; a cardboard box for any other.
const std::vector<Shape>& PropertyMotif(int32_t category);
// By a category from Codes.h; a car for any other.
const std::vector<Shape>& VehicleMotif(int32_t category);

}  // namespace quellbrook::sample
