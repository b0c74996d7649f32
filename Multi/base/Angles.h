// Angles: the one pi and the conversions between degrees and radians.
#pragma once

#include <numbers>

#include "base/Numbers.h"

namespace fovix {

inline constexpr double kPi = std::numbers::pi;

/// π ÷ 180 to ten digits for the matrices and to eight for the lens of the 360-degree meshes. Every rendered
/// frame depends on these digits: more of them would move vertices by a last bit and pixels with them.
inline constexpr double kMatrixRadiansPerDegree = 0.01745329252;
inline constexpr double kLensRadiansPerDegree = 0.017453293;

constexpr double toRadians(double degrees) {
    return degrees * kPi / 180.0;
}

constexpr double toDegrees(double radians) {
    return radians * 180.0 / kPi;
}

/// Truncates toward zero to whole degrees and wraps them to 0..359.
inline int wholeDegrees(double degrees) {
    const int remainder = truncateToInt(degrees) % 360;
    return remainder < 0 ? remainder + 360 : remainder;
}

}  // namespace fovix
