// The plain and the Korvel picture on surfaces of all proportions, in every pixel format.
#include <gtest/gtest.h>

#include <cmath>

#include "HeadlessGl.h"
#include "PlainPicture.h"

namespace fovix_test {
namespace {

constexpr Rgba kBackground = rgb(0x204060);

struct Size {
    int width, height;
};

void showYuv(Stage& stage, const YuvPicture& picture, int pixelFmt) {
    const std::vector<std::uint8_t> bytes = picture.packed(pixelFmt);
    stage.lines = printedBy([&] {
        Fovix_SetTexture(stage.view, pixelFmt, bytes.data(), static_cast<int>(bytes.size()), picture.y.width,
                         picture.y.height);
    });
}

TEST(PlainPicture, IsLetterboxedIntoEverySurface) {
    struct Case {
        Size picture, surface;
    };
    const Case cases[] = {
        {{160, 120}, {160, 120}},  // pixel by pixel
        {{160, 120}, {300, 100}},  // surface wider
        {{160, 120}, {100, 300}},  // surface taller
        {{161, 91}, {203, 203}},   // odd sizes
        {{640, 360}, {101, 67}},   // much larger than the surface
        {{30, 90}, {128, 96}},     // tall picture
    };
    for (const auto& [picture, surface] : cases) {
        SCOPED_TRACE(testing::Message() << picture.width << "x" << picture.height << " on " << surface.width
                                        << "x" << surface.height);
        Stage stage(FOVIX_TYPE_ORIGINAL, surface.width, surface.height);
        Fovix_SetBackground(stage.view, 0x204060);
        const Image image = quadrants(picture.width, picture.height);
        stage.show(image);
        const double shape = static_cast<double>(picture.height) / picture.width;
        EXPECT_TRUE(looksLike(
            stage.draw(), flatPicture(sampled(image), {shape}, surface.width, surface.height, kBackground)));
    }
}

TEST(PlainPicture, LandmarksStandWhereTheyAreCounted) {
    // 160 x 120 on 320 x 120: the picture covers columns 80 to 239.
    Stage stage(FOVIX_TYPE_ORIGINAL, 320, 120);
    Fovix_SetBackground(stage.view, 0x204060);
    stage.show(quadrants(160, 120));
    const Image shown = stage.draw();
    EXPECT_TRUE(showsAt(shown, {{79, 60, kBackground},
                                {240, 60, kBackground},
                                {80 + 30, 20, rgb(0xFFFFFF)},
                                {80 + 70, 10, rgb(0xE01010)},
                                {80 + 90, 10, rgb(0x10C020)},
                                {80 + 10, 110, rgb(0x2030F0)},
                                {80 + 150, 110, rgb(0xE0D020)}}));
}

TEST(PlainPicture, TakesTheProportionsOfTheCameraImage) {
    // A square camera image squeezed into 16:9 is shown square again.
    Stage stage(FOVIX_TYPE_ORIGINAL, 200, 160);
    Fovix_SetBackground(stage.view, 0x204060);
    const Image image = quadrants(160, 90);
    stage.show(image);
    printedBy([&] { Fovix_SetFecParams(stage.view, 960, 960, 960, 1920, 1920); });
    EXPECT_TRUE(looksLike(stage.draw(), flatPicture(sampled(image), {1.0}, 200, 160, kBackground)));
    printedBy([&] { Fovix_SetFecParams(stage.view, 0, 960, 960, 1920, 1920); });
    EXPECT_TRUE(looksLike(stage.draw(), flatPicture(sampled(image), {90.0 / 160}, 200, 160, kBackground)))
        << "an incomplete circle does not count";
}

TEST(PlainPicture, FollowsTheRotateZoomView) {
    struct Case {
        double rotateX, rotateY, zoom, fieldOfView;
    };
    const Case cases[] = {
        {0, 0, 0.25, 100}, {0, 0, 0.625, 95}, {0, 0, 10.5, 55},       {0, 0, 20, 20},
        {45, 0, 1, 90},    {0, 90, 1, 90},    {-30, -60, 5.75, 72.5},
    };
    Stage stage(FOVIX_TYPE_ORIGINAL, 240, 160);
    Fovix_SetBackground(stage.view, 0x204060);
    const Image image = quadrants(120, 90);
    stage.show(image);
    for (const Case& view : cases) {
        SCOPED_TRACE(testing::Message() << view.rotateX << ", " << view.rotateY << ", zoom " << view.zoom);
        Fovix_SetRotateZoom(stage.view, view.rotateX, view.rotateY, 77.0, view.zoom);
        const FlatSight sight = {0.75, view.fieldOfView, view.rotateX, view.rotateY};
        EXPECT_TRUE(looksLike(stage.draw(), flatPicture(sampled(image), sight, 240, 160, kBackground), 3));
    }
    double read[4] = {};
    Fovix_GetRotateZoom(stage.view, &read[0], &read[1], &read[2], &read[3]);
    EXPECT_EQ(read[2], 77.0);
    EXPECT_EQ(read[3], 5.75);
}

TEST(YuvPictures, AreConvertedInEveryLayout) {
    for (const Size size : {Size{64, 48}, Size{63, 47}, Size{130, 66}, Size{37, 90}, Size{2, 2}}) {
        for (const int pixelFmt : {FOVIX_FORMAT_YUV420P, FOVIX_FORMAT_NV12, FOVIX_FORMAT_NV21}) {
            SCOPED_TRACE(testing::Message() << size.width << "x" << size.height << ", code " << pixelFmt);
            Stage stage(FOVIX_TYPE_ORIGINAL, size.width, size.height);
            const YuvPicture picture = YuvPicture::sample(size.width, size.height);
            showYuv(stage, picture, pixelFmt);
            const double shape = static_cast<double>(size.height) / size.width;
            EXPECT_TRUE(looksLike(stage.draw(),
                                  flatPicture(sampled(picture), {shape}, size.width, size.height, rgb(0))));
        }
    }
}

TEST(YuvPictures, SwapChromaBetweenTheInterleavedCodes) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 64, 48);
    const YuvPicture picture = YuvPicture::sample(64, 48);
    const YuvPicture swapped = {picture.y, picture.v, picture.u};
    const std::vector<std::uint8_t> uFirst = picture.packed(FOVIX_FORMAT_NV12);
    printedBy([&] {
        Fovix_SetTexture(stage.view, FOVIX_FORMAT_NV21, uFirst.data(), static_cast<int>(uFirst.size()), 64,
                         48);
    });
    EXPECT_TRUE(looksLike(stage.draw(), flatPicture(sampled(swapped), {0.75}, 64, 48, rgb(0))));
}

