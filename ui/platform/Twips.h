#pragma once

#include <cmath>

namespace quellbrook {

// Lengths of views and controls are in twips, 15 per device-independent pixel at every scale factor.
inline constexpr float TwipsPerPixel = 15.0f;

inline int ToPixels(float twips) { return static_cast<int>(std::lround(twips / TwipsPerPixel)); }
inline float ToTwips(double pixels) { return static_cast<float>(pixels * TwipsPerPixel); }

}  // namespace quellbrook
