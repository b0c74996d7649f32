// How a current value follows its target: one step per drawn frame, fast while far away, landing without
// overshoot.
#pragma once

namespace fovix {

/// Zoom per frame of the single views and of the 180-degree view, from a target of 1 on.
inline constexpr double kZoomStep = 0.38;

/// The next value of an angle: at most 10 degrees nearer to its target. A gliding view, one that was flung,
/// moves a sixth as fast as one under a finger.
double easeStep(double current, double target, bool gliding);

/// The next value of a zoom: nearer by zoomStep, or by a small fixed step when the target is below 1.
double easeZoom(double current, double target, double zoomStep = kZoomStep);

}  // namespace fovix
