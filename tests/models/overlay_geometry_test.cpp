// Frames and indicators over the picture: where each lies on the surface.
#include "view/OverlayGeometry.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <numeric>

using namespace fovix;

namespace {

/// A rectangle from top left over top right, given by its middle and size.
void expectQuad(const QuadLoop& q, double cx, double cy, double width, double height) {
    EXPECT_EQ(q, quadOf(q[0], q[3], q[1], q[7]));
    const double expected[] = {cx - width / 2, cx + width / 2, cy + height / 2, cy - height / 2};
    const double sides[] = {q[0], q[3], q[1], q[7]};
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(sides[i], expected[i], 2e-6) << "side " << i;
}

TEST(ScreenFrames, LieAThousandthInsideTheirScreens) {
    // Middle and size of each screen in sixths of the surface, from its lower left corner.
    const struct {
        int shape, screen;
        double x, y, width, height;
    } cases[] = {{7, 0, 1.5, 4.5, 3, 3}, {7, 1, 4.5, 4.5, 3, 3}, {7, 2, 1.5, 1.5, 3, 3},
                 {7, 3, 4.5, 1.5, 3, 3}, {8, 1, 5, 5, 2, 2},     {8, 2, 5, 3, 2, 2},
                 {8, 3, 5, 1, 2, 2},     {8, 4, 3, 1, 2, 2},     {8, 5, 1, 1, 2, 2},
                 {9, 0, 1.5, 4, 3, 4},   {9, 1, 4.5, 4, 3, 4},   {10, 0, 3, 4, 6, 4},
                 {10, 1, 1.5, 1, 3, 2},  {10, 2, 4.5, 1, 3, 2}};
    int found = 0;
    for (int k = 0; k < 13 * 8; ++k) found += screenOutline(k / 8 - 1, k % 8 - 1).has_value();
    EXPECT_EQ(found, 14);
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "shape " << c.shape << " screen " << c.screen);
        const QuadLoop frame = screenOutline(c.shape, c.screen).value();
        expectQuad(frame, c.x / 3 - 1, c.y / 3 - 1, c.width / 3 - 0.002, c.height / 3 - 0.002);
    }
}

TEST(Indicators, TruncatePanAndHoldTheMarkerInTheInset) {
    expectQuad(buildViewRect(1.0f, 180.9, 50, 5), -1, -0.7666667, 0.525, 0.56);
    expectQuad(buildViewRect(2.0f, -800.5, 25, 40), 100.0 / 180 - 1, -0.8416667, 0.375, 0.8);
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
