// The unit of all stored geometry: 15 twips are one logical pixel, on every screen.
#pragma once

#include <algorithm>
#include <cmath>

namespace vistor {

inline constexpr int kTwipsPerPixel = 15;

/// The nearest pixel, bounded to what a window system can place.
inline int toPixels(double twips) {
    constexpr double kFarthest = 32000;
    return static_cast<int>(std::lround(std::clamp(twips / kTwipsPerPixel, -kFarthest, kFarthest)));
}

inline float toTwips(double pixels) {
    return static_cast<float>(pixels * kTwipsPerPixel);
}

} // namespace vistor
