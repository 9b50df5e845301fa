#pragma once

#include <cstdint>
#include <vector>

namespace quellbrook::sample {

struct Color {
    uint8_t red, green, blue;
};

// A picture of at most sixteen colors.
struct Picture {
    int32_t width = 0;
    int32_t height = 0;
    std::vector<Color> colors;
    std::vector<uint8_t> dots;  // row by row from the top; each is an index into the colors
};

// A shape. Coverage is computed with integers, so pictures are equal on every machine.
struct Shape {
    enum class Kind {
        Box,    // left, top, right, bottom; the last two are exclusive
        Disc,   // the largest ellipse in such a box
        Line,   // x, y to x, y, thickness; with round ends
        Wedge,  // a triangle: x, y three times
    };
    Kind kind;
    uint8_t color;
    int32_t a, b, c, d, e = 0, f = 0;
};

// Sets the dots that the shape covers, clipped to the picture.
void Draw(Picture& picture, const Shape& shape);

}  // namespace quellbrook::sample
