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
        {1, 1280, 720, {1281, 719, 700, 2560, 1440}, 640, 359, 350.0},
        {0, 1920, 1080, {960, 960, 900, 1920, 1920}, 960, 540, 506.25},
        {1, 1920, 1080, {960, 960, 900, 1920, 1920}, 960, 540, 900.0},
        {0, 1280, 720, {}, 640, 360, 360.0},
        {24, 1281, 720, {}, 640, 360, 640.5},
        {1, 720, 1281, {960, 540, 0, 1920, 1080}, 360, 640, 640.5},  // with a 0 the report does not count
        {1, 64, 1, {INT_MAX, INT_MAX, 1, 1, INT_MAX}, INT_MAX, 1, 64.0},
    };
    for (const auto& each : cases) {
        FishEyeConfig lens = lensOf(each.displayType, each.width, each.height, each.fec);
        SCOPED_TRACE(testing::Message() << each.width << ", type " << each.displayType);
        lens.TextureHeight = 0;  // changes nothing
        RefreshConfig(lens);
        EXPECT_EQ(lens.xCenter, each.xCenter);
        EXPECT_EQ(lens.yCenter, each.yCenter);
        EXPECT_DOUBLE_EQ(lens.radius, each.radius);
        EXPECT_DOUBLE_EQ(lens.maxRadius, each.radius);
        EXPECT_DOUBLE_EQ(lens.degreesPerPixel * each.radius, 170.0);
        EXPECT_EQ(lens.configVersion, 1);
    }
}

TEST(LensCircle, TakesTheSmallerFieldOfViewAndCountsOnPastTheLargestVersion) {
    FishEyeConfig lens;
    lens.configVersion = INT_MAX;
    FishEyeConfig_init(lens, 3, 4, 120.0, 170.0, 60.0);
    EXPECT_TRUE(lens.effectiveFov == 120.0 && lens.fov == 170.0);
    EXPECT_TRUE(lens.degreesPerPixel == 2.0 && lens.pixelsPerDegree == 0.5);
    EXPECT_EQ(lens.configVersion, INT_MIN);
}
