// Frames and indicators over the picture: where each lies on the surface.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>

#include "OverlayGeometry.h"

using namespace fovix;

namespace {

constexpr double kDegree = 3.141592653589793 / 180.0;

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
    for (int shape = -1; shape <= 11; ++shape) {
        for (int screen = -1; screen <= 6; ++screen) found += screenFrame(shape, screen).has_value();
    }
    EXPECT_EQ(found, 14);
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "shape " << c.shape << " screen " << c.screen);
        const auto frame = screenFrame(c.shape, c.screen);
        ASSERT_TRUE(frame);
        expectQuad(*frame, c.x / 3 - 1, c.y / 3 - 1, c.width / 3 - 0.002, c.height / 3 - 0.002);
    }
}

TEST(DirectionFan, IsASectorOfTheOverviewsCircle) {
    // The arcs run to and fro; an inner radius below 0 points through the centre and keeps the direction.
    const struct {
        float aspect;
        double pan, tilt, outerRadius, innerRadius;
        double outerFrom, outerStep, innerFrom, innerStep;  // degrees
    } cases[] = {{1.0f, 90, 60, 0.705, 0.05, 305, 2.2, 280 + 49 * 3.2, -3.2},
                 {1.0f, 0, 30, 0.54, -0.115, 35, 2.2, 10, 3.2},
                 {0.5f, 720.9, 0, 0.375, -0.28, 2, (110 + 50 / 0.77777778) / 50, 10, 3.2},
                 {2.0f, -45, 120, 1.035, 0.38, 96, (110 - 25 / 0.77777778) / 50, 55 + 49 * 3.2, -3.2}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pan);
        const FanLoop loop = buildDirectionFan(c.aspect, c.pan, c.tilt);
        for (std::size_t i = 0; i < kFanVertices; ++i) {
            const double j = static_cast<double>(i % 50);
            const double angle = i < 50 ? c.outerFrom + j * c.outerStep : c.innerFrom + j * c.innerStep;
            const double radius = i < 50 ? c.outerRadius : c.innerRadius;
            ASSERT_NEAR(loop[3 * i], -0.333333 + c.aspect * radius * std::cos(angle * kDegree), 1e-6) << i;
            ASSERT_NEAR(loop[3 * i + 1], 0.337333 + radius * std::sin(angle * kDegree), 1e-6) << i;
            ASSERT_EQ(loop[3 * i + 2], 0.0f);
        }
    }
}

TEST(ViewRect, FollowsPanTiltAndZoomOnTheStrip) {
    const struct {
        float aspect;
        double pan, tilt, zoom, cx, cy, width, height;
    } cases[] = {{1.0f, 180, 0, 5, -1, -1.0666667, 0.525, 0.56},
                 {1.0f, 180.9, 50, 5, -1, -0.7666667, 0.525, 0.56},
                 {0.5f, 270, 50, 40, -0.5, -0.6666667, 1.5, 0.8},
                 {2.0f, -800.5, 25, 40, 100.0 / 180 - 1, -0.8416667, 0.375, 0.8}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pan);
        expectQuad(buildViewRect(c.aspect, c.pan, c.tilt, c.zoom), c.cx, c.cy, c.width, c.height);
    }
}

TEST(PipFrame, MarksWhatTheMainViewShows) {
    const struct {
        double offsetX, zoom, shift, cx, cy, width, height;
    } cases[] = {{0, 1, 9, 0.3, -0.7, 0.34, 0.34},
                 {1.43, 1, 0, 1.16, -0.7, 0.34, 0.34},
                 {0, 0.25, 9, 0.3, -0.7, 1.1832, 0.34},
                 {0, 0.625, 0, 0.3, -0.7, 0.7616, 0.34},
                 {-0.715, 5, 0.1, -0.13, -0.734, 0.17, 0.17},
                 {0, 5, 9, 0.3, -0.785, 0.17, 0.17},
                 {0, 3, -9, 0.3, -0.6575, 0.255, 0.255}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "zoom " << c.zoom << " shift " << c.shift);
        const PipMarker m = pipMarker(c.offsetX, c.zoom, c.shift);
        expectQuad(buildPipFrame(m.cx, m.yOff, m.width, m.height), c.cx, c.cy, c.width, c.height);
    }
    expectQuad(kOverviewOutline, 0.3, -0.7, 1.206, 0.35);
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
    const auto isFinite = [](float value) { return std::isfinite(value); };
    for (const float aspect : {*directionFanAspect(INT_MAX, 1), *directionFanAspect(1, INT_MAX)}) {
        for (const double value : {-1e308, -1e20, 1e20, 1e308}) {
            const PipMarker m = pipMarker(value, value, value);
            for (const QuadLoop& quad : {buildViewRect(aspect, value, value, value),
                                         buildPipFrame(m.cx, m.yOff, m.width, m.height)}) {
                EXPECT_TRUE(std::all_of(quad.begin(), quad.end(), isFinite)) << aspect << " " << value;
            }
            const FanLoop fan = buildDirectionFan(aspect, value, value);
            EXPECT_TRUE(std::all_of(fan.begin(), fan.end(), isFinite)) << aspect << " " << value;
        }
    }
}

}  // namespace
