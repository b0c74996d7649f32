// The lens circle in the texture, from what the host reports about the camera's image.
#include <climits>

#include "mesh_reading.h"

using namespace fovix;

TEST(LensCircle, FollowsFromTextureAndHostReport) {
    const struct {
        int displayType, width, height;
        Fec fec;
        int xCenter, yCenter;
        double radius;
    } cases[] = {
        {0, 1920, 1080, {960, 540, 540, 1920, 1080}, 960, 540, 540.0},
        {1, 1280, 720, {1281, 719, 700, 2560, 1440}, 640, 359, 350.0},
        {0, 1920, 1080, {960, 960, 900, 1920, 1920}, 960, 540, 506.25},
        {1, 1920, 1080, {960, 960, 900, 1920, 1920}, 960, 540, 900.0},
        {0, 1280, 720, {}, 640, 360, 360.0},
        {24, 1280, 720, {}, 640, 360, 640.0},
        {1, 1281, 720, {}, 640, 360, 640.5},
        {1, 720, 1281, {960, 540, 0, 1920, 1080}, 360, 640, 640.5},  // one value of 0: the report does not
                                                                     // count
        {1, 64, 1, {INT_MAX, INT_MAX, 1, 1, INT_MAX}, INT_MAX, 1, 64.0},
    };
    for (const auto& each : cases) {
        const FishEyeConfig lens = lensOf(each.displayType, each.width, each.height, each.fec);
        SCOPED_TRACE(testing::Message()
                     << each.width << " x " << each.height << " type " << each.displayType);
        EXPECT_EQ(lens.xCenter, each.xCenter);
        EXPECT_EQ(lens.yCenter, each.yCenter);
        EXPECT_DOUBLE_EQ(lens.radius, each.radius);
        EXPECT_DOUBLE_EQ(lens.maxRadius, each.radius);
        EXPECT_DOUBLE_EQ(lens.degreesPerPixel * each.radius, 170.0);
        EXPECT_DOUBLE_EQ(lens.degreesPerPixel * lens.pixelsPerDegree, 1.0);
        EXPECT_EQ(lens.configVersion, 1);
    }
}

TEST(LensCircle, PrintsWhatItWasMadeFrom) {
    EXPECT_EQ(
        printed([] {
            lensOf(0, 1920, 1080, {961, 960, 900, 1920, 1920});
        }),
        "RefreshConfig\n    TextureUseful : 1\n    isFecValid : 1\n"
        "    radiusX : 900.000000\n    radiusY : 506.250000\n"
        "    TextureWidht : 1920\n    TextureHeight : 1080\n    Fec_xCenter : 961\n    Fec_yCenter : 960\n"
        "    Fec_imgWidth : 1920\n    Fec_imgHeight : 1920\n    Fec_radius : 900\n"
        "    xCenter : 961.000000\n    yCenter : 540.000000\n    radius : 506.250000\n"
        "FishEyeConfig_init(961, 540, 170.000000, 170.000000, 506.250000)\n");
    EXPECT_EQ(printed([] { lensOf(1, 11, 4); }),
              "RefreshConfig\n    TextureUseful : 1\n    isFecValid : 0\n"
              "FishEyeConfig_init(5, 2, 170.000000, 170.000000, 5.500000)\n");
}

TEST(LensCircle, StaysWithoutAPicture) {
    FishEyeConfig lens = lensOf(0, 1920, 1080);
    lens.TextureHeight = 0;
    EXPECT_EQ(printed([&] { RefreshConfig(lens); }),
              "RefreshConfig\n    TextureUseful : 0\n    isFecValid : 0\n");
    EXPECT_EQ(lens.configVersion, 1);
    EXPECT_EQ(lens.yCenter, 540);
    EXPECT_EQ(lens.radius, 540.0);
}

TEST(LensCircle, TakesTheSmallerFieldOfViewAndCountsOnPastTheLargestVersion) {
    FishEyeConfig lens;
    lens.configVersion = INT_MAX;
    FishEyeConfig_init(lens, 3, 4, 120.0, 170.0, 60.0);
    EXPECT_EQ(lens.effectiveFov, 120.0);
    EXPECT_EQ(lens.fov, 170.0);
    EXPECT_EQ(lens.degreesPerPixel, 2.0);
    EXPECT_EQ(lens.configVersion, INT_MIN);
}
