// Arithmetic and constants of gestures that the touch controllers share. Whatever coordinates a host reports,
// results are finite.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Numbers.h"

namespace fovix {

/// Degrees of a view per pixel of a drag: 40 for 90 pixels, in the single precision of the events.
inline constexpr double kDegreesPerPixel = 0.44444445f;

/// What a cruise of speed 1 moves the view by in a frame: degrees, or units of an offset.
inline constexpr double kCruiseFactor = 0.2;

/// Limit of a target that turns freely.
inline constexpr double kNoLimit = std::numeric_limits<double>::max();

/// Degrees; an angle beyond loses its whole turns, before it loses the precision to show a degree.
inline constexpr double kMostTurn = 1e9;

inline double withoutTurns(double angle) {
    return std::fmod(angle, 360.0);
}

inline double clampTo(double value, double limit) {
    return std::clamp(value, -limit, limit);
}

/// Pixels from one touch event to the next, in the single precision of the events.
inline float dragDistance(float from, float to) {
    return std::clamp(to - from, -kLargestFloat, kLargestFloat);
}

/// Distance of two fingers in pixels; never more than a float holds.
inline double fingerDistance(float x1, float y1, float x2, float y2) {
    const double dx = dragDistance(x1, x2), dy = dragDistance(y1, y2);
    return std::min<double>(std::sqrt(dx * dx + dy * dy), kLargestFloat);
}

/// Above this zoom the view turns more slowly, so that the frame stays under the finger.
inline constexpr double kFullSpeedZoom = 2.0;

/// A target after a drag by some degrees, within ±limit.
inline double draggedTarget(double target, double degrees, double zoom, double limit) {
    return clampTo(target + degrees / (std::max(zoom, kFullSpeedZoom) / kFullSpeedZoom),
                   std::min(limit, kNoLimit));
}

}  // namespace fovix
