// The model of the 360-degree panorama: its state, its meshes and the draw calls of its layouts.
#include "model/FovixModel360VR.h"

#include "Fovix.h"
#include "model_fixture.h"

namespace fovix {
namespace {

/// Pan, tilt, zoom and roll.
View valuesOf(const View360VR& view) {
    return {view.mPan, view.mTilt, view.mZoom, view.mRoll};
}

class Model360VR : public ModelTest<VR360Params, FovixModel360VR_Create> {
  protected:
    Model360VR() : ModelTest(FOVIX_TYPE_360VR, 800, 600) { ops.setViewSize(*model, 200, 100); }

    View viewOf(int screen) {
        View view = {};
        ops.getPTZ(*model, screen, &view[0], &view[1], &view[2], &view[3]);
        return view;
    }

    /// As the host's call: a shape that is another one begins with its default views.
    void show(int mount, int shape) {
        ops.setCameraMount(*model, mount);
        ops.setShape(*model, shape);
        ops.resetPosition(*model);
    }

    VertexCachePtr fetchSettled() {
        while (fetch() && isMoving()) {
        }
        return fetch();
    }
};

TEST_F(Model360VR, ViewsStayWithinTheirLimitsAndRefusedNumbersChangeNothing) {
    constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
    ops.setShape(*model, FOVIX_SHAPE_FOUR_SCREENS);
    for (const int number : {-1, 11, INT_MIN, INT_MAX}) {
        ops.setShape(*model, number);
        ops.setCameraMount(*model, number);
        ops.setPTZ(*model, number, 1, 2, 3, 4, 5);
        EXPECT_TRUE(viewOf(number) == View{} && !ops.getOverlayVerticesCache(*model, number)) << number;
    }
    ops.setPTZ(*model, 0, kNan, 2, 3, 4, 5);
    ops.setPTZ(*model, 0, 1, 2, 3, 4, std::numeric_limits<double>::infinity());
    EXPECT_TRUE(ops.getShape(*model) == FOVIX_SHAPE_FOUR_SCREENS && ops.getCameraMount(*model) == 0);
    for (int screen = 0; screen < kPanoramaScreens; ++screen) EXPECT_EQ(viewOf(screen), (View{90, 0, 90, 0}));
    ops.setPTZ(*model, 2, -500, 100, 100, 7, 8);
    EXPECT_EQ(viewOf(2), (View{-500, 90, 40, 7}));
    EXPECT_EQ(params.mViews[2].mPtzFifth, 8.0);
}

TEST_F(Model360VR, MountsChooseTheShapesTheyHave) {
    const std::array<int, 3> shown[] = {{0, 1, 1}, {0, 3, 3}, {2, 3, 0}, {3, 3, 0}, {1, 9, 9}};
    for (const auto& [mount, shape, expected] : shown) {
        show(mount, shape);
        ops.setCameraMount(*model, mount);
        EXPECT_TRUE(ops.getCameraMount(*model) == mount && ops.getShape(*model) == expected) << mount;
    }
    EXPECT_TRUE(isMoving());
}

TEST_F(Model360VR, AShapeBlendsForThirtyFetches) {
    const VertexCachePtr sphere = fetchSettled();
    ops.setPTZ(*model, 0, 30, 60, 50, 9, 3);
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_CYLINDER);
    std::vector<float> halfway;
    for (int frame = 1; frame < 30; ++frame) {
        const VertexCachePtr blend = fetch();
        ASSERT_EQ(blend->triangleCount, 3480);
        if (frame == 15) halfway = blend->positions;
    }
    EXPECT_EQ(valuesOf(params.mBlendView), (View{88, 2, 50 + 40 * 29 / 30.0, 9 - 9 * 29 / 30.0}));
    const VertexCachePtr cylinder = fetch();
    EXPECT_FALSE(isMoving());
    for (std::size_t i = 0; i < cylinder->positions.size(); ++i) {
        ASSERT_NEAR(halfway.at(i), (sphere->positions[i] + cylinder->positions[i]) / 2.0f, 1e-6f) << i;
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
    const std::pair<int, double> panOfShapes[] = {{1, 30}, {2, -30}, {1, -30}, {5, 0}, {3, 30}};
    for (const auto& [shape, pan] : panOfShapes) {
        ops.setShape(*model, shape);
        EXPECT_EQ(valuesOf(params.mBlendView), (View{pan, 60, 50, 9})) << shape;
        const VertexCachePtr blend = fetch(), target = params.mMeshCaches[0][static_cast<std::size_t>(shape)];
        EXPECT_EQ(blend->triangleCount, target->triangleCount) << shape;
    }
    EXPECT_EQ(params.mBlendStart.mPtzFifth, 3.0);
    ops.setCameraMount(*model, FOVIX_MOUNT_WALL);
    ops.setShape(*model, FOVIX_SHAPE_BOWL);
    EXPECT_EQ(viewOf(0), (View{90, 90, 90, 0}));
    EXPECT_EQ(valuesOf(params.mBlendStart), (View{90, 90, 90, 0}));
    show(FOVIX_MOUNT_WALL, FOVIX_SHAPE_OVERVIEW_FIVE);
    EXPECT_FALSE(isMoving());
    EXPECT_EQ(ops.getSelectedScreen(*model), 1);
}

TEST_F(Model360VR, ABlendNeitherBeginsAgainNorLeavesWhatIsFinite) {
    const double huge = std::numeric_limits<double>::max();
    ops.setPTZ(*model, 0, -huge, 0, 90, 0, 0);
    ops.setShape(*model, FOVIX_SHAPE_CYLINDER_INSIDE);
    ops.setPTZ(*model, 0, huge, 0, 90, 0, 0);
    fetch();
    EXPECT_TRUE(std::isfinite(params.mBlendView.mPan));
    params.mBlend.frame = INT_MAX - 1;
    for (int i = 0; i < 3; ++i) fetch();
    EXPECT_FALSE(isMoving());
}

TEST_F(Model360VR, MeshesAreBuiltOncePerLensCircle) {
    const VertexCachePtr sphere = fetchSettled();
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_TWO_AND_STRIP);
    EXPECT_EQ(fetchSettled(), sphere);
    EXPECT_EQ(draw(), 2u) << "the strip's mesh has not been fetched";
    EXPECT_EQ(ops.getOverlayVerticesCache(*model, 0)->triangleCount, 3120);
    EXPECT_EQ(draw(), 3u);
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_OVERVIEW_FIVE);
    EXPECT_EQ(fetchSettled(), sphere);
    EXPECT_TRUE(ops.getOverlayCount(*model) == 0 && !ops.getOverlayVerticesCache(*model, 0));
    show(FOVIX_MOUNT_WALL, FOVIX_SHAPE_OVERVIEW_FIVE);
    EXPECT_NE(fetchSettled(), sphere);
    lens.TextureWidth = 0;
    EXPECT_NE(fetch(), nullptr);
    ops.onConfigChanged(*model);
    EXPECT_EQ(fetch(), nullptr);
    ops.setShape(*model, FOVIX_SHAPE_BOWL);
    EXPECT_EQ(fetch(), nullptr);
}

