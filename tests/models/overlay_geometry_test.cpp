// Frames and indicators over the picture: where each lies on the surface.
#include "view/OverlayGeometry.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <numeric>
#include <optional>

#include "Fovix.h"
#include "view/Layouts360VR.h"
#include "view/Screens180VR.h"

using namespace fovix;

namespace {

/// A rectangle from top left over top right, given by its middle and size.
void expectQuad(const QuadLoop& q, double cx, double cy, double width, double height) {
    EXPECT_EQ(q, quadOf(q[0], q[3], q[1], q[7]));
    const double expected[] = {cx - width / 2, cx + width / 2, cy + height / 2, cy - height / 2};
    const double sides[] = {q[0], q[3], q[1], q[7]};
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(sides[i], expected[i], 2e-6) << "side " << i;
}

TEST(ScreenOutlines, AreAThousandthInsideTheirScreens) {
    int outlines = 0;
    for (int k = 0; k < 13 * 8; ++k) {
        const int shape = k / 8 - 1, screen = k % 8 - 1;
        SCOPED_TRACE(testing::Message() << "shape " << shape << " screen " << screen);
        const std::optional<QuadLoop> outline = screenOutline(shape, screen);
        if (!outline) continue;
        ++outlines;
        const auto index = static_cast<std::size_t>(screen);
        const SurfaceRect rect = shape == FOVIX_SHAPE_LARGE_AND_TWO
                                     ? layout180VR(shape, 6000, 6000).screens.at(index).viewport
                                     : layout360VR(shape, 6000, 6000).screens.at(index);
        expectQuad(*outline, (rect.x + rect.width / 2.0) / 3000 - 1, (rect.y + rect.height / 2.0) / 3000 - 1,
                   rect.width / 3000.0 - 0.002, rect.height / 3000.0 - 0.002);
    }
    EXPECT_EQ(outlines, 14);
}

TEST(Indicators, HoldTheMarkerInTheInset) {
    const struct {
        double offsetX, zoom, shift, cx, cy, width, height;
    } pipFrames[] = {{1.43, 1, 9, 1.16, -0.7, 0.34, 0.34},
                     {0, 0.25, 9, 0.3, -0.7, 1.1832, 0.34},
                     {-0.715, 5, 0.1, -0.13, -0.734, 0.17, 0.17},
                     {0, 5, 9, 0.3, -0.785, 0.17, 0.17},
                     {0, 3, -9, 0.3, -0.6575, 0.255, 0.255}};
    for (const auto& c : pipFrames) {
        const PipMarker m = pipMarker(c.offsetX, c.zoom, c.shift);
        expectQuad(buildPipFrame(m.cx, m.yOff, m.width, m.height), c.cx, c.cy, c.width, c.height);
    }
}

TEST(OverlayAspects, TruncateAndNeedASurface) {
    EXPECT_EQ(directionFanAspect(1600, 900), 0.5625f);
    EXPECT_EQ(viewRectAspect(1001, 500), 333.0f / 500.0f);
    EXPECT_EQ(viewRectAspect(2, INT_MAX), 1431655764.0f);
    for (const int none : {0, -1, INT_MIN}) {
        EXPECT_FALSE(directionFanAspect(none, 9) || directionFanAspect(9, none)) << none;
        EXPECT_FALSE(viewRectAspect(none, 9) || viewRectAspect(9, none)) << none;
    }
    EXPECT_FALSE(viewRectAspect(1, 9) || viewRectAspect(9, 1));
}

TEST(OverlayGeometry, IsFiniteForEveryView) {
    const auto sumOf = [](const auto& loop) { return std::accumulate(loop.begin(), loop.end(), 0.0); };
    for (const float aspect : {*directionFanAspect(INT_MAX, 1), *directionFanAspect(1, INT_MAX)}) {
        for (const double far : {-1e308, -1e20, 1e20, 1e308}) {
            const PipMarker m = pipMarker(far, far, far);
            EXPECT_TRUE(std::isfinite(sumOf(buildViewRect(aspect, far, far, far)))) << aspect << " " << far;
            EXPECT_TRUE(std::isfinite(sumOf(buildPipFrame(m.cx, m.yOff, m.width, m.height)))) << far;
            EXPECT_TRUE(std::isfinite(sumOf(buildDirectionFan(aspect, far, far)))) << aspect << " " << far;
        }
    }
}

}  // namespace
