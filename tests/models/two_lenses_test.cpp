// Two lenses in one picture: the choice between them, the moves, their meshes.
#include "model/FovixModelTwoLensesInOne.h"

#include "Fovix.h"
#include "model_fixture.h"

namespace fovix {
namespace {

class TwoLenses : public ModelTest<TwoLensesParams, FovixModelTwoLensesInOne_Create> {
  protected:
    TwoLenses() : ModelTest(FOVIX_TYPE_TWO_LENSES, 1920, 1080) {
        lens.Fec_imgWidth = 1920;
        lens.Fec_imgHeight = 1080;
        resize(1600, 600);
    }

    void resize(int width, int height) {
        ops.setViewSize(*model, width, height);
        fetch();
    }

    void drawFrames(int count) {
        for (; count > 0; --count) {
            if (isMoving()) fetch();
            draw();
        }
    }

    /// Place (model units) and size of a picture, recovered from the matrix that was handed to GL.
    void expectDrawn(std::size_t picture, double x, double y, double scale) {
        const Mat4& m = drawn.at(picture);
        EXPECT_FLOAT_EQ(static_cast<float>(m[0]), static_cast<float>(scale));
        EXPECT_NEAR(m[12] / m[0], x, 1e-5);
        EXPECT_NEAR(m[13] / m[5], y, 1e-5);
    }

    float firstRow() { return fetch()->textureCoords[1]; }
};

TEST_F(TwoLenses, TheZoomChoosesAndMagnifiesTheHalf) {
    constexpr double kMost = std::numeric_limits<float>::max();
    const struct {
        double div, zoom, scale;
        float firstRow;
    } cases[] = {{3, 6, 2, 0.5f},
                 {4, 3.5, 3.5, 0.0f},
                 {0, 2, 2, 0.5f},
                 {-5, 1, -0.2, 0.5f},
                 {1e-300, 1e300, kMost, 0.5f}};
    resize(600, 600);
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "div " << c.div << " zoom " << c.zoom);
        ops.setLogicZoom(*model, 1.0, 10.0, c.div, 0.0);
        ops.setRotateZoom(*model, 0, 0.0, 0.0, 0.0, c.zoom);
        drawFrames(1);
        expectDrawn(0, 0.0, 0.0, c.scale);
        EXPECT_EQ(firstRow(), c.firstRow);
        EXPECT_FALSE(isMoving()) << "once per change";
    }
    EXPECT_EQ(ops.getLogicZoom(*model), std::numeric_limits<float>::max());
}

TEST_F(TwoLenses, NewThresholdsAreSaidOnceAndCountFromTheNextFrame) {
    ops.setRotateZoom(*model, 0, 90.0, 18.0, 7.0, 2.0);
    drawFrames(1);
    expectDrawn(0, -0.1, 0.5, 2.0);
    takeLines();
    for (int i = 0; i < 2; ++i) ops.setLogicZoom(*model, 1.0, 10.0, 1.5, 5.0);
    EXPECT_EQ(draw(), 0u);
    EXPECT_EQ(takeLines(),
              "two lenses parameter changed, [min:1.000000][div:1.500000][max:10.000000]"
              "-------------> maybe something wrong!!!! screen[0] zoom[2.000000]");
    drawFrames(1);
    expectDrawn(0, -0.1, 0.5, 2.0 / 1.5);
    ops.setTwoLensesDrawMode(*model, 2);
    EXPECT_EQ(ops.getTwoLensesScreen(*model), 3);
}

TEST_F(TwoLenses, MovesBetweenBothAndOne) {
    ops.setTwoLensesDrawMode(*model, 1);
    fetch();
    drawFrames(1);
    // The first of 1000 frames goes five hundred-and-firsts of the way.
    expectDrawn(0, -1.004 + 1.004 / 3 * 5 / 101, 0.0, 0.49 + 0.245 * 5 / 101);
    // 1600 × 600 is 1.5 times as wide, for its height, as 1920 × 1080.
    for (const int screen : {2, 1, 77}) {  // 77 moves nothing
        takeLines();
        for (int i = 0; i < 2; ++i) ops.setTwoLensesScreen(*model, screen);
        EXPECT_EQ(takeLines(), "tow lenses setScreen: " + std::to_string(screen));
        EXPECT_EQ(ops.getTwoLensesScreen(*model), screen);
        drawFrames(1000);
        expectDrawn(0, screen == 2 ? -3.5 : 0.0, 0.0, screen == 2 ? 0.735 : 1.0);
        expectDrawn(1, screen == 2 ? 0.0 : 3.5, 0.0, screen == 2 ? 1.0 : 0.735);
    }
    ops.setTwoLensesScreen(*model, 2);
    ops.setRotateZoom(*model, 0, 18.0, 36.0, 5.0, 4.0);
    drawFrames(1);
    EXPECT_LT(drawn.at(1)[0], 1.0) << "only a picture that fills the surface follows the zoom";
    drawFrames(1000);
    ops.setRotateZoom(*model, 0, 18.0, 36.0, 5.0, 0.5);
    drawFrames(1);
    expectDrawn(1, 0.0, 0.0, 1.0);
    takeLines();
    ops.setTwoLensesDrawMode(*model, 1);
    EXPECT_EQ(takeLines(), "tow lenses setDrawMode: 1");
    ops.setTwoLensesScreen(*model, 1);
    resize(800, 800);  // not wide: no step is made
    drawFrames(1);
    EXPECT_EQ(params.mFirstX.current, -1.004) << "a draw mode starts from its first places";
}

TEST_F(TwoLenses, KeepsBothMeshesUntilSurfaceOrLensChange) {
    const VertexCachePtr upper = fetch();
    ops.setTwoLensesDrawMode(*model, 1);
    ops.setRotateZoom(*model, 0, 1.0, 2.0, 3.0, 5.0);
    EXPECT_EQ(rotateZoomOf(0), (View{0, 0, 0, 5})) << "side by side drops the pan";
    const VertexCachePtr lower = ops.getOverlayVerticesCache(*model, 0);
    EXPECT_TRUE(fetch() == upper && lower != upper && !ops.getOverlayVerticesCache(*model, 1));
    ops.setTwoLensesDrawMode(*model, 3);
    EXPECT_TRUE(fetch() == lower && !ops.getOverlayVerticesCache(*model, 0));
    resize(1600, 600);
    EXPECT_NE(fetch(), lower);
    lens.TextureWidth = 0;
    EXPECT_NE(fetch(), nullptr);
    ops.onConfigChanged(*model);
    takeLines();
    EXPECT_EQ(fetch(), nullptr);
    EXPECT_EQ(takeLines(),
              "FovixModelTwoLensesInOne::createVertices()\n"
              "GridMesh_Create_HalfBottom()\nerror pCtxt = NULL\n");
}

TEST_F(TwoLenses, EverySizeLeavesFinitePlaces) {
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