TEST_F(Model360VR, TouchesSelectScreensButNotOverviews) {
    const std::array<int, 5> touches[] = {{7, 150, 80, 3, 3}, {8, 10, 10, 0, 1},  {8, 10, 90, 5, 5},
                                          {8, 50, 50, 0, 5},  {9, 150, 10, 1, 1}, {9, 150, 90, 2, 1}};
    for (const auto& [shape, x, y, found, selected] : touches) {
        ops.setShape(*model, shape);
        EXPECT_EQ(ops.selectScreen(*model, x, y), found);
        EXPECT_EQ(ops.getSelectedScreen(*model), selected) << "shape " << shape;
    }
    ops.setShape(*model, FOVIX_SHAPE_FOUR_SCREENS);
    EXPECT_EQ(ops.getSelectedScreen(*model), 0);
}

TEST_F(Model360VR, StripsScrollWithinTheirViews) {
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_STRIP);
    fetch();
    EXPECT_EQ(draw(), 1u) << "no seam while the shape is blended";
    fetchSettled();
    ops.setPTZ(*model, 0, 0, 0, 90, 0, 0);
    EXPECT_EQ(draw(), 2u);
    EXPECT_EQ(viewOf(0)[0], -200.0);
    show(FOVIX_MOUNT_CEILING, FOVIX_SHAPE_TWO_STRIPS);
    fetchSettled();
    ops.setPTZ(*model, 0, 500, 10, 80, 0, 0);
    EXPECT_EQ(draw(), 4u);  // 800 hundredths of a radian are seen: more than a turn
    EXPECT_EQ(viewOf(0), (View{100, 10, 80, 0}));
    EXPECT_EQ(viewOf(1), (View{(500 + 314) % 628 - 400, 10, 80, 0}));
}

TEST_F(Model360VR, SurfacesWithoutAreaDrawNothing) {
    for (int shape = 0; shape < kPanoramaShapes; ++shape) {
        show(FOVIX_MOUNT_CEILING, shape);
        const View before = viewOf(0);
        for (const auto& [width, height] : {std::pair{200, 0}, {0, 100}, {-5, 100}, {INT_MIN, INT_MIN}}) {
            ops.setViewSize(*model, width, height);
            EXPECT_EQ(draw(), 0u) << width << " x " << height;
        }
        EXPECT_EQ(viewOf(0), before);
        ops.setViewSize(*model, INT_MAX, 1);
        fetch();
        EXPECT_GE(draw(), 1u);
        EXPECT_TRUE(std::isfinite(viewOf(1)[0]));
    }
}

}  // namespace
}  // namespace fovix
