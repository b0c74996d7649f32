// Two lenses in one picture: what is drawn where, and the moves between.
//
// GL's entry for matrices is replaced by one that keeps them, so that the draw operations run without a
// context.
#include <GL/glew.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "FovixModelTwoLensesInOne.h"

using namespace fovix;

namespace {

std::vector<std::vector<float>> uploads;

void GLAPIENTRY keepMatrix(GLint, GLsizei, GLboolean, const GLfloat* values) {
    uploads.emplace_back(values, values + 16);
}

class TwoLenses : public testing::Test {
  protected:
    void SetUp() override {
        __glewUniformMatrix4fv = keepMatrix;
        __glewUniform1f = [](GLint, GLfloat) {};
        testing::internal::CaptureStdout();
        lens.TextureWidth = lens.Fec_imgWidth = 1920;
        lens.TextureHeight = lens.Fec_imgHeight = 1080;
        ops.init(*model);
        resize(1600, 600);
    }
    void TearDown() override { testing::internal::GetCapturedStdout(); }

    std::string takeLines() {
        const std::string lines = testing::internal::GetCapturedStdout();
        testing::internal::CaptureStdout();
        return lines;
    }

    void resize(int width, int height) {
        ops.setViewSize(*model, width, height);
        ops.getVerticesCache(*model);
    }

    void chooseMode(int mode) {
        ops.setTwoLensesDrawMode(*model, mode);
        ops.getVerticesCache(*model);
    }

    void drawFrames(int count) {
        for (; count > 0; --count) {
            uploads.clear();
            if (ops.needsVertexUpdate(*model)) ops.getVerticesCache(*model);
            ops.drawSelf(*model, 0, 0);
            for (int i = 0; i < ops.getOverlayCount(*model); ++i) ops.drawOverlay(*model, i, 0, 0);
        }
    }

    /// Place (model units) and size of a picture, recovered from the matrix that was handed to GL.
    void expectDrawn(std::size_t picture, double x, double y, double scale) {
        ASSERT_LT(picture, uploads.size());
        const std::vector<float>& m = uploads[picture];
        const double aspect = static_cast<double>(model->backingWidth) / model->backingHeight;
        const double values[] = {m[0], m[5], m[12], m[13], m[15]};
        const double expected[] = {scale, scale * aspect, x * scale, y * scale * aspect, 1.0};
        for (int i = 0; i < 5; ++i) {
            EXPECT_NEAR(values[i], expected[i], 1e-5 * std::max(1.0, std::abs(expected[i]))) << i;
        }
    }

    float firstRow() { return ops.getVerticesCache(*model)->textureCoords[1]; }

    FishEyeConfig lens;
    ModelPtr model = FovixModelTwoLensesInOne_Create(lens);
    const FovixModelOperations& ops = model->operations;
    const TwoLensesParams& p = paramsOf<TwoLensesParams>(*model);
};

TEST_F(TwoLenses, TheZoomChoosesAndMagnifiesTheHalf) {
    constexpr double kMost = std::numeric_limits<float>::max();
    const struct {
        double div, zoom, scale;
        float firstRow;
    } cases[] = {{3, 2.9, 2.9, 0.0f}, {3, 3, 1, 0.5f}, {3, 6, 2, 0.5f},  {3, 0.25, 0.25, 0.0f},
                 {4, 3.5, 3.5, 0.0f}, {0, 2, 2, 0.5f}, {-5, 1, 1, 0.5f}, {1e-300, 1e300, kMost, 0.5f}};
    ops.setViewSize(*model, 600, 600);
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "div " << c.div << " zoom " << c.zoom);
        ops.setLogicZoom(*model, 1.0, 10.0, c.div, 0.0);
        ops.setRotateZoom(*model, 0, 0.0, 0.0, 0.0, c.zoom);
        drawFrames(1);
        expectDrawn(0, 0.0, 0.0, c.scale);
        EXPECT_EQ(firstRow(), c.firstRow);
        EXPECT_EQ(ops.needsVertexUpdate(*model), 0) << "once per change";
    }
    EXPECT_EQ(ops.getLogicZoom(*model), std::numeric_limits<float>::max());
}

TEST_F(TwoLenses, NewThresholdsAreSaidOnceAndCountFromTheNextFrame) {
    ops.setRotateZoom(*model, 0, 0.0, 0.0, 0.0, 2.0);
    drawFrames(1);
    takeLines();
    for (int i = 0; i < 2; ++i) ops.setLogicZoom(*model, 1.0, 10.0, 1.5, 5.0);
    EXPECT_EQ(takeLines(), "two lenses parameter changed, [min:1.000000][div:1.500000][max:10.000000]");
    uploads.clear();
    ops.drawSelf(*model, 0, 0);
    EXPECT_TRUE(uploads.empty());
    EXPECT_EQ(takeLines(), "-------------> maybe something wrong!!!! screen[0] zoom[2.000000]");
    drawFrames(1);
    expectDrawn(0, 0.0, 0.0, 2.0 / 1.5);
}

TEST_F(TwoLenses, PansByOneUnitPerHalfTurnUnlessFixed) {
    ops.setRotateZoom(*model, 0, 90.0, 18.0, 7.0, 2.0);
    drawFrames(1);
    expectDrawn(0, -0.1, 0.5, 2.0);
    for (const int mode : {2, 3}) {
        chooseMode(mode);
        drawFrames(1);
        expectDrawn(0, 0.0, 0.0, 1.0);
        EXPECT_EQ(firstRow(), mode == 2 ? 0.0f : 0.5f);
        EXPECT_EQ(ops.getTwoLensesScreen(*model), 3);
    }
}

