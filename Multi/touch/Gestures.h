// Arithmetic of gestures that the touch controllers share. Whatever coordinates a host reports, results are
// finite.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "view/RotateZoomView.h"

namespace fovix {

/// Degrees of a view per pixel of a drag.
inline constexpr double kDegreesPerPixel = 0.44444445f;

/// Limit of a target that turns freely.
inline constexpr double kNoLimit = std::numeric_limits<double>::max();

inline constexpr float kLargestFloat = std::numeric_limits<float>::max();

/// Pixels from one touch event to the next, in the single precision of the events.
inline float dragDistance(float from, float to) {
    return std::clamp(to - from, -kLargestFloat, kLargestFloat);
}

/// Distance of two fingers in pixels; never more than a float holds.
inline double fingerDistance(float x1, float y1, float x2, float y2) {
    const double dx = dragDistance(x1, x2), dy = dragDistance(y1, y2);
    return std::min<double>(std::sqrt(dx * dx + dy * dy), kLargestFloat);
}

/// A target after a drag of so many degrees at normal size, kept within ±limit. From zoom 2 on the view turns
/// more slowly, so that the picture stays under the finger.
inline double draggedTarget(double target, double degrees, double zoom, double limit) {
    const double bound = std::min(limit, kNoLimit);
    return std::clamp(target + degrees / (std::max(zoom, 2.0) * 0.5), -bound, bound);
}

}  // namespace fovix
