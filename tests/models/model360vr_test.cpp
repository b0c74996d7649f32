// The model of the 360-degree panorama: its state, its meshes and the draw calls of its layouts. GL's entries
// for uniforms are replaced by ones that keep the matrices, so that the draw operations run without a
// context.
#include <GL/glew.h>

#include <climits>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "Fovix.h"
#include "FovixModel360VR.h"
#include "projection.h"

namespace fovix {

namespace {

std::vector<Mat4> drawnMatrices;

void GLAPIENTRY keepMatrix(GLint, GLsizei, GLboolean, const GLfloat* values) {
    Mat4 matrix;
    std::copy(values, values + 16, matrix.m.begin());
    drawnMatrices.push_back(matrix);
}

class Model360VR : public testing::Test {
  protected:
    void SetUp() override {
        __glewUniformMatrix4fv = keepMatrix;
        __glewUniform1f = [](GLint, GLfloat) {};
        testing::internal::CaptureStdout();
        ops.init(*model);
        ops.setViewSize(*model, 200, 100);
    }
    void TearDown() override { testing::internal::GetCapturedStdout(); }

    View360VR viewOf(int screen) {
        View360VR view;
        ops.getPTZ(*model, screen, &view.mPan, &view.mTilt, &view.mZoom, &view.mRoll);
        return view;
    }

    /// As the host's call: a shape that is another one begins with its default views.
    void show(int mount, int shape) {
        ops.setCameraMount(*model, mount);
        ops.setShape(*model, shape);
        ops.resetPosition(*model);
    }

    VertexCachePtr fetch() { return ops.getVerticesCache(*model); }

    /// Fetches until no blend runs any more.
    VertexCachePtr fetchSettled() {
        VertexCachePtr cache = fetch();
        while (ops.needsVertexUpdate(*model)) cache = fetch();
        return cache;
    }

    std::size_t draw() {
        drawnMatrices.clear();
        ops.drawSelf(*model, 1, 2);
        return drawnMatrices.size();
    }

    FishEyeConfig lens = lensOfPicture(FOVIX_TYPE_360VR, 800, 600);
    ModelPtr model = FovixModel360VR_Create(lens);
    const FovixModelOperations& ops = model->operations;
    Model360VRParams& params = paramsOf<Model360VRParams>(*model);
};

void expectView(const View360VR& view, double pan, double tilt, double zoom, double roll) {
    EXPECT_EQ(view.mPan, pan);
    EXPECT_EQ(view.mTilt, tilt);
    EXPECT_EQ(view.mZoom, zoom);
    EXPECT_EQ(view.mRoll, roll);
}

}  // namespace

TEST_F(Model360VR, ViewsStayWithinTheirLimits) {
    for (int screen = 0; screen < kPanoramaScreens; ++screen) expectView(viewOf(screen), 90, 0, 90, 0);
    ops.setPTZ(*model, 2, -500, 100, 100, 7, 8);
    expectView(viewOf(2), -500, 90, 90, 7);
    EXPECT_EQ(params.mViews[2].mPtzFifth, 8.0);
    ops.setShape(*model, FOVIX_SHAPE_FOUR_SCREENS);
    ops.setPTZ(*model, 2, 1, 2, 60, 4, 0);
    expectView(viewOf(2), 1, 2, 40, 4);
}

TEST_F(Model360VR, RefusedNumbersChangeNothing) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    ops.setShape(*model, FOVIX_SHAPE_CYLINDER);
    for (const int number : {-1, 11, INT_MIN, INT_MAX}) {
        ops.setShape(*model, number);
        ops.setCameraMount(*model, number);
        ops.setPTZ(*model, number, 1, 2, 3, 4, 5);
        double pan = 77.0;
        ops.getPTZ(*model, number, &pan, nullptr, nullptr, nullptr);
        EXPECT_EQ(pan, 77.0);
        EXPECT_EQ(ops.getOverlayVerticesCache(*model, number), nullptr);
    }
    ops.setPTZ(*model, 0, nan, 2, 3, 4, 5);
    ops.setPTZ(*model, 0, 1, 2, 3, 4, std::numeric_limits<double>::infinity());
    EXPECT_EQ(ops.getShape(*model), FOVIX_SHAPE_CYLINDER);
    EXPECT_EQ(ops.getCameraMount(*model), FOVIX_MOUNT_CEILING);
    for (int screen = 0; screen < kPanoramaScreens; ++screen) expectView(viewOf(screen), 90, 0, 90, 0);
}

