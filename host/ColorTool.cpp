#include "host/ColorTool.h"

#include <algorithm>
#include <cmath>

namespace quellbrook {

namespace {

int32_t ShadeChannel(int32_t channel, float factor) {
    const float share = std::clamp(factor, -1.0f, 1.0f);
    const float target = share < 0 ? 0.0f : 255.0f;
    return static_cast<int32_t>(
        std::lround(static_cast<float>(channel) + (target - static_cast<float>(channel)) * std::fabs(share)));
}

}  // namespace

ColorTool ColorTool::FromColor(int32_t color) { return ColorTool(color); }

ColorTool ColorTool::Shade(float factor) const {
    int32_t shaded = 0;
    for (const int shift : {0, 8, 16}) shaded |= ShadeChannel((m_color >> shift) & 0xFF, factor) << shift;
    return ColorTool(shaded);
}

int32_t ColorTool::ToColor() const { return m_color; }

}  // namespace quellbrook
