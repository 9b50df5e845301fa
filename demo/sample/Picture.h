#pragma once

#include <cstdint>
#include <vector>

namespace quellbrook::sample {

struct Colour {
    uint8_t red, green, blue;
};

// A picture of at most sixteen colours.
struct Picture {
    int32_t width = 0;
    int32_t height = 0;
    std::vector<Colour> colours;
    std::vector<uint8_t> dots;  // row after row from the top, each the place of its colour
};

// One thing to draw. Where a dot belongs to it is told by whole numbers alone, so that it looks the same everywhere.
struct Shape {
    enum class Kind {
        Box,    // left, top, right, bottom; the last two just outside
        Disc,   // the greatest ellipse in such a box
        Line,   // from x, y to x, y, its thickness; rounded ends
        Wedge,  // a triangle: three times x, y
    };
    Kind kind;
    uint8_t colour;
    int32_t a, b, c, d, e = 0, f = 0;
};

// Sets the dots that the shape covers; what lies outside the picture is cut off.
void Draw(Picture& picture, const Shape& shape);

}  // namespace quellbrook::sample
