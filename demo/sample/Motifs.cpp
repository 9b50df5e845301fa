#include "demo/sample/Motifs.h"

#include "demo/sample/Codes.h"

#include <map>

namespace quellbrook::sample {

namespace {

using namespace Ink;
using Shapes = std::vector<Shape>;

Shape Box(uint8_t color, int32_t left, int32_t top, int32_t right, int32_t bottom) {
    return {Shape::Kind::Box, color, left, top, right, bottom};
}
Shape Disc(uint8_t color, int32_t left, int32_t top, int32_t right, int32_t bottom) {
    return {Shape::Kind::Disc, color, left, top, right, bottom};
}
Shape Line(uint8_t color, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t thickness) {
    return {Shape::Kind::Line, color, x1, y1, x2, y2, thickness};
}
Shape Wedge(uint8_t color, int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t x3, int32_t y3) {
    return {Shape::Kind::Wedge, color, x1, y1, x2, y2, x3, y3};
}

const std::map<int32_t, Shapes>& PropertyMotifs() {
    static const std::map<int32_t, Shapes> motifs = {
        {Category::Jewelry,
         {Disc(Shade, 45, 84, 115, 98), Disc(Yellow, 50, 33, 110, 93), Disc(Back, 60, 43, 100, 83),
          Wedge(Glass, 64, 22, 96, 22, 80, 42), Wedge(White, 70, 14, 90, 14, 80, 24),
          Wedge(Glass, 70, 14, 64, 22, 80, 22), Wedge(Glass, 90, 14, 96, 22, 80, 22)}},
        {Category::Currency,
         {Box(Shade, 30, 40, 138, 88), Box(Paper, 24, 22, 122, 68), Box(Green, 28, 26, 126, 72),
          Box(Paper, 30, 28, 132, 78), Box(Green, 32, 30, 134, 80), Disc(Paper, 68, 38, 98, 72),
          Disc(Green, 76, 44, 90, 66), Box(White, 36, 34, 46, 40), Box(White, 120, 70, 130, 76)}},
        {Category::Documents,
         {Box(Shade, 50, 16, 116, 98), Box(Paper, 46, 12, 112, 94), Wedge(Shade, 98, 12, 112, 12, 112, 26),
          Wedge(White, 98, 12, 98, 26, 112, 26), Box(Main, 54, 22, 90, 26), Box(Black, 54, 34, 104, 36),
          Box(Black, 54, 42, 104, 44), Box(Black, 54, 50, 96, 52), Box(Black, 54, 58, 104, 60),
          Box(Black, 54, 66, 82, 68), Disc(Red, 88, 72, 104, 88)}},
        {Category::Electronics,
         {Disc(Shade, 24, 78, 136, 94), Box(Dark, 40, 16, 120, 72), Box(Glass, 45, 21, 115, 67),
          Wedge(White, 45, 21, 75, 21, 45, 51), Wedge(Metal, 40, 72, 120, 72, 132, 88),
          Wedge(Metal, 40, 72, 132, 88, 28, 88), Box(Steel, 28, 86, 132, 90), Box(Steel, 66, 80, 94, 85)}},
        {Category::Clothing,
         {Disc(Shade, 48, 88, 112, 100), Line(Main, 58, 34, 36, 80, 16), Line(Main, 102, 34, 124, 80, 16),
          Disc(Light, 62, 12, 98, 46), Box(Main, 55, 28, 105, 94), Disc(Dark, 68, 18, 92, 40),
          Box(Dark, 79, 38, 81, 94), Line(Light, 62, 74, 70, 84, 3), Line(Light, 98, 74, 90, 84, 3)}},
        {Category::Tools,
         {Disc(Shade, 40, 84, 126, 98), Line(Leather, 46, 88, 98, 36, 9), Line(Main, 46, 88, 66, 68, 11),
          Line(Steel, 86, 22, 116, 50, 15), Line(Metal, 84, 22, 96, 32, 17), Wedge(Steel, 112, 42, 130, 66, 122, 44)}},
        {Category::Trace,
         {Disc(Shade, 40, 34, 124, 102), Disc(Steel, 40, 16, 120, 96), Disc(Metal, 45, 21, 115, 91),
          Wedge(Glass, 60, 40, 84, 34, 70, 62), Wedge(White, 84, 34, 92, 52, 70, 62),
          Wedge(Glass, 82, 66, 104, 56, 96, 80), Wedge(White, 62, 70, 76, 68, 70, 82)}},
        {Category::Accessories,
         {Disc(Shade, 38, 84, 122, 98), Disc(Leather, 58, 16, 102, 72), Disc(Back, 65, 24, 95, 64),
          Box(Main, 44, 44, 116, 92), Wedge(Dark, 44, 44, 116, 44, 80, 68), Disc(Yellow, 75, 58, 85, 68)}},
        {Category::Property,
         {Box(Shade, 46, 36, 124, 96), Box(Leather, 40, 34, 116, 92), Wedge(Copper, 40, 34, 116, 34, 102, 20),
          Wedge(Copper, 40, 34, 102, 20, 54, 20), Box(Paper, 72, 34, 84, 92), Box(White, 90, 66, 110, 84),
          Box(Black, 93, 70, 107, 72), Box(Black, 93, 76, 103, 78)}},
        {Category::Biological,
         {Disc(Shade, 36, 86, 124, 98), Line(Glass, 48, 84, 104, 28, 16), Line(White, 50, 82, 100, 32, 8),
          Line(Paper, 58, 74, 100, 32, 3), Disc(Red, 46, 76, 62, 92), Line(Main, 102, 30, 116, 16, 18)}},
        {Category::Metal,
         {Disc(Shade, 34, 34, 134, 104), Disc(Copper, 28, 20, 124, 96), Disc(Leather, 36, 27, 116, 89),
          Disc(Copper, 43, 33, 109, 83), Disc(Back, 52, 41, 100, 75), Line(Copper, 116, 70, 140, 86, 6),
          Line(Dark, 70, 20, 66, 42, 4)}},
        {Category::Keys,
         {Disc(Shade, 30, 84, 132, 98), Disc(Metal, 32, 18, 80, 66), Disc(Back, 42, 28, 70, 56),
          Line(Metal, 70, 54, 126, 86, 8), Line(Metal, 108, 76, 100, 90, 7), Line(Metal, 122, 84, 114, 96, 7),
          Line(Main, 48, 62, 42, 92, 20), Disc(White, 41, 62, 49, 70)}},
        {Category::Drugs,
         {Box(Shade, 50, 26, 122, 98), Box(Glass, 44, 20, 116, 94), Disc(White, 50, 44, 110, 92),
          Box(Glass, 44, 20, 116, 44), Box(Red, 44, 20, 116, 30), Box(White, 60, 23, 100, 27)}},
        {Category::Firearms,
         {Disc(Shade, 30, 84, 130, 98), Line(Dark, 52, 50, 42, 84, 20), Disc(Dark, 60, 46, 86, 70),
          Disc(Back, 65, 50, 81, 66), Box(Black, 34, 28, 128, 46), Box(Dark, 44, 46, 92, 52),
          Box(Steel, 92, 34, 124, 37), Box(Main, 120, 24, 125, 28)}},
        {Category::Ammunition,
         {Disc(Shade, 34, 86, 130, 98), Disc(Copper, 42, 22, 60, 66), Box(Yellow, 42, 46, 60, 92),
          Disc(Copper, 70, 16, 88, 60), Box(Yellow, 70, 40, 88, 92), Disc(Copper, 98, 22, 116, 66),
          Box(Yellow, 98, 46, 116, 92), Box(Leather, 42, 87, 60, 90), Box(Leather, 70, 87, 88, 90),
          Box(Leather, 98, 87, 116, 90)}},
        {Category::Media,
         {Disc(Shade, 42, 18, 126, 102), Disc(Metal, 38, 14, 122, 98), Wedge(Glass, 80, 56, 122, 56, 108, 26),
          Wedge(White, 80, 56, 38, 56, 52, 86), Disc(Main, 64, 40, 96, 72), Disc(White, 72, 48, 88, 64),
          Disc(Back, 76, 52, 84, 60)}},
        {Category::Bicycles,
         {Disc(Shade, 20, 88, 140, 100), Disc(Black, 18, 44, 68, 94), Disc(Back, 23, 49, 63, 89),
          Disc(Black, 92, 44, 142, 94), Disc(Back, 97, 49, 137, 89), Line(Main, 43, 69, 64, 38, 4),
          Line(Main, 64, 38, 106, 38, 4), Line(Main, 108, 30, 117, 69, 4), Line(Main, 43, 69, 78, 72, 4),
          Line(Main, 78, 72, 106, 38, 4), Line(Main, 78, 72, 62, 32, 4), Line(Dark, 54, 28, 72, 28, 6),
          Line(Dark, 108, 28, 98, 20, 4), Disc(Steel, 71, 65, 85, 79)}},
        {Category::VehicleParts,
         {Disc(Shade, 40, 22, 130, 102), Disc(Black, 36, 14, 120, 98), Disc(Metal, 50, 28, 106, 84),
          Disc(Steel, 70, 48, 86, 64), Line(Steel, 78, 56, 78, 32, 5), Line(Steel, 78, 56, 100, 68, 5),
          Line(Steel, 78, 56, 56, 68, 5)}},
    };
    return motifs;
}

void AddWheel(Shapes& shapes, int32_t x, int32_t radius) {
    const int32_t y = 82, rim = radius / 2;
    shapes.push_back(Disc(Black, x - radius, y - radius, x + radius, y + radius));
    shapes.push_back(Disc(Metal, x - rim, y - rim, x + rim, y + rim));
}

Shapes WithWheels(Shapes shapes, const std::vector<int32_t>& places, int32_t radius) {
    shapes.insert(shapes.begin(), Disc(Shade, 10, 84, 152, 100));
    for (const int32_t x : places) AddWheel(shapes, x, radius);
    return shapes;
}

const std::map<int32_t, Shapes>& VehicleMotifs() {
    static const std::map<int32_t, Shapes> motifs = {
        {1, WithWheels({Box(Main, 14, 54, 148, 82), Wedge(Main, 34, 55, 56, 30, 56, 55), Box(Main, 56, 30, 104, 55),
                        Wedge(Main, 104, 30, 130, 55, 104, 55), Box(Glass, 58, 35, 78, 54), Box(Glass, 83, 35, 104, 54),
                        Wedge(Glass, 42, 54, 58, 36, 58, 54), Wedge(Glass, 104, 36, 122, 54, 104, 54),
                        Box(Light, 14, 60, 148, 63), Box(Yellow, 142, 58, 148, 65), Box(Red, 14, 58, 20, 65)},
                       {43, 119}, 15)},
        {2, WithWheels({Box(Main, 12, 50, 150, 82), Box(Dark, 16, 50, 74, 56), Box(Main, 76, 26, 112, 52),
                        Wedge(Main, 112, 26, 128, 52, 112, 52), Box(Glass, 81, 31, 108, 50),
                        Wedge(Glass, 111, 31, 123, 50, 111, 50), Box(Light, 12, 62, 150, 65),
                        Box(Yellow, 144, 56, 150, 63), Box(Red, 12, 56, 17, 63)},
                       {42, 122}, 16)},
        {3, WithWheels({Box(Main, 14, 22, 120, 82), Wedge(Main, 120, 22, 146, 54, 120, 54), Box(Main, 120, 54, 148, 82),
                        Wedge(Glass, 118, 28, 138, 52, 118, 52), Box(Glass, 96, 28, 114, 52),
                        Box(Light, 14, 58, 148, 61), Box(Yellow, 142, 60, 148, 67), Box(Red, 14, 56, 19, 66)},
                       {42, 120}, 15)},
        {4, WithWheels({Line(Steel, 44, 82, 72, 62, 5), Line(Metal, 116, 82, 98, 36, 5), Line(Dark, 98, 36, 86, 30, 5),
                        Disc(Steel, 64, 58, 96, 86), Disc(Main, 70, 40, 102, 62), Line(Dark, 40, 50, 76, 54, 9),
                        Disc(Yellow, 98, 36, 110, 48), Line(Steel, 70, 82, 34, 76, 5)},
                       {42, 118}, 20)},
        {5, WithWheels({Box(Main, 24, 26, 134, 74), Line(Steel, 134, 72, 152, 76, 5), Box(Light, 24, 44, 134, 47),
                        Box(Dark, 36, 74, 122, 78), Box(Red, 24, 62, 29, 70)},
                       {70, 98}, 13)},
    };
    return motifs;
}

}  // namespace

const std::vector<Shape>& PropertyMotif(int32_t category) {
    const auto found = PropertyMotifs().find(category);
    return found == PropertyMotifs().end() ? PropertyMotifs().at(Category::Property) : found->second;
}

const std::vector<Shape>& VehicleMotif(int32_t category) {
    const auto found = VehicleMotifs().find(category);
    return found == VehicleMotifs().end() ? VehicleMotifs().at(1) : found->second;
}

}  // namespace quellbrook::sample
