#include "view/OverlayGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "Fovix.h"
#include "base/Angles.h"
#include "view/OverviewAim.h"
#include "view/RotateZoomView.h"
#include "view/Views360VR.h"

namespace fovix {

namespace {

/// A third of the surface's half, to the digits that every outline has been drawn with.
constexpr float kThird = 0.333333f;

/// Distance of an outline from its screen's edge, so that neighbouring outlines do not touch.
constexpr float kMargin = 0.001f;

/// Middle of the large overview in the upper left; a little high, as its circle is.
constexpr float kOverviewX = -kThird, kOverviewY = kThird + 0.004f;

struct ScreenEdges {
    int shape, screen;
    float left, right, top, bottom;
};

constexpr ScreenEdges kScreens[] = {
    {FOVIX_SHAPE_FOUR_SCREENS, 0, -1.0f, 0.0f, 1.0f, 0.0f},
    {FOVIX_SHAPE_FOUR_SCREENS, 1, 0.0f, 1.0f, 1.0f, 0.0f},
    {FOVIX_SHAPE_FOUR_SCREENS, 2, -1.0f, 0.0f, 0.0f, -1.0f},
    {FOVIX_SHAPE_FOUR_SCREENS, 3, 0.0f, 1.0f, 0.0f, -1.0f},
    {FOVIX_SHAPE_OVERVIEW_FIVE, 1, kThird, 1.0f, 1.0f, kThird},
    {FOVIX_SHAPE_OVERVIEW_FIVE, 2, kThird, 1.0f, kThird, -kThird},
    {FOVIX_SHAPE_OVERVIEW_FIVE, 3, kThird, 1.0f, -kThird, -1.0f},
    {FOVIX_SHAPE_OVERVIEW_FIVE, 4, -kThird, kThird, -kThird, -1.0f},
    {FOVIX_SHAPE_OVERVIEW_FIVE, 5, -1.0f, -kThird, -kThird, -1.0f},
    {FOVIX_SHAPE_TWO_AND_STRIP, 0, -1.0f, 0.0f, 1.0f, -kThird},
    {FOVIX_SHAPE_TWO_AND_STRIP, 1, 0.0f, 1.0f, 1.0f, -kThird},
    {FOVIX_SHAPE_LARGE_AND_TWO, 0, -1.0f, 1.0f, 1.0f, -kThird},
    {FOVIX_SHAPE_LARGE_AND_TWO, 1, -1.0f, 0.0f, -kThird, -1.0f},
    {FOVIX_SHAPE_LARGE_AND_TWO, 2, 0.0f, 1.0f, -kThird, -1.0f},
};

/// Clamps to ±1e30, so that later sums stay finite.
float toCoordinate(double value) {
    constexpr double kFarOutside = 1e30;
    return static_cast<float>(std::clamp(value, -kFarOutside, kFarOutside));
}

std::optional<float> aspectOf(std::int64_t width, std::int64_t height) {
    if (width <= 0 || height <= 0) return std::nullopt;
    return static_cast<float>(height) / static_cast<float>(width);
}

/// A point of the overview's circle; angle in radians, counter-clockwise from the right.
void placeOnOverview(float* vertex, double angle, double radius, float aspect) {
    vertex[0] = toCoordinate(std::cos(angle) * radius * aspect) + kOverviewX;
    vertex[1] = toCoordinate(std::sin(angle) * radius) + kOverviewY;
    vertex[2] = 0.0f;
}

}  // namespace

std::optional<QuadLoop> screenOutline(int shape, int screen) {
    for (const ScreenEdges& s : kScreens) {
        if (s.shape == shape && s.screen == screen)
            return quadOf(s.left + kMargin, s.right - kMargin, s.top - kMargin, s.bottom + kMargin);
    }
    return std::nullopt;
}

std::optional<float> directionFanAspect(int backingWidth, int backingHeight) {
    return aspectOf(backingWidth, backingHeight);
}

FanLoop buildDirectionFan(float aspect, double pan, double tilt) {
    constexpr int kArcVertices = kFanVertices / 2;
    // The outer arc spans 110 degrees on a square surface and 160, as the inner one always does, on one of
    // 16:9.
    constexpr double kOuterSpan = 110.0, kInnerSpan = 160.0, kWiderBy = 1.77777778 - 1.0;
    // Radii for a tilt of kOverviewTilt, and what they lose on the way to a tilt of 0: the distance that a
    // touch on the overview has for that tilt. They can become negative.
    constexpr double kOuterRadius = 0.705, kInnerRadius = 0.05, kTiltDistance = 0.33;

    const double span = (1.0 / aspect - 1.0) * (kInnerSpan - kOuterSpan) / kWiderBy + kOuterSpan;
    const double inwards = kTiltDistance * tilt / kOverviewTilt - kTiltDistance;
    const double outerRadius = inwards + kOuterRadius, innerRadius = inwards + kInnerRadius;
    FanLoop loop;
    float* vertex = loop.data();
    const auto addArc = [&](double arcSpan, double radius, bool isReversed) {
        const double step = toRadians(arcSpan) / kArcVertices;
        const double start = toRadians(wholeDegrees((90.0 - pan) - arcSpan * 0.5));
        for (int i = 0; i < kArcVertices; ++i, vertex += 3) {
            placeOnOverview(vertex, (isReversed ? kArcVertices - 1 - i : i) * step + start, radius, aspect);
        }
    };
    addArc(span, outerRadius, false);
    // A negative radius is on the far side of the centre already: its arc keeps its direction.
    addArc(kInnerSpan, innerRadius, innerRadius > 0.0);
    return loop;
}

std::optional<float> viewRectAspect(int backingWidth, int backingHeight) {
    return aspectOf(backingWidth / 2, 2 * std::int64_t{backingHeight} / 3);
}

QuadLoop buildViewRect(float aspect, double pan, double tilt, double zoom) {
    // Linear over the zooms of the screens above the strip.
    const auto byZoom = [zoom](double nearest, double widest) {
        return (zoom - kNearestZoom) * (widest - nearest) / (kInsideZoom - kNearestZoom) + nearest;
    };
    constexpr double kStripMiddleY = 1.0 / 3.0 - 1.0, kStripHeight = 2.0 / 3.0;
    // The rectangle's middle, from the strip's, at tilts of 0 and 50 degrees; its size in views.
    const double low = byZoom(-0.4, -0.35), high = byZoom(-0.1, 0.0), size = byZoom(0.7, 1.0);
    const double cy = (high - low) * tilt / 50.0 + low + kStripMiddleY;
    // A full turn of pan crosses the surface, two units wide; a view shows 90 degrees of it, half as much
    // again and a fifth more of the height.
    const double cx = wholeDegrees(pan - 90.0 - 90.0) * 2.0 / 360.0 - 1.0;
    const double width = (90.0 / aspect * 2.0 / 360.0 * 1.5) * size;
    const double height = size * (kStripHeight * 1.2);
    return quadOf(toCoordinate(cx - width * 0.5), toCoordinate(cx + width * 0.5),
                  toCoordinate(cy + height * 0.5), toCoordinate(cy - height * 0.5));
}

PipMarker pipMarker(double offsetX, double zoom, double shift) {
    // Sizes in single precision. The main view moves by 1.43 units while its marker crosses 0.86 of the
    // inset.
    constexpr float kSize = 0.34f, kWidest = 1.1832f, kWidthRange = 0.8432f;
    constexpr double kOffsetToInset = double{0.86f} / double{1.43f};
    constexpr ZoomCurve kCloserSize = {1.0, 1.0, 0.5, kInsetLargestZoom};
    PipMarker marker = {toCoordinate(offsetX * kOffsetToInset) + kInsetX, 0.0f, kSize, kSize};
    if (zoom < 1.0) {
        marker.width = toCoordinate(double{kWidest} -
                                    (zoom - kSmallestZoom) * double{kWidthRange} / (1.0 - kSmallestZoom));
    } else if (zoom > 1.0) {
        marker.width = marker.height = toCoordinate(kCloserSize.at(zoom) * double{kSize});
        const float room = kSize - marker.height;
        marker.yOff = std::max(std::min(toCoordinate(shift * -double{kSize}), room * 0.5f), room * -0.5f);
    }
    return marker;
}

QuadLoop buildPipFrame(float cx, float cy, float width, float height) {
    return quadOf(cx - width * 0.5f, cx + width * 0.5f, (height * 0.5f + kInsetY) + cy,
                  cy - (height * 0.5f - kInsetY));
}

}  // namespace fovix
