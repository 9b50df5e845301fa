#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quellbrook {

// A picture as device pixels, 0xAARRGGBB each, row by row from the top left. Scale is the number of device pixels per
// device-independent pixel.
struct Picture {
    int32_t width = 0;
    int32_t height = 0;
    double scale = 1;
    std::vector<uint32_t> pixels;  // width * height

    uint32_t At(int32_t x, int32_t y) const { return pixels[static_cast<size_t>(y) * width + x]; }
    bool operator==(const Picture&) const = default;
};

// Decodes a picture file, applies the orientation that its camera recorded, and scales it down if a side exceeds
// LargestPictureSide pixels. Error 5 with a sentence for a file that does not exist or is not a picture.
Picture LoadPicture(const std::string& fileName);

inline constexpr int32_t LargestPictureSide = 1024;

}  // namespace quellbrook
