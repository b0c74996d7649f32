// Two lenses in one frame: a threshold that comes between the fetch and the draw, and every size's
// proportions.
#include "model/FovixModelTwoLensesInOne.h"

#include <gtest/gtest.h>

#include <climits>

#include "Fovix.h"

namespace fovix {
namespace {

TEST(TwoLenses, AThresholdPassedBeforeTheDrawIsPrintedAndDrawsNothing) {
    static int drawn = 0;
    Device device;
    device.operations.setViewport = [](Device&, const DeviceRect&) {};
    device.operations.drawMesh = [](Device&, const Mat4&, const char*, int) { ++drawn; };
    FishEyeConfig lens;
    lens.TextureWidth = 1920;
    lens.TextureHeight = 1080;
    testing::internal::CaptureStdout();
    const ModelPtr model = FovixModelTwoLensesInOne_Create(lens);
    const FovixModelOperations& ops = model->operations;
    ops.init(*model);
    ops.setViewSize(*model, 1600, 600);
    ops.setRotateZoom(*model, 0, 90.0, 18.0, 7.0, 2.0);
    model->needsVertexUpdate();
    ops.getVerticesCache(*model);
    model->drawSelf(device);
    EXPECT_EQ(drawn, 1);
    ops.setLogicZoom(*model, 1.0, 10.0, 1.5, 5.0);
    model->drawSelf(device);
    EXPECT_EQ(drawn, 1);
    const std::string lines = testing::internal::GetCapturedStdout();
    EXPECT_TRUE(lines.ends_with("-------------> maybe something wrong!!!! screen[0] zoom[2.000000]"))
        << lines;
}

TEST(TwoLenses, EverySizeHasFiniteProportions) {
    const struct {
        int width, height, imgWidth, imgHeight;
        double fix;
    } cases[] = {{1600, 600, 1920, 1080, 1.5}, {1600, 900, 1920, 1080, 1.0},  {1600, 600, -1, -1, 8.0 / 3},
                 {1600, 600, 0, 1080, 1.0},    {1600, 600, 1920, 0, 1.0},     {1600, 600, -1, 5, 1.0},
                 {1600, 0, 1920, 1080, 1.0},   {INT_MIN, INT_MAX, -1, 1, 1.0}};
    for (const auto& [width, height, imgWidth, imgHeight, fix] : cases) {
        EXPECT_DOUBLE_EQ(aspectFixOf(width, height, imgWidth, imgHeight), fix) << width << ", " << imgWidth;
    }
}

}  // namespace
}  // namespace fovix
