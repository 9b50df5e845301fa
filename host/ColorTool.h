#pragma once

#include <cstdint>

namespace quellbrook {

// Shades of a color, 0xBBGGRR.
class ColorTool {
public:
    static ColorTool FromColor(int32_t color);
    // Mixes the color with white by the factor: 0 returns it unchanged, 1 white, -1 black. Rounds each channel.
    ColorTool Shade(float factor) const;
    int32_t ToColor() const;

private:
    explicit ColorTool(int32_t color) : m_color(color) {}
    int32_t m_color;
};

}  // namespace quellbrook
