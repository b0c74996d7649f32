// The sample against an independent equidistant lens: landmarks where they belong, each pixel what its
// line of sight meets, and the same picture whatever was drawn before.

#include "sample/SampleScene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>

using namespace fovix_host;

namespace {

using Camera = SampleScene::Camera;
constexpr double kPi = 3.14159265358979323846;

// radius per angle is constant: 85 degrees off the axis lie on the rim.
std::pair<double, double> equidistant(const LensCircle& lens, Vec3 direction) {
    const double angle = std::acos(direction.z / std::sqrt(dot(direction, direction)));
    const double turn = std::atan2(direction.y, direction.x);
    const double reach = lens.radius * angle / (85.0 * kPi / 180.0);
    return {lens.xCenter + reach * std::cos(turn), lens.yCenter + reach * std::sin(turn)};
}

bool similar(const std::uint8_t* pixel, Vec3 colour, double tolerance) {
    return std::abs(pixel[0] - colour.x) <= tolerance && std::abs(pixel[1] - colour.y) <= tolerance &&
           std::abs(pixel[2] - colour.z) <= tolerance;
}

TEST(SampleScene, ShowsEachLandmarkWhereTheLensPutsIt) {
    const std::map<Camera, std::size_t> expected{{Camera::kCeiling, 6}, {Camera::kWall, 5}};
    for (const auto& [camera, count] : expected)
        for (const auto& [width, height] : {std::pair{640, 640}, std::pair{960, 540}, std::pair{401, 701}}) {
            SampleScene scene(camera, width, height);
            const LensCircle lens = scene.lens();
            EXPECT_EQ(lens.imageWidth, width);
            EXPECT_EQ(lens.imageHeight, height);
            const auto marks = scene.visibleLandmarks();
            EXPECT_EQ(marks.size(), count);
            const RgbaImage& picture = scene.picture(0);
            for (const auto& mark : marks) {
                const auto [x, y] = equidistant(lens, mark.direction);
                const FramePoint projected = project(lens, mark.direction);
                EXPECT_NEAR(projected.x, x, 1e-6) << mark.name;
                EXPECT_NEAR(projected.y, y, 1e-6) << mark.name;
                const std::uint8_t* pixel = picture.at(static_cast<int>(x), static_cast<int>(y));
                EXPECT_TRUE(
                    similar(pixel, {1.0 * mark.colour[0], 1.0 * mark.colour[1], 1.0 * mark.colour[2]}, 1))
                    << mark.name << " in " << width << "x" << height << " at " << x << "," << y << " is "
                    << int{pixel[0]} << "," << int{pixel[1]} << "," << int{pixel[2]};
            }
        }
}

// From the ceiling the picture is a map with north at the top; from the western wall north is left.
TEST(SampleScene, HangsTheCameraTheRightWayUp) {
    const auto directionOf = [](Camera camera, const std::string& name) {
        const SampleScene scene(camera, 64, 64);
        for (const auto& mark : scene.visibleLandmarks())
            if (name == mark.name) return mark.direction;
        throw std::runtime_error("no " + name);
    };
    EXPECT_LT(directionOf(Camera::kCeiling, "red").y, -0.5);
    EXPECT_GT(directionOf(Camera::kCeiling, "blue").y, 0.5);
    EXPECT_GT(directionOf(Camera::kCeiling, "green").x, 0.5);
    EXPECT_LT(directionOf(Camera::kCeiling, "yellow").x, -0.5);
    EXPECT_LT(directionOf(Camera::kWall, "red").x, -0.3);
    EXPECT_GT(directionOf(Camera::kWall, "blue").x, 0.3);
    EXPECT_GT(directionOf(Camera::kWall, "magenta").y, 0.2);
}

TEST(SampleScene, IsBlackOutsideTheLensCircle) {
    SampleScene scene(Camera::kCeiling, 300, 220);
    const LensCircle lens = scene.lens();
    EXPECT_GT(lens.radius, 100);
    EXPECT_LT(lens.radius, 110);
    const RgbaImage& picture = scene.picture(30);
    for (int y = 0; y < 220; ++y)
        for (int x = 0; x < 300; ++x) {
            const double reach = std::hypot(x + 0.5 - lens.xCenter, y + 0.5 - lens.yCenter);
            ASSERT_EQ(picture.at(x, y)[3], 255);
            const bool black = similar(picture.at(x, y), {0, 0, 0}, 0);
            if (std::abs(reach - lens.radius) > 1.0) {
                ASSERT_EQ(black, reach > lens.radius) << x << "," << y;
            }
        }
}

// Each picture redraws only what moves; every pixel off an edge must still be what its own line of
// sight meets in that frame.
TEST(SampleScene, DrawsEveryMovingPartOfAFrameCompletely) {
    constexpr int kSize = 400;
    SampleScene scene(Camera::kCeiling, kSize, kSize);
    const LensCircle lens = scene.lens();
    CarPark carPark;
    for (const int frame : {0, 60, 61, 110, 230, 375, 599}) {
        const RgbaImage& picture = scene.picture(frame);
        carPark.showTraffic(frame);
        const auto look = [&](double x, double y) {
            const double dx = x - lens.xCenter, dy = y - lens.yCenter;
            const double reach = std::hypot(dx, dy), angle = reach / lens.radius * 85.0 * kPi / 180.0;
            const double aside = std::sin(angle) / reach;
            return carPark.look({{0, 0, 3.3}, {dx * aside, -dy * aside, -std::cos(angle)}});
        };
        int compared = 0;
        for (int y = 0; y < kSize; y += 2)
            for (int x = 0; x < kSize; x += 2) {
                if (std::hypot(x - lens.xCenter, y - lens.yCenter) > lens.radius - 3.0) continue;
                const Vec3 colour = look(x + 0.5, y + 0.5);
                const auto flat = [&](double aside, double down) {
                    const Vec3 other = look(x + 0.5 + aside, y + 0.5 + down) - colour;
                    return std::abs(other.x) < 12 && std::abs(other.y) < 12 && std::abs(other.z) < 12;
                };
                if (!flat(-1, 0) || !flat(1, 0) || !flat(0, -1) || !flat(0, 1)) continue;
                ASSERT_TRUE(similar(picture.at(x, y), colour, 1.0))
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
        EXPECT_EQ(wandering.picture(40).pixels, expected);
        EXPECT_EQ(wandering.picture(40 + kTrafficPeriod).pixels, expected) << "the traffic comes round again";
        EXPECT_EQ(wandering.picture(40 - kTrafficPeriod).pixels, expected);
    }
}

}  // namespace
