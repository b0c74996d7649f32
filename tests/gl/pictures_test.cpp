// The plain picture on surfaces of all proportions, in every pixel format.
#include <gtest/gtest.h>

#include "HeadlessGl.h"
#include "PlainPicture.h"

namespace fovix_test {
namespace {

constexpr Rgba kBackground = rgb(0x204060);

struct Size {
    int width, height;
};

TEST(PlainPicture, IsLetterboxedIntoEverySurface) {
    const struct {
        Size picture, surface;
    } cases[] = {
        {{160, 120}, {160, 120}},  // pixel by pixel
        {{160, 120}, {300, 100}},  // surface wider
        {{160, 120}, {100, 300}},  // surface taller
        {{161, 91}, {203, 203}},   // odd sizes
        {{640, 360}, {101, 67}},   // much larger than the surface
        {{30, 90}, {128, 96}},     // tall picture
    };
    for (const auto& [picture, surface] : cases) {
        SCOPED_TRACE(testing::Message() << picture.width << " wide on " << surface.width);
        Stage stage(FOVIX_TYPE_ORIGINAL, surface.width, surface.height);
        Fovix_SetBackground(stage.view, 0x204060);
        const Image image = quadrants(picture.width, picture.height);
        stage.show(image);
        EXPECT_TRUE(looksLike(stage.draw(), letterboxed(image, surface.width, surface.height, kBackground)));
    }
}

TEST(PlainPicture, FollowsCameraImageAndRotateZoomView) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 240, 160);
    Fovix_SetBackground(stage.view, 0x204060);
    const Image image = quadrants(120, 90);
    stage.show(image);
    const auto drawsLike = [&](const FlatSight& sight) {
        return looksLike(stage.draw(), flatPicture(sampled(image), sight, 240, 160, kBackground), 3);
    };
    printedBy([&] { Fovix_SetFecParams(stage.view, 960, 960, 960, 1920, 1920); });
    EXPECT_TRUE(drawsLike({1.0})) << "a square camera image squeezed into 4:3";
    printedBy([&] { Fovix_SetFecParams(stage.view, 0, 960, 960, 1920, 1920); });
    EXPECT_TRUE(drawsLike({0.75})) << "an incomplete circle does not count";
    const struct {
        double x, y, zoom, fieldOfView;
    } cases[] = {{0, 0, 0.25, 100}, {0, 0, 0.625, 95}, {0, 0, 10.5, 55},      {0, 0, 20, 20},
                 {45, 0, 1, 90},    {0, 90, 1, 90},    {-30, -60, 5.75, 72.5}};
    for (const auto& [x, y, zoom, fieldOfView] : cases) {
        Fovix_SetRotateZoom(stage.view, x, y, 77.0, zoom);
        EXPECT_TRUE(drawsLike({0.75, fieldOfView, x, y})) << x << ", " << y << ", zoom " << zoom;
    }
    double read[4] = {};
    Fovix_GetRotateZoom(stage.view, &read[0], &read[1], &read[2], &read[3]);
    EXPECT_EQ(std::to_array(read), (std::array{-30.0, -60.0, 77.0, 5.75}));
}

TEST(YuvPictures, AreConvertedInEveryLayoutInTurnWithRgba) {
    for (const auto& [width, height] : {Size{64, 48}, {63, 47}, {130, 66}, {37, 90}}) {
        Stage stage(FOVIX_TYPE_ORIGINAL, width, height);
        const Image rgba = quadrants(width, height);
        for (const int pixelFmt : {FOVIX_FORMAT_YUV420P, FOVIX_FORMAT_NV12, FOVIX_FORMAT_NV21}) {
            SCOPED_TRACE(testing::Message() << width << "x" << height << ", code " << pixelFmt);
            stage.show(pixelFmt, yuvBytes(pixelFmt, width, height), width, height);
            EXPECT_TRUE(looksLike(stage.draw(), yuvColours(width, height)));
            stage.show(rgba);
            EXPECT_TRUE(looksLike(stage.draw(), letterboxed(rgba, width, height)));
        }
    }
}

}  // namespace
}  // namespace fovix_test
