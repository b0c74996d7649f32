// How a current value follows its target: one step per rendered frame, fast while far away, landing without
// overshoot.
#pragma once

namespace fovix {

/// Zoom per frame of the single views and of the 180-degree view, for targets of 1 and above.
inline constexpr double kZoomStep = 0.38;

/// Moves an angle towards its target by at most 10 degrees; one sixth of the speed while gliding after a
/// fling.
double easeStep(double current, double target, bool gliding);

/// Moves a zoom towards its target by zoomStep, or by a small fixed step if the target is below 1.
double easeZoom(double current, double target, double zoomStep);

}  // namespace fovix
