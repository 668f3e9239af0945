// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace tolvex {

/// Window geometry is stored in twips, 1/1440 inch. Qt's pixels are device-independent: 96 an inch
/// at any scale factor.
inline constexpr double kTwipsPerPixel = 15;

inline int PixelsFromTwips(double twips) {
    return static_cast<int>(std::lround(twips / kTwipsPerPixel));
}

inline double TwipsFromPixels(int pixels) {
    return pixels * kTwipsPerPixel;
}

}  // namespace tolvex
