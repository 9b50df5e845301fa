#include "demo/sample/Picture.h"

#include <algorithm>

namespace quellbrook::sample {

namespace {

int64_t Square(int64_t number) { return number * number; }

// The center of the dot at x, y has the doubled coordinates 2x + 1, 2y + 1.
bool InDisc(const Shape& s, int64_t x, int64_t y) {
    const int64_t width = s.c - s.a, height = s.d - s.b;
    return Square((2 * x + 1 - s.a - s.c) * height) + Square((2 * y + 1 - s.b - s.d) * width) <= Square(width * height);
}

bool InLine(const Shape& s, int64_t x, int64_t y) {
    const int64_t alongX = s.c - s.a, alongY = s.d - s.b;
    const int64_t fromX = x - s.a, fromY = y - s.b;
    const int64_t length = Square(alongX) + Square(alongY);
    const int64_t along = fromX * alongX + fromY * alongY;
    if (along <= 0) return 4 * (Square(fromX) + Square(fromY)) <= Square(s.e);
    if (along >= length) return 4 * (Square(x - s.c) + Square(y - s.d)) <= Square(s.e);
    return 4 * Square(fromX * alongY - fromY * alongX) <= Square(s.e) * length;
}

int64_t Side(int64_t x1, int64_t y1, int64_t x2, int64_t y2, int64_t x, int64_t y) {
    return (x2 - x1) * (y - y1) - (y2 - y1) * (x - x1);
}

bool InWedge(const Shape& s, int64_t x, int64_t y) {
    const int64_t sides[] = {Side(s.a, s.b, s.c, s.d, x, y), Side(s.c, s.d, s.e, s.f, x, y),
                             Side(s.e, s.f, s.a, s.b, x, y)};
    const auto [least, greatest] = std::minmax({sides[0], sides[1], sides[2]});
    return least >= 0 || greatest <= 0;
}

bool Covers(const Shape& shape, int32_t x, int32_t y) {
    switch (shape.kind) {
    case Shape::Kind::Box: return x >= shape.a && x < shape.c && y >= shape.b && y < shape.d;
    case Shape::Kind::Disc: return InDisc(shape, x, y);
    case Shape::Kind::Line: return InLine(shape, x, y);
    case Shape::Kind::Wedge: return InWedge(shape, x, y);
    }
    return false;
}

// The bounding box: left, top, right, bottom.
Shape BoundsOf(const Shape& s) {
    Shape bounds{Shape::Kind::Box,   s.color,           std::min(s.a, s.c), std::min(s.b, s.d),
                 std::max(s.a, s.c), std::max(s.b, s.d)};
    if (s.kind == Shape::Kind::Line) {
        const int32_t more = s.e / 2 + 1;
        bounds.a -= more, bounds.b -= more, bounds.c += more, bounds.d += more;
    } else if (s.kind == Shape::Kind::Wedge) {
        bounds.a = std::min(bounds.a, s.e), bounds.b = std::min(bounds.b, s.f);
        bounds.c = std::max(bounds.c, s.e) + 1, bounds.d = std::max(bounds.d, s.f) + 1;
    }
    return bounds;
}

}  // namespace

void Draw(Picture& picture, const Shape& shape) {
    const Shape bounds = BoundsOf(shape);
    for (int32_t y = std::max(bounds.b, 0); y < std::min(bounds.d, picture.height); ++y) {
        for (int32_t x = std::max(bounds.a, 0); x < std::min(bounds.c, picture.width); ++x) {
            if (Covers(shape, x, y))
                picture.dots[static_cast<size_t>(y) * static_cast<size_t>(picture.width) + static_cast<size_t>(x)] =
                    shape.color;
        }
    }
}

}  // namespace quellbrook::sample
