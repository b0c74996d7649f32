#include "viewer/aim/LibraryCalls.h"

#include <algorithm>
#include <cmath>

#include "viewer/aim/PanoramaAim.h"

namespace fovix_host {
namespace {

constexpr double kWholeFrame = 1.05;          // zooms up to here show all of it
constexpr double kCloseView = 40;             // the zoom in which a panorama looks at something
constexpr double kTurnOfDrag = 1024.0 / 360;  // times the zoom, in degrees: a drag as wide as the surface
constexpr double kCurvedZoom = 10;            // the normal zoom of the 180-degree view's curved screen

int rounded(double value) {
    return static_cast<int>(std::lround(value));
}

// What the library takes where it is told no other one.
LensCircle wholeLens(FrameRelay::Size picture) {
    const int x = std::max(picture.width / 2, 1), y = std::max(picture.height / 2, 1);
    return {x, y, std::min(x, y), picture.width, picture.height};
}

}  // namespace

double LibraryCalls::zoom() const {
    double zoom = 1;
    Fovix_GetRotateZoom(_view, nullptr, nullptr, nullptr, &zoom);
    return zoom;
}

// Before black, which has none of the blue that marks the picture.
PickedSpots LibraryCalls::pick(const std::vector<SurfacePosition>& points) const {
    Fovix_SetBackground(_view, 0);
    PickedSpots picked = pickSpots(_view, _pictures(), _scale, points);
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
    // Only the curved screen looks at targets; a view that is no nearer than this shows another one.
    if (type() == FOVIX_TYPE_180VR && zoom() < kCurvedZoom / 2)
        Fovix_SetPTZFor180VR(_view, 0, 0, 0, kCurvedZoom);
    const FrameSpot& spot = picked.spots.front();
    if (type() == FOVIX_TYPE_360VR) return lookAround(spot, picked.picture, 0);
    Fovix_DisplayTarget(_view, rounded(spot.x), rounded(spot.y), picked.picture.width, picked.picture.height);
}

// Brings the point to the middle of one screen, and comes closer until it shows so much of the picture; or,
// without an extent, as near as one looks at something.
void LibraryCalls::lookAround(const FrameSpot& spot, FrameRelay::Size picture, double extent) {
    if (Fovix_GetShape(_view) != FOVIX_SHAPE_SINGLE) Fovix_SetShape(_view, FOVIX_SHAPE_SINGLE);
    Fovix_Drawself(_view);  // what the view is now asked for is that of a frame
    double pan = 0, tilt = 0, zoom = 0;
    Fovix_GetPTZ(_view, &pan, &tilt, &zoom, nullptr);
    const PanoramaAim aim(_shown.lens().value_or(wholeLens(picture)), picture);
    const int mount = Fovix_GetCameraMount(_view);
    // On the floor a view turns half round only, and looks there as far as it can.
    if (mount == FOVIX_MOUNT_FLOOR)
        return Fovix_DisplayTarget(_view, rounded(spot.x), rounded(spot.y), picture.width, picture.height);
    const bool onCeiling = mount == FOVIX_MOUNT_CEILING;
    const double closer = std::min(zoom, extent > 0 ? aim.zoomFor(extent, onCeiling) : kCloseView);
    spread(zoom / closer);
    if (onCeiling) {
        const FrameSpot target = aim.ceilingTarget(spot, closer);
        return Fovix_DisplayTarget(_view, rounded(target.x), rounded(target.y), picture.width,
                                   picture.height);
    }
    const auto there = aim.onWall(spot, mount == FOVIX_MOUNT_WALL_INVERTED);
    turnBy(there.pan - pan, there.tilt - tilt, closer);
}

// As a finger would, in degrees.
void LibraryCalls::turnBy(double pan, double tilt, double zoom) {
    const double degreesPerPixel = kTurnOfDrag * zoom / _scale.width;
    touchDown({0, 0});
    touchMove({static_cast<float>(pan / degreesPerPixel), static_cast<float>(-tilt / degreesPerPixel)});
    touchUp({0, 0});
}

// As two fingers would, slowly: what is faster is a flick.
void LibraryCalls::spread(double ratio) {
    if (ratio <= 1) return;
    constexpr double kSlow = 1.15;
    const SurfacePosition middle{static_cast<float>(_scale.width) / 2, static_cast<float>(_scale.height) / 2};
    touchDown(middle);
    for (double reached = 1; reached < ratio;) {
        reached = std::min(reached * kSlow, ratio);
        pinchScale(static_cast<float>(reached));
    }
    touchUp(middle);
}

// Shows a third of the picture round the point, or all of it again.
void LibraryCalls::magnifyInset(SurfacePosition at) {
    const PickedSpots picked = pick({at});
    const auto [width, height] = picked.picture;
    if (width < 1) return;
    if (zoom() > kWholeFrame) return Fovix_DisplayRect(_view, 0, 0, width, height, width, height);
    if (picked.spots.empty()) return _say("no image there");
    const int x = rounded(picked.spots.front().x), y = rounded(picked.spots.front().y);
    const int halfWidth = std::max(width / 6, 1), halfHeight = std::max(height / 6, 1);
    Fovix_DisplayRect(_view, x - halfWidth, y - halfHeight, x + halfWidth, y + halfHeight, width, height);
}

// As fingers would: spreads them, then drags the point to the middle; or brings the whole picture back.
void LibraryCalls::magnifyFlat(SurfacePosition at) {
    const SurfacePosition middle{static_cast<float>(_scale.width) / 2, static_cast<float>(_scale.height) / 2};
    const bool isWhole = zoom() <= kWholeFrame;
    if (isWhole && pick({at}).spots.empty()) return _say("no image there");
    const float closer = type() == FOVIX_TYPE_TWO_LENSES ? 8.0f : 14.0f;
    constexpr float kFarther = 1e-3f;
    touchDown(at);
    pinchScale(isWhole ? closer : kFarther);
    touchUp(at);
    if (!isWhole) return autoAdjust();
    // A drag of a pixel turns by 0.444 degrees, and 360 degrees are the width of the surface.
    const float pixels = 360.0f / 0.44444445f / static_cast<float>(_scale.width);
    touchDown(at);
    touchMove({at.x + (middle.x - at.x) * pixels, at.y + (middle.y - at.y) * pixels});
    touchUp(at);
}

void LibraryCalls::showRectangle(SurfacePosition from, SurfacePosition to) {
    const int current = type();
    if (current != FOVIX_TYPE_360VR && current != FOVIX_TYPE_180VR && current != FOVIX_TYPE_SINGLE_PIP)
        return _say("rectangles need type 360, 180 or pip");
    // A rectangle of the surface has no straight edges in the picture: what its points span is shown.
    std::vector<SurfacePosition> points;
    constexpr int kParts = 4;
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
        return lookAround(middle, picked.picture, size);
    }
    if (current == FOVIX_TYPE_180VR && zoom() < kCurvedZoom / 2)
        Fovix_SetPTZFor180VR(_view, 0, 0, 0, kCurvedZoom);
    Fovix_DisplayRect(
        _view, rounded(left->x), rounded(top->y), std::max(rounded(right->x), rounded(left->x) + 1),
        std::max(rounded(bottom->y), rounded(top->y) + 1), picked.picture.width, picked.picture.height);
}

}  // namespace fovix_host
