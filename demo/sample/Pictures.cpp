#include "demo/sample/Pictures.h"

#include "demo/sample/Codes.h"
#include "demo/sample/Motifs.h"
#include "demo/sample/Png.h"
#include "demo/sample/Words.h"

#include <algorithm>

namespace quellbrook::sample {

namespace {

// The variations of one motif.
struct Tint {
    Color back, shade, main, light;
};

const Tint tints[PicturesOfACategory] = {
    {{219, 214, 203}, {190, 184, 171}, {46, 92, 148}, {112, 154, 201}},
    {{203, 211, 216}, {172, 182, 189}, {148, 54, 50}, {204, 120, 112}},
    {{226, 226, 220}, {196, 197, 189}, {52, 112, 78}, {122, 170, 140}},
};

constexpr Color yard = {206, 207, 204}, yardShade = {172, 174, 171};

struct Paint {
    const char* name;
    Color main, light;
};
const Paint paints[] = {
    {"White", {244, 244, 242}, {214, 216, 218}}, {"Silver", {176, 182, 188}, {214, 219, 224}},
    {"Black", {38, 40, 44}, {92, 96, 102}},      {"Blue", {38, 82, 150}, {104, 148, 206}},
    {"Red", {168, 40, 38}, {216, 106, 100}},     {"Green", {44, 104, 66}, {112, 166, 130}},
    {"Gray", {112, 116, 120}, {160, 164, 168}},  {"Tan", {196, 174, 138}, {224, 208, 182}},
};

std::vector<Color> Palette(const Tint& tint) {
    return {tint.back,       tint.shade,      tint.main,     tint.light,      {58, 62, 68}, {250, 250, 248},
            {188, 194, 200}, {128, 134, 142}, {136, 92, 56}, {238, 228, 196}, {24, 26, 28}, {196, 48, 44},
            {164, 204, 222}, {226, 184, 66},  {78, 140, 92}, {184, 112, 64}};
}

Picture Painted(const std::vector<Shape>& motif, const Tint& tint) {
    Picture picture{PictureWidth, PictureHeight, Palette(tint), {}};
    picture.dots.assign(static_cast<size_t>(PictureWidth) * PictureHeight, Ink::Back);
    for (const Shape& shape : motif) Draw(picture, shape);
    Draw(picture, {Shape::Kind::Box, Ink::White, 10, 106, 150, 116});
    for (int32_t mark = 0; mark <= 14; ++mark) {
        const int32_t x = 10 + mark * 10 - (mark == 14 ? 1 : 0);
        Draw(picture, {Shape::Kind::Box, Ink::Black, x, 106, x + 1, mark % 5 == 0 ? 114 : 111});
    }
    return picture;
}

std::string NameOf(const std::vector<Code>& codes, int32_t code, int32_t otherwise) {
    const auto coded = [&codes](int32_t wanted) {
        return std::find_if(codes.begin(), codes.end(),
                            [wanted](const Code& entry) { return entry.active && entry.code == wanted; });
    };
    const auto found = coded(code);
    return found == codes.end() ? coded(otherwise)->text : found->text;
}

std::string InFolder(const char* folder, const std::string& name) { return std::string(folder) + "/" + name; }

}  // namespace

std::string PropertyPictureName(int32_t category, int32_t view) {
    const std::string name = NameOf(PropertyCategories(), category, Category::Property);
    return name + " " + std::to_string(view % PicturesOfACategory + 1) + ".png";
}

std::string VehiclePictureName(int32_t category, const std::string& color) {
    const auto paint = std::find_if(std::begin(paints), std::end(paints),
                                    [&color](const Paint& candidate) { return candidate.name == color; });
    const char* name = paint == std::end(paints) ? paints[0].name : paint->name;
    return NameOf(VehicleCategories(), category, 1) + ", " + name + ".png";
}

std::vector<CompanionFile> DrawPictures() {
    std::vector<CompanionFile> files;
    for (const Code& category : PropertyCategories()) {
        if (!category.active) continue;
        for (int32_t view = 0; view < PicturesOfACategory; ++view) {
            const Picture picture = Painted(PropertyMotif(category.code), tints[view]);
            files.push_back({InFolder(PropertyPictures, PropertyPictureName(category.code, view)), EncodePng(picture)});
        }
    }
    for (const Code& category : VehicleCategories()) {
        if (!category.active) continue;
        for (const Paint& paint : paints) {
            const Picture picture = Painted(VehicleMotif(category.code), {yard, yardShade, paint.main, paint.light});
            const std::string name = VehiclePictureName(category.code, paint.name);
            files.push_back({InFolder(VehiclePictures, name), EncodePng(picture)});
        }
    }
    return files;
}

}  // namespace quellbrook::sample