TEST_F(Model360VR, MountsChooseTheShapesTheyHave) {
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_DOME);
    ops.setCameraMount(*model, FOVIX_MOUNT_CEILING);
    EXPECT_EQ(ops.getShape(*model), FOVIX_SHAPE_DOME);
    for (const int mount : {FOVIX_MOUNT_WALL_INVERTED, FOVIX_MOUNT_FLOOR}) {
        show(mount, FOVIX_SHAPE_CYLINDER);
        EXPECT_EQ(ops.getCameraMount(*model), mount);
        EXPECT_EQ(ops.getShape(*model), FOVIX_SHAPE_SINGLE);
    }
    expectView(viewOf(3), 90, 0, 90, 0);
    show(FOVIX_MOUNT_WALL, FOVIX_SHAPE_TWO_AND_STRIP);
    EXPECT_EQ(ops.getShape(*model), FOVIX_SHAPE_TWO_AND_STRIP);
    EXPECT_EQ(ops.needsVertexUpdate(*model), 1);
}

TEST_F(Model360VR, AShapeBlendsForThirtyFetches) {
    const VertexCachePtr sphere = fetchSettled();
    ops.setPTZ(*model, 0, 30, 60, 50, 9, 3);
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_CYLINDER);  // from pan 30, tilt 60, zoom 50 to 90, 0, 90
    std::vector<float> halfway;
    for (int frame = 1; frame < 30; ++frame) {
        ASSERT_EQ(ops.needsVertexUpdate(*model), 1);
        const VertexCachePtr blend = fetch();
        ASSERT_EQ(blend->triangleCount, 3480);
        if (frame == 15) halfway = blend->positions;
        if (frame == 10) expectView(params.mMorphView, 50, 40, 50 + 40 / 3.0, 6);
    }
    const VertexCachePtr cylinder = fetch();
    EXPECT_EQ(ops.needsVertexUpdate(*model), 0);
    EXPECT_EQ(cylinder->triangleCount, 3480);
    EXPECT_EQ(fetch(), cylinder);
    ASSERT_EQ(halfway.size(), cylinder->positions.size());
    for (std::size_t i = 0; i < halfway.size(); ++i) {
        ASSERT_NEAR(halfway[i], (sphere->positions[i] + cylinder->positions[i]) / 2.0f, 1e-6f) << i;
    }
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_SINGLE);
    const VertexCachePtr back = fetch();  // the cylinder has 120 triangles less
    ASSERT_EQ(back->triangleCount, 3600);
    EXPECT_EQ(back->textureCoords, sphere->textureCoords);
    EXPECT_NE(back->positions[3480 * 9 - 1], 0.0f);
    for (std::size_t i = 3480 * 9; i < back->positions.size(); ++i) ASSERT_EQ(back->positions[i], 0.0f);
}

TEST_F(Model360VR, BlendsBeginWhereTheirKindSays) {
    ops.setPTZ(*model, 0, 30, 60, 50, 9, 3);
    ops.setShape(*model, FOVIX_SHAPE_DOME);
    expectView(params.mMorphStart, 30, 60, 50, 9);
    ops.setShape(*model, FOVIX_SHAPE_BOWL);
    expectView(params.mMorphStart, -30, 60, 50, 9);
    ops.setShape(*model, FOVIX_SHAPE_STRIP);
    expectView(params.mMorphView, 0, 60, 50, 9);
    EXPECT_EQ(params.mMorphStart.mPtzFifth, 3.0);
    ops.setCameraMount(*model, FOVIX_MOUNT_WALL);
    ops.setShape(*model, FOVIX_SHAPE_BOWL);
    expectView(viewOf(0), 90, 90, 90, 0);
    expectView(params.mMorphStart, 90, 90, 90, 0);
    for (const int mount : {FOVIX_MOUNT_CEILING, FOVIX_MOUNT_WALL}) {
        show(mount, FOVIX_SHAPE_OVERVIEW_FIVE);
        EXPECT_EQ(ops.needsVertexUpdate(*model), 0);
        EXPECT_EQ(ops.getSelectedScreen(*model), 1);
    }
}

TEST_F(Model360VR, ABlendNeitherBeginsAgainNorLeavesWhatIsFinite) {
    const double huge = std::numeric_limits<double>::max();
    ops.setPTZ(*model, 0, -huge, 0, 90, 0, 0);
    ops.setShape(*model, FOVIX_SHAPE_CYLINDER_INSIDE);
    ops.setPTZ(*model, 0, huge, 0, 90, 0, 0);
    fetch();
    EXPECT_TRUE(std::isfinite(params.mMorphView.mPan));
    params.mMorphFrame = INT_MAX - 1;
    for (int i = 0; i < 3; ++i) fetch();
    EXPECT_EQ(ops.needsVertexUpdate(*model), 0);
}

