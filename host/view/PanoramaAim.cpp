#include "view/PanoramaAim.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace fovix_host {
namespace {

constexpr double rim = 85;  // degrees from the lens's axis to its circle, as the library takes every lens
constexpr double closest = 5, farthest = 90;  // zooms
constexpr double degree = std::numbers::pi / 180;

}  // namespace

PanoramaAim::PanoramaAim(const LensCircle& lens, Pictures::Size picture) : _picture(picture) {
    const double across = static_cast<double>(picture.width) / lens.imageWidth;
    const double down = static_cast<double>(picture.height) / lens.imageHeight;
    _x = lens.xCenter * across;
    _y = lens.yCenter * down;
    _radius = lens.radius * std::min(across, down);
}

PanoramaAim::Polar PanoramaAim::polarOf(const PictureSpot& spot) const {
    const double x = spot.x - _x, y = spot.y - _y, distance = std::max(std::hypot(x, y), 1e-6);
    return {x / distance, y / distance, std::min(rim * distance / _radius, rim)};
}

double PanoramaAim::zoomFor(double pixels, bool onCeiling) const {
    const double angle = rim * pixels / _radius;
    // On a wall a view shows about 1.8 times its zoom; under a ceiling never less than some 50 degrees.
    const double zoom = onCeiling ? (angle - 44) / 0.78 : angle / 1.7;
    return std::clamp(zoom, closest, farthest);
}

PictureSpot PanoramaAim::ceilingTarget(const PictureSpot& spot, double zoom) const {
    const Polar polar = polarOf(spot);
    // The eye moves as the view tilts, and from nearby the same tilt turns it farther.
    const double nearer = (40 - zoom) / 35;
    const double tilt = polar.angle * 90 / (59.5 + 16 * nearer) - 17 + 30 * nearer;
    const double most = farthest - zoom, corner = std::hypot(_picture.width, _picture.height) / 2;
    const double reach = most > 0 ? corner * std::clamp(tilt / most, 0.0, 1.0) : 0;
    return {_picture.width / 2.0 + polar.x * reach, _picture.height / 2.0 + polar.y * reach};
}

PanoramaAim::PanTilt PanoramaAim::onWall(const PictureSpot& spot, bool inverted) const {
    const Polar polar = polarOf(spot);
    const double aside = std::sin(polar.angle * degree), upright = inverted ? -1 : 1;
    const double x = aside * polar.x * upright, y = aside * polar.y * upright;
    return {90 - std::atan2(x, std::cos(polar.angle * degree)) / degree, 90 + std::asin(y) / degree};
}

}  // namespace fovix_host
