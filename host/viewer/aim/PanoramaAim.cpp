#include "viewer/aim/PanoramaAim.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace fovix_host {
namespace {

// The library's geometry of the panorama.
constexpr double kRim = 85;       // degrees from the optical axis to the lens circle, for every lens
constexpr double kSphere = 1.09;  // radius of the hemisphere that carries the frame
constexpr double kMinZoom = 5, kMaxZoom = 90;
constexpr double kDegree = std::numbers::pi / 180;

// Half the field of view in which an eye, at this distance in front of the hemisphere's centre, sees half the
// given angle of it.
double halfView(double half, double eye) {
    return std::atan2(kSphere * std::sin(half * kDegree), eye + kSphere * std::cos(half * kDegree)) / kDegree;
}

// The inverse of the library's tilt for a ceiling mount: down to a zoom of 40 zooming in moves the eye
// towards the hemisphere; below, it narrows the field of view.
double tiltTowards(double angle, double zoom) {
    if (zoom > 40) {
        const double closer = (90 - zoom) / 50;
        return angle * 90 / (90 - 30.5 * closer) - 17 * closer;
    }
    const double narrower = (40 - zoom) / 35;
    return angle * 90 / (59.5 + 16 * narrower) - 17 + 30 * narrower;
}

}  // namespace

PanoramaAim::PanoramaAim(const LensCircle& lens, FrameRelay::Size frame) : _frame(frame) {
    const double across = static_cast<double>(frame.width) / lens.imageWidth;
    const double down = static_cast<double>(frame.height) / lens.imageHeight;
    _x = lens.xCenter * across;
    _y = lens.yCenter * down;
    _radius = lens.radius * std::min(across, down);
}

PanoramaAim::Polar PanoramaAim::polarOf(const FrameSpot& spot) const {
    const double x = spot.x - _x, y = spot.y - _y, distance = std::max(std::hypot(x, y), 1e-6);
    return {x / distance, y / distance, std::min(kRim * distance / _radius, kRim)};
}

double PanoramaAim::zoomFor(double pixels, bool onCeiling) const {
    constexpr double kMargin = 1.1;
    const double half = std::min(kMargin * kRim * pixels / _radius / 2, kRim);
    const double wallZoom = 2 * halfView(half, 1);
    // Inside the hemisphere the eye is just past the centre and sees 50 degrees more than the zoom.
    const double closeZoom = 2 * halfView(half, -0.12) - 50;
    // Further out the field of view stays at 90 degrees and the eye leaves the hemisphere.
    const double eye = kSphere * std::sin((half - 45) * kDegree) / std::sin(45 * kDegree);
    const double farZoom = 90 + (eye - 1) * 50 / 1.12;
    return std::clamp(!onCeiling ? wallZoom : closeZoom <= 40 ? closeZoom : farZoom, kMinZoom, kMaxZoom);
}

FrameSpot PanoramaAim::ceilingTarget(const FrameSpot& spot, double zoom) const {
    const Polar polar = polarOf(spot);
    const double tilt = tiltTowards(polar.angle, zoom);
    // A target in the corner of the frame has the maximum tilt at this zoom.
    const double maxTilt = kMaxZoom - zoom, corner = std::hypot(_frame.width, _frame.height) / 2;
    const double reach = maxTilt > 0 ? corner * std::clamp(tilt / maxTilt, 0.0, 1.0) : 0;
    return {_frame.width / 2.0 + polar.x * reach, _frame.height / 2.0 + polar.y * reach};
}

PanoramaAim::PanTilt PanoramaAim::onWall(const FrameSpot& spot, bool inverted) const {
    const Polar polar = polarOf(spot);
    const double aside = std::sin(polar.angle * kDegree), upright = inverted ? -1 : 1;
    const double x = aside * polar.x * upright, y = aside * polar.y * upright;
    return {90 - std::atan2(x, std::cos(polar.angle * kDegree)) / kDegree, 90 + std::asin(y) / kDegree};
}

}  // namespace fovix_host