TEST_F(Model360VR, MeshesAreBuiltOncePerLensCircle) {
    const VertexCachePtr sphere = fetchSettled();
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_TWO_AND_STRIP);
    EXPECT_EQ(fetchSettled(), sphere);
    EXPECT_EQ(ops.getOverlayCount(*model), 1);
    EXPECT_EQ(ops.getOverlayVerticesCache(*model, 0)->triangleCount, 3120);
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_OVERVIEW_FIVE);
    EXPECT_EQ(fetchSettled(), sphere);
    EXPECT_EQ(ops.getOverlayCount(*model), 0);
    EXPECT_EQ(ops.getOverlayVerticesCache(*model, 0), nullptr);
    show(FOVIX_MOUNT_WALL, FOVIX_SHAPE_OVERVIEW_FIVE);
    EXPECT_NE(fetchSettled(), sphere);
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_SINGLE);
    ops.onConfigChanged(*model);
    EXPECT_NE(fetchSettled(), sphere);
    lens.TextureWidth = 0;
    EXPECT_NE(fetch(), nullptr);
    ops.onConfigChanged(*model);
    EXPECT_EQ(fetch(), nullptr);
    ops.setShape(*model, FOVIX_SHAPE_STRIP);
    EXPECT_EQ(fetch(), nullptr);
}

TEST_F(Model360VR, TouchesSelectScreensButNotOverviews) {
    const struct {
        int shape, x, y, found, selected;
    } touches[] = {{7, 150, 80, 3, 3}, {0, 150, 80, 0, 0}, {8, 10, 10, 0, 1},
                   {8, 190, 10, 1, 1}, {8, 10, 90, 5, 5},  {8, 50, 50, 0, 5},
                   {9, 150, 10, 1, 1}, {9, 150, 90, 2, 1}, {9, 10, 10, 0, 0}};
    for (const auto& touch : touches) {
        ops.setShape(*model, touch.shape);
        EXPECT_EQ(ops.selectScreen(*model, touch.x, touch.y), touch.found);
        EXPECT_EQ(ops.getSelectedScreen(*model), touch.selected) << "shape " << touch.shape;
    }
}

TEST_F(Model360VR, EveryLayoutDrawsItsScreens) {
    const struct {
        int shape;
        std::size_t screens;
    } layouts[] = {{0, 1}, {1, 1}, {3, 1}, {7, 4}, {8, 6}, {9, 2}, {10, 1}};
    for (const auto& layout : layouts) {
        show(FOVIX_MOUNT_CEILING, layout.shape);
        fetchSettled();
        EXPECT_EQ(draw(), layout.screens) << "shape " << layout.shape;
    }
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_TWO_AND_STRIP);
    fetch();
    drawnMatrices.clear();
    ops.drawOverlay(*model, 0, 1, 2);
    EXPECT_TRUE(drawnMatrices.empty());  // its mesh has not been fetched
    ASSERT_NE(ops.getOverlayVerticesCache(*model, 0), nullptr);
    ops.drawOverlay(*model, 1, 1, 2);
    ops.drawOverlay(*model, 0, 1, 2);
    ASSERT_EQ(drawnMatrices.size(), 1u);
    expectAt(project({0.0, 0.5, 0.0}, drawnMatrices[0]), {-1.0, 0.605});
}

TEST_F(Model360VR, StripsScrollWithinTheirViews) {
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_STRIP);
    fetch();
    EXPECT_EQ(draw(), 1u);  // no seam while the shape is blended
    fetchSettled();
    ops.setPTZ(*model, 0, 0, 0, 90, 0, 0);
    ASSERT_EQ(draw(), 2u);
    EXPECT_EQ(viewOf(0).mPan, -200.0);
    expectAt(project({-2.0, 0.1, 0.0}, drawnMatrices[0]), {0.0, 0.1});
    expectAt(project({-2.0 + kStripTurn / 100.0, 0.1, 0.0}, drawnMatrices[1]), {0.0, 0.1});
    ops.setPTZ(*model, 0, 450, 0, 90, 0, 0);
    EXPECT_EQ(draw(), 1u);
    EXPECT_EQ(viewOf(0).mPan, 250.0);
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_TWO_STRIPS);
    fetchSettled();
    ops.setPTZ(*model, 0, 500, 10, 80, 0, 0);
    EXPECT_EQ(draw(), 4u);  // 800 hundredths of a radian are seen: more than a turn
    expectView(viewOf(0), 100, 10, 80, 0);
    expectView(viewOf(1), (500 + 314) % 628 - 400, 10, 80, 0);
}

TEST_F(Model360VR, SurfacesWithoutAreaDrawNothing) {
    const std::pair<int, int> surfaces[] = {{0, 0},    {200, 0},           {0, 100},
                                            {-5, 100}, {INT_MIN, INT_MIN}, {INT_MAX, -1}};
    for (int shape = 0; shape < kPanoramaShapes; ++shape) {
        show(FOVIX_MOUNT_CEILING, shape);
        const View360VR before = viewOf(0);
        for (const auto& [width, height] : surfaces) {
            ops.setViewSize(*model, width, height);
            EXPECT_EQ(draw(), 0u) << width << " x " << height;
        }
        EXPECT_EQ(viewOf(0).mPan, before.mPan);
        ops.setViewSize(*model, INT_MAX, 1);
        fetch();
        EXPECT_GE(draw(), 1u);
        EXPECT_TRUE(std::isfinite(viewOf(1).mPan));
    }
}

}  // namespace fovix
