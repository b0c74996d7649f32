#include "viewer/aim/LibraryCalls.h"

#include <algorithm>
#include <cmath>

#include "viewer/aim/PanoramaAim.h"

namespace fovix_host {
namespace {

constexpr double kWholeFrame = 1.05;          // zooms up to this show the whole frame
constexpr double kCloseView = 40;             // zoom of a panorama that looks at a point
constexpr double kTurnOfDrag = 1024.0 / 360;  // degrees per unit of zoom, for a drag as wide as the surface
constexpr double kCurvedZoom = 10;            // the usual zoom of the 180-degree type's curved screen

int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

// The library's default circle.
LensCircle defaultLens(FrameRelay::Size frame) {
    const int x = std::max(frame.width / 2, 1), y = std::max(frame.height / 2, 1);
    return {x, y, std::min(x, y), frame.width, frame.height};
}

}  // namespace

double LibraryCalls::zoom() const {
    double zoom = 1;
    Fovix_GetRotateZoom(_view, nullptr, nullptr, nullptr, &zoom);
    return zoom;
}

// On a black background, which cannot be mistaken for the marker colour.
PickedSpots LibraryCalls::pick(const std::vector<SurfacePosition>& points) const {
    Fovix_SetBackground(_view, 0);
    PickedSpots picked = pickSpots(_view, _frames(), _scale, points);
    Fovix_SetBackground(_view, _shown.background());
    return picked;
}

void LibraryCalls::lookAt(SurfacePosition at) {
    switch (type()) {
        case FOVIX_TYPE_360VR:
        case FOVIX_TYPE_180VR:
            return lookAtTarget(at);
        case FOVIX_TYPE_SINGLE_PIP:
            return magnifyInset(at);
        case FOVIX_TYPE_MULTI_IMAGE:
        case FOVIX_TYPE_MULTI_LENS:
            return _say("this type cannot be steered");
        default:
            return magnifyFlat(at);
    }
}

void LibraryCalls::lookAtTarget(SurfacePosition at) {
    const PickedSpots picked = pick({at});
    if (picked.spots.empty()) return _say("no image there");
    // Only the curved screen supports targets; at lower zooms the type shows a different projection.
    if (type() == FOVIX_TYPE_180VR && zoom() < kCurvedZoom / 2)
        Fovix_SetPTZFor180VR(_view, 0, 0, 0, kCurvedZoom);
    const FrameSpot& spot = picked.spots.front();
    if (type() == FOVIX_TYPE_360VR) return lookAround(spot, picked.frame, 0);
    Fovix_DisplayTarget(_view, rounded(spot.x), rounded(spot.y), picked.frame.width, picked.frame.height);
}

// Centres the point in a single screen and zooms to the given extent, or to a default close-up. Never zooms
// out.
void LibraryCalls::lookAround(const FrameSpot& spot, FrameRelay::Size frame, double extent) {
    if (Fovix_GetShape(_view) != FOVIX_SHAPE_SINGLE) Fovix_SetShape(_view, FOVIX_SHAPE_SINGLE);
    Fovix_Drawself(_view);  // getters return the view of the last rendered frame
    double pan = 0, tilt = 0, zoom = 0;
    Fovix_GetPTZ(_view, &pan, &tilt, &zoom, nullptr);
    const PanoramaAim aim(_shown.lens().value_or(defaultLens(frame)), frame);
    const int mount = Fovix_GetCameraMount(_view);
    // With a floor mount, views turn only half around; the library looks as close to the point as it can.
    if (mount == FOVIX_MOUNT_FLOOR)
        return Fovix_DisplayTarget(_view, rounded(spot.x), rounded(spot.y), frame.width, frame.height);
    const bool onCeiling = mount == FOVIX_MOUNT_CEILING;
    const double closer = std::min(zoom, extent > 0 ? aim.zoomFor(extent, onCeiling) : kCloseView);
    spread(zoom / closer);
    if (onCeiling) {
        const FrameSpot target = aim.ceilingTarget(spot, closer);
        return Fovix_DisplayTarget(_view, rounded(target.x), rounded(target.y), frame.width, frame.height);
    }
    const auto there = aim.onWall(spot, mount == FOVIX_MOUNT_WALL_INVERTED);
    turnBy(there.pan - pan, there.tilt - tilt, closer);
}

// Turns the view by degrees, as a drag.
void LibraryCalls::turnBy(double pan, double tilt, double zoom) {
    const double degreesPerPixel = kTurnOfDrag * zoom / _scale.width;
    touchDown({0, 0});
    touchMove({static_cast<float>(pan / degreesPerPixel), static_cast<float>(-tilt / degreesPerPixel)});
    touchUp({0, 0});
}

// Zooms in, as a slow pinch: a fast one would be a flick.
void LibraryCalls::spread(double ratio) {
    if (ratio <= 1) return;
    constexpr double kSlow = 1.15;  // ratio of one step
    const SurfacePosition middle{static_cast<float>(_scale.width) / 2, static_cast<float>(_scale.height) / 2};
    touchDown(middle);
    for (double reached = 1; reached < ratio;) {
        reached = std::min(reached * kSlow, ratio);
        pinchScale(static_cast<float>(reached));
    }
    touchUp(middle);
}

// Shows a third of the frame around the point, or the whole frame again.
void LibraryCalls::magnifyInset(SurfacePosition at) {
    const PickedSpots picked = pick({at});
    const auto [width, height] = picked.frame;
    if (width < 1) return;
    if (zoom() > kWholeFrame) return Fovix_DisplayRect(_view, 0, 0, width, height, width, height);
    if (picked.spots.empty()) return _say("no image there");
    const int x = rounded(picked.spots.front().x), y = rounded(picked.spots.front().y);
    const int halfWidth = std::max(width / 6, 1), halfHeight = std::max(height / 6, 1);
    Fovix_DisplayRect(_view, x - halfWidth, y - halfHeight, x + halfWidth, y + halfHeight, width, height);
}

// Pinches and drags the point to the centre, or shows the whole frame again.
void LibraryCalls::magnifyFlat(SurfacePosition at) {
    const SurfacePosition middle{static_cast<float>(_scale.width) / 2, static_cast<float>(_scale.height) / 2};
    const bool isWhole = zoom() <= kWholeFrame;
    if (isWhole && pick({at}).spots.empty()) return _say("no image there");
    const float closer =
        type() == FOVIX_TYPE_TWO_LENSES ? 8.0f : 14.0f;  // each type scales pinches differently
    constexpr float kFarther = 1e-3f;                    // more than enough to reach the whole frame
    touchDown(at);
    pinchScale(isWhole ? closer : kFarther);
    touchUp(at);
    if (!isWhole) return autoAdjust();
    // A drag of one pixel moves a flat view by 0.444 degrees, and 360 degrees are the width of the surface.
    constexpr float kDegreesPerPixel = 0.44444445f;
    const float pixels = 360.0f / kDegreesPerPixel / static_cast<float>(_scale.width);
    touchDown(at);
    touchMove({at.x + (middle.x - at.x) * pixels, at.y + (middle.y - at.y) * pixels});
    touchUp(at);
}

void LibraryCalls::showRectangle(SurfacePosition from, SurfacePosition to) {
    const int current = type();
    if (current != FOVIX_TYPE_360VR && current != FOVIX_TYPE_180VR && current != FOVIX_TYPE_SINGLE_PIP)
        return _say("rectangles need type 360, 180 or pip");
    // The edges of the rectangle are not straight in the frame: use the bounds of a grid of its points.
    std::vector<SurfacePosition> points;
    constexpr int kParts = 4;  // of each side
    for (int i = 0; i <= kParts * (kParts + 2); ++i) {
        const float x = static_cast<float>(i % (kParts + 1)) / kParts,
                    y = static_cast<float>(i / (kParts + 1)) / kParts;
        points.push_back({from.x + (to.x - from.x) * x, from.y + (to.y - from.y) * y});
    }
    const PickedSpots picked = pick(points);
    if (picked.spots.empty()) return _say("no image there");
    const auto byX = [](const FrameSpot& a, const FrameSpot& b) { return a.x < b.x; };
    const auto byY = [](const FrameSpot& a, const FrameSpot& b) { return a.y < b.y; };
    const auto [left, right] = std::minmax_element(picked.spots.begin(), picked.spots.end(), byX);
    const auto [top, bottom] = std::minmax_element(picked.spots.begin(), picked.spots.end(), byY);
    if (current == FOVIX_TYPE_360VR) {
        const FrameSpot middle{(left->x + right->x) / 2, (top->y + bottom->y) / 2};
        const double size = std::max(right->x - left->x, bottom->y - top->y);
        return lookAround(middle, picked.frame, size);
    }
    if (current == FOVIX_TYPE_180VR && zoom() < kCurvedZoom / 2)
        Fovix_SetPTZFor180VR(_view, 0, 0, 0, kCurvedZoom);
    Fovix_DisplayRect(
        _view, rounded(left->x), rounded(top->y), std::max(rounded(right->x), rounded(left->x) + 1),
        std::max(rounded(bottom->y), rounded(top->y) + 1), picked.frame.width, picked.frame.height);
}

}  // namespace fovix_host
