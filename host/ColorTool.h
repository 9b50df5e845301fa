#pragma once

#include <cstdint>

namespace quellbrook {

// Shades of a color, 0xBBGGRR.
class ColorTool {
public:
    static ColorTool FromColor(int32_t color);
    // Mixes with white by the factor: 0 changes nothing, 1 gives white, -1 black. Each channel is rounded to nearest.
    ColorTool Shade(float factor) const;
    int32_t ToColor() const;

private:
    explicit ColorTool(int32_t color) : m_color(color) {}
    int32_t m_color;
};

}  // namespace quellbrook
