// The sample against an independent equidistant lens: landmarks where they belong, and the same image of a
// frame whatever was drawn before.

#include "sample/SampleScene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <numbers>
#include <string>

using namespace fovix_host;

namespace {

using Camera = SampleScene::Camera;
constexpr double kHalfView = 85.0 * std::numbers::pi / 180.0;

// Radius per angle is constant: half the view is on the rim.
std::pair<double, double> equidistant(const LensCircle& lens, Vec3 direction) {
    const double angle = std::acos(direction.z / std::sqrt(dot(direction, direction)));
    const double turn = std::atan2(direction.y, direction.x);
    const double reach = lens.radius * angle / kHalfView;
    return {lens.xCenter + reach * std::cos(turn), lens.yCenter + reach * std::sin(turn)};
}

// From the ceiling the image is a map with north at the top; from the western wall north is left.
TEST(SampleScene, ShowsEachLandmarkWhereTheLensPutsIt) {
    std::map<std::string, CameraDirection> seen;
    for (const auto& [camera, count] : {std::pair{Camera::kCeiling, 6u}, std::pair{Camera::kWall, 5u}})
        for (const auto& [width, height] : {std::pair{640, 640}, std::pair{960, 540}, std::pair{401, 701}}) {
            SampleScene scene(camera, width, height);
            EXPECT_EQ(scene.lens().imageWidth, width);
            EXPECT_EQ(scene.lens().imageHeight, height);
            EXPECT_EQ(scene.visibleLandmarks().size(), count);
            const RgbaImage& image = scene.picture(0);
            for (const auto& mark : scene.visibleLandmarks()) {
                SCOPED_TRACE(testing::Message() << mark.name << " in " << width << "x" << height);
                const auto [x, y] = equidistant(scene.lens(), mark.direction);
                const FramePoint projected = project(scene.lens(), mark.direction);
                EXPECT_NEAR(projected.x, x, 1e-6);
                EXPECT_NEAR(projected.y, y, 1e-6);
                const std::uint8_t* pixel = image.at(static_cast<int>(x), static_cast<int>(y));
                for (std::size_t c = 0; c < 3; ++c) EXPECT_NEAR(pixel[c], mark.colour[c], 1);
                seen[(camera == Camera::kWall ? "wall " : "") + std::string(mark.name)] = mark.direction;
            }
        }
    EXPECT_LT(seen["red"].y, -0.5);
    EXPECT_GT(seen["green"].x, 0.5);
    EXPECT_LT(seen["wall red"].x, -0.3);
    EXPECT_GT(seen["wall magenta"].y, 0.2);
}

TEST(SampleScene, IsBlackOutsideTheLensCircle) {
    SampleScene scene(Camera::kCeiling, 300, 220);
    const LensCircle lens = scene.lens();
    EXPECT_NEAR(lens.radius, 105, 5);
    const RgbaImage& image = scene.picture(30);
    for (int y = 0; y < 220; ++y)
        for (int x = 0; x < 300; ++x) {
            const double reach = std::hypot(x + 0.5 - lens.xCenter, y + 0.5 - lens.yCenter);
            const std::uint8_t* pixel = image.at(x, y);
            ASSERT_EQ(pixel[3], 255);
            if (std::abs(reach - lens.radius) <= 1.0) continue;
            ASSERT_EQ(pixel[0] + pixel[1] + pixel[2] == 0, reach > lens.radius) << x << "," << y;
        }
}

// Each frame redraws only what moves; every pixel off an edge must still be what its own line of sight meets.
TEST(SampleScene, DrawsEveryMovingPartOfAFrameCompletely) {
    SampleScene scene(Camera::kCeiling, 400, 400);
    const LensCircle lens = scene.lens();
    CarPark carPark;
    const auto look = [&](double x, double y) {
        const double dx = x - lens.xCenter, dy = y - lens.yCenter, reach = std::hypot(dx, dy);
        const double angle = reach / lens.radius * kHalfView, aside = std::sin(angle) / reach;
        return carPark.look({{0, 0, 3.3}, {dx * aside, -dy * aside, -std::cos(angle)}});
    };
    const auto similar = [](Vec3 a, Vec3 b, double by) {
        return std::max({std::abs(a.x - b.x), std::abs(a.y - b.y), std::abs(a.z - b.z)}) <= by;
    };
    for (const int frame : {0, 60, 61, 110, 230, 375, 599}) {
        const RgbaImage& image = scene.picture(frame);
        carPark.showTraffic(frame);
        int compared = 0;
        for (int y = 0; y < 400; y += 2)
            for (int x = 0; x < 400; x += 2) {
                const double column = x + 0.5, row = y + 0.5;
                if (std::hypot(column - lens.xCenter, row - lens.yCenter) > lens.radius - 3.0) continue;
                const Vec3 colour = look(column, row);
                if (!similar(look(column - 1, row), colour, 12) ||
                    !similar(look(column + 1, row), colour, 12) ||
                    !similar(look(column, row - 1), colour, 12) ||
                    !similar(look(column, row + 1), colour, 12))
                    continue;
                const std::uint8_t* pixel = image.at(x, y);
                ASSERT_TRUE(similar({1.0 * pixel[0], 1.0 * pixel[1], 1.0 * pixel[2]}, colour, 1))
                    << "frame " << frame << " at " << x << "," << y;
                ++compared;
            }
        EXPECT_GT(compared, 10000);
    }
}

TEST(SampleScene, DependsOnNothingButCameraSizeAndFrame) {
    for (const Camera camera : {Camera::kCeiling, Camera::kWall}) {
        SampleScene straight(camera, 200, 200), wandering(camera, 200, 200);
        const std::vector<std::uint8_t> expected = straight.picture(40).pixels;
        for (const int frame : {0, 300, 41}) EXPECT_NE(wandering.picture(frame).pixels, expected) << frame;
        for (const int frame : {40, 40 + kTrafficPeriod, 40 - kTrafficPeriod})
            EXPECT_EQ(wandering.picture(frame).pixels, expected) << frame;
    }
}

}  // namespace