TEST_F(TwoLenses, MovesBetweenBothAndOne) {
    // 1600 × 600 is 1.5 times as wide, for its height, as 1920 × 1080.
    constexpr double kBesideX = 1.004 / 1.5, kBesideScale = 0.49 * 1.5;
    chooseMode(1);
    drawFrames(1);
    // The first of 1000 frames goes five hundred-and-firsts of the way.
    const double x = 1.004 - 1.004 / 3 * 5 / 101, scale = 0.49 + 0.245 * 5 / 101;
    expectDrawn(0, -x, 0.0, scale);
    expectDrawn(1, x, 0.0, scale);
    const struct {
        int screen;
        double firstX, firstScale, secondX, secondScale;
    } cases[] = {{2, -3.5, kBesideScale, 0.0, 1.0},
                 {1, 0.0, 1.0, 3.5, kBesideScale},
                 {77, 0.0, 1.0, 3.5, kBesideScale},
                 {0, -kBesideX, kBesideScale, kBesideX, kBesideScale}};
    for (const auto& c : cases) {
        takeLines();
        for (int i = 0; i < 2; ++i) ops.setTwoLensesScreen(*model, c.screen);
        EXPECT_EQ(takeLines(), "tow lenses setScreen: " + std::to_string(c.screen));
        EXPECT_EQ(ops.getTwoLensesScreen(*model), c.screen);
        drawFrames(1000);
        expectDrawn(0, c.firstX, 0.0, c.firstScale);
        expectDrawn(1, c.secondX, 0.0, c.secondScale);
        EXPECT_EQ(p.mFirstX.animator, nullptr);
    }
    takeLines();
    ops.setTwoLensesDrawMode(*model, 1);
    EXPECT_EQ(takeLines(), "tow lenses setDrawMode: 1");
    EXPECT_EQ(p.mFirstX.current, -1.004) << "a draw mode starts from its first places";
}

TEST_F(TwoLenses, ZoomAndPanActOnThePictureThatFillsTheSurface) {
    chooseMode(1);
    ops.setRotateZoom(*model, 0, 1.0, 2.0, 3.0, 5.0);
    double x = 9, y = 9, z = 9, zoom = 9;
    ops.getRotateZoom(*model, 0, &x, &y, &z, &zoom);
    EXPECT_TRUE(x == 0 && y == 0 && z == 0 && zoom == 5) << "side by side drops the pan";
    drawFrames(1000);
    ops.setTwoLensesScreen(*model, 2);
    ops.setRotateZoom(*model, 0, 18.0, 36.0, 5.0, 4.0);
    drawFrames(1);
    EXPECT_LT(uploads.at(1)[0], 1.0f) << "still growing";
    drawFrames(1000);
    expectDrawn(0, -3.5, 0.0, 0.735);
    expectDrawn(1, -0.2, 0.1, 4.0);
    ops.setRotateZoom(*model, 0, 18.0, 36.0, 5.0, 0.5);
    drawFrames(1);
    expectDrawn(1, 0.0, 0.0, 1.0);
}

TEST_F(TwoLenses, StacksOnASurfaceThatIsNotWide) {
    resize(800, 800);
    chooseMode(1);
    ops.setTwoLensesScreen(*model, 1);
    drawFrames(1);
    expectDrawn(0, 0.0, 0.565, 1.0);
    expectDrawn(1, 0.0, -0.565, 1.0);
    EXPECT_EQ(p.mFirstX.current, -1.004) << "no step is made";
}

TEST_F(TwoLenses, KeepsBothMeshesUntilSurfaceOrLensChange) {
    const auto upper = ops.getVerticesCache(*model);
    chooseMode(1);
    const auto lower = ops.getOverlayVerticesCache(*model, 0);
    EXPECT_EQ(ops.getVerticesCache(*model), upper);
    EXPECT_EQ(ops.getOverlayVerticesCache(*model, 1), nullptr);
    chooseMode(3);
    EXPECT_EQ(ops.getVerticesCache(*model), lower);
    EXPECT_EQ(ops.getOverlayVerticesCache(*model, 0), nullptr);
    resize(1600, 600);
    EXPECT_NE(ops.getVerticesCache(*model), lower);
    lens.TextureWidth = 0;
    EXPECT_NE(ops.getVerticesCache(*model), nullptr);
    ops.onConfigChanged(*model);
    takeLines();
    EXPECT_EQ(ops.getVerticesCache(*model), nullptr);
    EXPECT_EQ(
        takeLines(),
        "FovixModelTwoLensesInOne::createVertices()\nGridMesh_Create_HalfBottom()\nerror pCtxt = NULL\n");
}

TEST_F(TwoLenses, EverySizeLeavesFinitePlaces) {
    const struct {
        int width, height, imgWidth, imgHeight;
        double fix;
    } cases[] = {{1600, 600, 1920, 1080, 1.5}, {1600, 900, 1920, 1080, 1.0},  {1600, 600, -1, -1, 8.0 / 3},
                 {1600, 600, 0, 1080, 1.0},    {1600, 600, 1920, 0, 1.0},     {1600, 600, -1, 5, 1.0},
                 {1600, 0, 1920, 1080, 1.0},   {INT_MIN, INT_MAX, -1, 1, 1.0}};
    chooseMode(1);
    for (const auto& c : cases) {
        lens.Fec_imgWidth = c.imgWidth;
        lens.Fec_imgHeight = c.imgHeight;
        resize(c.width, c.height);
        EXPECT_DOUBLE_EQ(p.mAspectFix, c.fix) << c.width << "x" << c.height << ", " << c.imgWidth;
    }
    resize(1600, 600);
    drawFrames(1000);
    expectDrawn(0, -1.004, 0.0, 0.49);
}

}  // namespace
