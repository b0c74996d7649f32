// The sample against an independent equidistant lens: landmarks where they belong, and the same image of a
// frame whatever was drawn before.

#include "sample/SampleScene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>
#include <tuple>

#include "Image.h"

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

TEST(SampleScene, ShowsEachLandmarkWhereTheLensPutsIt) {
    for (const auto& [camera, count] : {std::pair{Camera::kCeiling, 6u}, std::pair{Camera::kWall, 5u}})
        for (const auto& [width, height] : {std::pair{640, 640}, std::pair{401, 701}}) {
            SampleScene scene(camera, width, height);
            EXPECT_EQ(scene.lens().imageWidth, width);
            EXPECT_EQ(scene.lens().imageHeight, height);
            EXPECT_EQ(scene.visibleLandmarks().size(), count);
            const RgbaImage& image = scene.image(0);
            for (const auto& mark : scene.visibleLandmarks()) {
                SCOPED_TRACE(testing::Message() << mark.name << " in " << width << "x" << height);
                const auto [x, y] = equidistant(scene.lens(), mark.direction);
                const FramePoint projected = project(scene.lens(), mark.direction);
                EXPECT_NEAR(projected.x, x, 1e-6);
                EXPECT_NEAR(projected.y, y, 1e-6);
                const std::uint8_t* pixel = image.at(static_cast<int>(x), static_cast<int>(y));
                for (std::size_t c = 0; c < 3; ++c) EXPECT_NEAR(pixel[c], mark.colour[c], 1);
            }
        }
}

// Each frame redraws only what moves. To store pictures that have changed, run with FOVIX_UPDATE=1.
TEST(SampleScene, LooksLikeItsStoredPictures) {
    SampleScene ceiling(Camera::kCeiling, 160, 160), wall(Camera::kWall, 200, 120);
    for (const auto& [name, scene, frame] :
         {std::tuple{"sample-60", &ceiling, 60}, std::tuple{"sample-110", &ceiling, 110},
          std::tuple{"sample-375", &ceiling, 375}, std::tuple{"sample-wall-230", &wall, 230}}) {
        const RgbaImage& drawn = scene->image(frame);
        fovix_test::Image image(drawn.width, drawn.height);
        image.bytes = drawn.pixels;
        EXPECT_TRUE(fovix_test::isAsStored(std::string(FOVIX_STORED "/") + name + ".png", image)) << name;
    }
}

TEST(SampleScene, DependsOnNothingButCameraSizeAndFrame) {
    for (const Camera camera : {Camera::kCeiling, Camera::kWall}) {
        SampleScene straight(camera, 200, 200), wandering(camera, 200, 200);
        const std::vector<std::uint8_t> expected = straight.image(40).pixels;
        for (const int frame : {0, 300, 41}) EXPECT_NE(wandering.image(frame).pixels, expected) << frame;
        for (const int frame : {40, 40 + kTrafficPeriod, 40 - kTrafficPeriod})
            EXPECT_EQ(wandering.image(frame).pixels, expected) << frame;
    }
}

}  // namespace
