#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quellbrook {

// A picture as device pixels, 0xAARRGGBB each, row by row from the top left. Scale is how many device pixels a
// device-independent pixel has.
struct Picture {
    int32_t width = 0;
    int32_t height = 0;
    double scale = 1;
    std::vector<uint32_t> pixels;  // width * height

    uint32_t At(int32_t x, int32_t y) const { return pixels[static_cast<size_t>(y) * width + x]; }
    bool operator==(const Picture&) const = default;
};

// Decodes a picture file; a failure is Error 5 with a sentence.
using PictureLoader = std::function<Picture(const std::string& fileName)>;

// The picture in the file, turned as its camera says, made smaller where a side has more than LargestPictureSide
// pixels. Error 91 while no loader is installed; the loader's Error for a file that is not there or shows no picture.
Picture LoadPicture(const std::string& fileName);
void SetPictureLoader(PictureLoader loader);

inline constexpr int32_t LargestPictureSide = 1024;

}  // namespace quellbrook
