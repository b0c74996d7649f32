#include "view/OverlayGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "Fovix.h"
#include "base/Angles.h"

namespace fovix {

namespace {

/// Middle of the large screen in the upper left of the overview layout.
constexpr float kOverviewX = -0.333333f, kOverviewY = 0.337333f;

struct ScreenFrame {
    int shape, screen;
    QuadLoop loop;
};

// A thousandth inside each screen's edge, so that neighbours' frames do not touch.
constexpr ScreenFrame kScreenFrames[] = {
    {FOVIX_SHAPE_FOUR_SCREENS, 0, quadOf(-0.999f, -0.001f, 0.999f, 0.001f)},
    {FOVIX_SHAPE_FOUR_SCREENS, 1, quadOf(0.001f, 0.999f, 0.999f, 0.001f)},
    {FOVIX_SHAPE_FOUR_SCREENS, 2, quadOf(-0.999f, -0.001f, -0.001f, -0.999f)},
    {FOVIX_SHAPE_FOUR_SCREENS, 3, quadOf(0.001f, 0.999f, -0.001f, -0.999f)},
    {FOVIX_SHAPE_OVERVIEW_FIVE, 1, quadOf(0.33433297f, 0.999f, 0.999f, 0.33433297f)},
    {FOVIX_SHAPE_OVERVIEW_FIVE, 2, quadOf(0.33433297f, 0.999f, 0.332333f, -0.332333f)},
    {FOVIX_SHAPE_OVERVIEW_FIVE, 3, quadOf(0.33433297f, 0.999f, -0.33433297f, -0.999f)},
    {FOVIX_SHAPE_OVERVIEW_FIVE, 4, quadOf(-0.332333f, 0.332333f, -0.33433297f, -0.999f)},
    {FOVIX_SHAPE_OVERVIEW_FIVE, 5, quadOf(-0.999f, -0.33433297f, -0.33433297f, -0.999f)},
    {FOVIX_SHAPE_TWO_AND_STRIP, 0, quadOf(-0.999f, -0.001f, 0.999f, -0.332333f)},
    {FOVIX_SHAPE_TWO_AND_STRIP, 1, quadOf(0.001f, 0.999f, 0.999f, -0.332333f)},
    {FOVIX_SHAPE_LARGE_AND_TWO, 0, quadOf(-0.999f, 0.999f, 0.999f, -0.332333f)},
    {FOVIX_SHAPE_LARGE_AND_TWO, 1, quadOf(-0.999f, -0.001f, -0.33433297f, -0.999f)},
    {FOVIX_SHAPE_LARGE_AND_TWO, 2, quadOf(0.001f, 0.999f, -0.33433297f, -0.999f)},
};

/// Narrowed. Far outside the surface one place is as good as another: sums of such numbers stay finite.
float toFloat(double value) {
    constexpr double kFarOutside = 1e30;
    return static_cast<float>(std::clamp(value, -kFarOutside, kFarOutside));
}

std::optional<float> aspectOf(std::int64_t width, std::int64_t height) {
    if (width <= 0 || height <= 0) return std::nullopt;
    return static_cast<float>(height) / static_cast<float>(width);
}

/// A point of the overview's circle; angle in radians.
void placeOnOverview(float* vertex, double angle, double radius, float aspect) {
    vertex[0] = toFloat(std::cos(angle) * radius * aspect) + kOverviewX;
    vertex[1] = toFloat(std::sin(angle) * radius) + kOverviewY;
    vertex[2] = 0.0f;
}

}  // namespace

std::optional<QuadLoop> screenFrame(int shape, int screen) {
    for (const ScreenFrame& frame : kScreenFrames) {
        if (frame.shape == shape && frame.screen == screen) return frame.loop;
    }
    return std::nullopt;
}

std::optional<float> directionFanAspect(int backingWidth, int backingHeight) {
    return aspectOf(backingWidth, backingHeight);
}

FanLoop buildDirectionFan(float aspect, double pan, double tilt) {
    constexpr int kArcVertices = kFanVertices / 2;
    constexpr double kInnerStep = 0.05585053606381854;  // 3.2 degrees
    const double span = (1.0 / aspect - 1.0) * 50.0 / 0.7777777800000001 + 110.0;
    const double base = 0.33 * tilt / 60.0 - 0.33;
    const double outerRadius = base + 0.705, innerRadius = base + 0.05;
    const double outerStep = toRadians(span) / 50.0;
    const double outerStart = toRadians(wholeDegrees((90.0 - pan) - span * 0.5));
    const double innerStart = toRadians(wholeDegrees((90.0 - pan) - 80.0));

    FanLoop loop;
    float* vertex = loop.data();
    for (int i = 0; i < kArcVertices; ++i, vertex += 3) {
        placeOnOverview(vertex, i * outerStep + outerStart, outerRadius, aspect);
    }
    // A negative radius already lies on the far side of the centre: its arc is not turned round.
    for (int j = 0; j < kArcVertices; ++j, vertex += 3) {
        const int n = innerRadius > 0.0 ? kArcVertices - 1 - j : j;
        placeOnOverview(vertex, n * kInnerStep + innerStart, innerRadius, aspect);
    }
    return loop;
}

std::optional<float> viewRectAspect(int backingWidth, int backingHeight) {
    return aspectOf(backingWidth / 2, 2 * std::int64_t{backingHeight} / 3);
}

QuadLoop buildViewRect(float aspect, double pan, double tilt, double zoom) {
    const double cx = wholeDegrees(pan - 90.0 - 90.0) * 2.0 / 360.0 - 1.0;
    const double beyondNearest = zoom - 5.0;
    const double low = beyondNearest * 0.050000000000000044 / 35.0 - 0.4;
    const double size = beyondNearest * 0.30000000000000004 / 35.0 + 0.7;
    const double high = 0.1 * beyondNearest / 35.0 - 0.1;
    const double cy = (high - low) * tilt / 50.0 + low - 0.6666666666666667;
    const double width = (90.0 / aspect * 2.0 / 360.0 * 1.5) * size;
    const double height = size * 0.7999999999999999;
    return quadOf(toFloat(cx - width * 0.5), toFloat(cx + width * 0.5), toFloat(cy + height * 0.5),
                  toFloat(cy - height * 0.5));
}

PipMarker pipMarker(double offsetX, double zoom, double shift) {
    constexpr float kSize = 0.34f, kFullWidth = 1.1832f, kWidthRange = 0.8432f;
    constexpr double kOffsetToInset = double{0.86f} / double{1.43f};
    PipMarker marker = {toFloat(offsetX * kOffsetToInset) + 0.3f, 0.0f, kSize, kSize};
    if (zoom < 1.0) {
        marker.width = toFloat(double{kFullWidth} - (zoom - 0.25) * double{kWidthRange} / 0.75);
    } else if (zoom > 1.0) {
        marker.width = marker.height = toFloat((1.0 - (zoom - 1.0) * 0.5 * 0.25) * double{kSize});
        const float room = kSize - marker.height;
        marker.yOff = std::max(std::min(toFloat(shift * -double{kSize}), room * 0.5f), room * -0.5f);
    }
    return marker;
}

QuadLoop buildPipFrame(float cx, float cy, float width, float height) {
    constexpr float kInsetDepth = 0.7f;
    return quadOf(cx - width * 0.5f, cx + width * 0.5f, (height * 0.5f - kInsetDepth) + cy,
                  cy - (height * 0.5f + kInsetDepth));
}

}  // namespace fovix