TEST(YuvPictures, AlternateWithRgba) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 96, 72);
    const YuvPicture yuv = YuvPicture::sample(96, 72);
    const Image rgba = quadrants(96, 72);
    for (int round = 0; round < 2; ++round) {
        showYuv(stage, yuv, FOVIX_FORMAT_YUV420P);
        EXPECT_TRUE(looksLike(stage.draw(), flatPicture(sampled(yuv), {0.75}, 96, 72, rgb(0))));
        stage.show(rgba);
        EXPECT_TRUE(looksLike(stage.draw(), flatPicture(sampled(rgba), {0.75}, 96, 72, rgb(0))));
    }
}

/// Where the straightened picture samples: the crossing of two ellipses round the centre, one through
/// (±x, 0) and (0, ±a), the other through (±b, 0) and (0, ±y). Linear in the squares of the coordinates.
std::array<double, 2> crossing(double x, double y, double a, double b) {
    if (x == 0.0 || y == 0.0) return {x, y};
    const double p1 = 1 / (x * x), q1 = 1 / (a * a), p2 = 1 / (b * b), q2 = 1 / (y * y);
    const double determinant = p1 * q2 - p2 * q1;
    return {std::copysign(std::sqrt((q2 - q1) / determinant), x),
            std::copysign(std::sqrt((p1 - p2) / determinant), y)};
}

TEST(KorvelPicture, PutsLandmarksOntoTheStraightenedGrid) {
    struct Case {
        Size picture, surface;
        double a, b;  // half axes in picture widths
    };
    const Case cases[] = {{{400, 300}, {250, 200}, 0.75, 0.675},
                          {{400, 300}, {400, 150}, 0.75, 0.675},
                          {{704, 576}, {352, 288}, 1.0, 0.655}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.picture.width << " on " << c.surface.width << "x" << c.surface.height);
        Image image(c.picture.width, c.picture.height, rgb(0x404040));
        std::vector<Probe> probes;
        for (const auto& [column, row] :
             {std::array{3, 3}, {40, 10}, {10, 40}, {47, 47}, {25, 25}, {25, 5}, {45, 25}, {5, 44}}) {
            // Shares of the surface, from the middle; y downwards.
            const double right = column / 50.0 - 0.5, down = row / 50.0 - 0.5;
            const double w = c.picture.width, h = c.picture.height;
            const auto [x, y] = crossing(right * w, down * h, c.a * w, c.b * w);
            const Rgba colour = {static_cast<std::uint8_t>(100 + 3 * column),
                                 static_cast<std::uint8_t>(4 * row), 200, 255};
            for (int dy = -3; dy <= 3; ++dy) {
                for (int dx = -3; dx <= 3; ++dx) {
                    image.set(static_cast<int>(x + w / 2) + dx, static_cast<int>(y + h / 2) + dy, colour);
                }
            }
            probes.push_back({static_cast<int>((right + 0.5) * c.surface.width),
                              static_cast<int>((down + 0.5) * c.surface.height), colour});
        }
        Stage stage(FOVIX_TYPE_KORVEL, c.surface.width, c.surface.height);
        stage.show(image);
        const Image shown = stage.draw();
        EXPECT_TRUE(showsAt(shown, probes));
        EXPECT_NE(stage.lines.find("createVertices()\nGridMesh_Create_Korvel()\nkorvel : "),
                  std::string::npos);
    }
}

}  // namespace
}  // namespace fovix_test
