#include "view/OverviewAim.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/Angles.h"

namespace fovix {

namespace {

constexpr double kMaxTilt = 90.0;

/// The strip's bottom edge aims at this tilt, its top edge at kMaxTilt less the zoom.
constexpr double kLowestStripTilt = 5.0;

/// An empty surface counts as a pixel wide and high, so that every aim is finite.
double atLeastOne(double length) {
    return std::max(length, 1.0);
}

}  // namespace

AimedView aimOnOverview(float x, float y, int backingWidth, int backingHeight) {
    const auto width = static_cast<double>(2 * std::int64_t{backingWidth} / 3);
    const auto height = static_cast<double>(2 * std::int64_t{backingHeight} / 3);
    const double cx = width * 0.5, cy = height * 0.5;
    const double dx = x - cx, dy = y - cy;
    const double radius = std::min(cx, cy) * 0.5;
    const double distance = std::sqrt(dx * dx + dy * dy);
    const double tilt = radius > 0.0 ? distance * kOverviewTilt / radius : kMaxTilt;
    return {toDegrees(std::atan2(dy, dx)) + 90.0, std::clamp(tilt, 0.0, kMaxTilt)};
}

AimedView aimOnStrip(float x, float y, double zoom, int backingWidth, int backingHeight) {
    const double pan = static_cast<double>(x * 360.0f) / atLeastOne(backingWidth) + 180.0;
    const double up = static_cast<double>(static_cast<float>(backingHeight) - y);
    const double tilt =
        up * (kMaxTilt - kLowestStripTilt - zoom) / atLeastOne(backingHeight / 3) + kLowestStripTilt;
    return {pan, tilt};
}

}  // namespace fovix
