// The 180-degree model: shapes and modes, the cartoon from mesh to mesh, screens, views, diagnostics.
#include "model/FovixModel180VR.h"

#include "model_fixture.h"
#include "view/Screens180VR.h"

namespace fovix {
namespace {

class Model180VR : public ModelTest<VR180Params, FovixModel180VR_Create> {
  protected:
    Model180VR() : ModelTest(1, 1000, 1250) {}

    VertexCachePtr meshOf(int mode) {
        ops.setDrawMode(*model, mode);
        return fetch();
    }
    /// The next mesh's positions are as far between the two.
    void expectShare(const VertexCache& from, const VertexCache& to, float share) {
        const VertexCachePtr mesh = fetch();
        EXPECT_EQ(mesh->textureCoords, to.textureCoords);
        for (std::size_t i = 0; i < mesh->positions.size(); ++i) {
            const float start = from.positions[i];
            ASSERT_NEAR(mesh->positions[i], start + (to.positions[i] - start) * share, 1e-5f) << share;
        }
    }
};

TEST_F(Model180VR, ShapesChooseTheMesh) {
    const struct {
        int shape, mode;
        bool blends;
    } cases[] = {{5, 1, true},  {3, 2, false}, {10, 3, false}, {0, 0, true},
                 {3, 2, false}, {0, 0, false}, {5, 1, true}};
    for (const auto& [shape, mode, blends] : cases) {
        ops.setShape(*model, shape);
        EXPECT_EQ(params.mDrawMode, mode) << "shape " << shape;
        const bool isWhole = fetch() == params.mVertexCaches[static_cast<std::size_t>(mode)];
        EXPECT_TRUE(isMoving() == blends && isWhole != blends) << "shape " << shape;
    }
    for (const int refused : {-1, 1, 2, 4, 6, 8, 9, 11, INT_MIN, INT_MAX}) ops.setShape(*model, refused);
    EXPECT_EQ(ops.getShape(*model), 5);
    EXPECT_TRUE(isMoving()) << "a refused shape stopped the cartoon";
}

TEST_F(Model180VR, CartoonsMoveTheMesh) {
    const VertexCachePtr stretch = meshOf(1), disc = meshOf(0);
    ops.setShape(*model, 5);
    expectShare(*disc, *stretch, 1 / 20.0f);
    ops.setDrawMode(*model, 0);
    // From step to step; the cartoon that stands there already goes on.
    for (const auto& [step, share] : {std::pair{5, 0.5f}, {6, 0.6f}, {7, 0.7f}, {5, 0.5f}}) {
        ops.setDrawModeCartoon(*model, 0, 1, step, 10);
        expectShare(*disc, *stretch, share);
    }
    EXPECT_EQ(params.mDrawMode, 0) << "a cartoon leaves the matrix's mode alone";
    const VertexCachePtr buffer = params.mBlend.mesh;
    EXPECT_EQ(meshOf(1), stretch) << "a draw mode ends it";
    ops.setShape(*model, 0);
    ops.onConfigChanged(*model);
    EXPECT_EQ(fetch(), buffer) << "GL may still point at it";
    ops.init(*model);
    EXPECT_TRUE(!params.mBlend.mesh && !isMoving());
}

TEST_F(Model180VR, AnyNumbersMakeAHarmlessCartoon) {
    const struct {
        int from, to, step, frames;
        bool isMovingAfter;  ///< five fetches
    } cases[] = {{0, 1, INT_MAX, INT_MAX, false},
                 {0, 1, INT_MIN, INT_MAX, true},
                 {0, 1, 1, 0, false},
                 {0, 1, 1, INT_MIN, false},
                 {4, 0, 1, 3, false},
                 {-1, INT_MIN, 1, 3, false},
                 {INT_MAX, -1, 1, 100, true},
                 {0, 9, 1, 100, true}};
    for (const auto& [from, to, step, frames, isMovingAfter] : cases) {
        ops.init(*model);
        ops.setDrawModeCartoon(*model, from, to, step, frames);
        takeLines();
        for (int n = 0; n < 5; ++n) {
            const VertexCachePtr mesh = fetch();
            EXPECT_TRUE(!mesh || (mesh->triangleCount == 12000 && std::isfinite(mesh->positions[0])));
        }
        EXPECT_EQ(isMoving(), isMovingAfter) << from << " to " << to << ", " << step << " of " << frames;
    }
    EXPECT_NE(takeLines().find("----------------> error pCtxtFrom = 0x"), std::string::npos);
}

TEST_F(Model180VR, AMissingMeshSaysWhy) {
    takeLines();
    meshOf(-4);
    EXPECT_EQ(takeLines(),
              "getVerticesCache() mode is error : -4\nFovixModel180VR.createVertices(-4)\n"
              "createVertices() mode is error : -4\nerror pCtxt = NULL\n");
    const VertexCachePtr mesh = meshOf(0);
    lens.TextureWidth = 0;
    EXPECT_EQ(fetch(), mesh) << "built once";
    takeLines();
    ops.onConfigChanged(*model);
    fetch();
    EXPECT_EQ(takeLines(), "FovixModel180VR.createVertices(0)\nerror pCtxt = NULL\n");
}

TEST_F(Model180VR, ViewsBelongToTheirScreens) {
    lens.Fec_imgWidth = 2000;  // without the circle
    fetch();
    EXPECT_EQ(params.mLensOffsetX, 0.0);
    for (const int s : {0, 5, -1, 6, INT_MIN, INT_MAX}) ops.setRotateZoom(*model, s, s, 2, 3, 4.0 + s);
    EXPECT_EQ(rotateZoomOf(6), (View{-1, -1, -1, -1})) << "a refused screen was read";
    EXPECT_EQ(rotateZoomOf(0), (View{0, 2, 3, 4}));
    EXPECT_EQ(rotateZoomOf(5), (View{5, 2, 3, 9}));
    ops.setViewSize(*model, 201, 101);
    ops.setShape(*model, 7);
    EXPECT_EQ(ops.selectScreen(*model, 200, 100), 3);
    ops.init(*model);
    EXPECT_EQ(rotateZoomOf(5), (View{0, 0, 0, 1}));
    EXPECT_EQ(ops.getSelectedScreen(*model), 0);
    EXPECT_EQ(ops.getShape(*model), 7) << "init keeps the shape";
}

TEST(Screens180VR, LieUnderTheirPoints) {
    for (const int shape : {7, 10}) layout180VR(shape, INT_MIN, INT_MAX);  // nothing overflows
    EXPECT_EQ(layout180VR(10, 201, 101).screens[0].width, 201) << "the projection's, not the viewport's";
    const struct {
        int x, y, ofFour, ofThree;
    } points[] = {{99, 49, 0, 0},  {100, 49, 1, 0}, {99, 50, 2, 1},
                  {100, 50, 3, 2}, {-9, 900, 2, 1}, {INT_MAX, INT_MIN, 1, 0}};
    for (const auto& [x, y, ofFour, ofThree] : points) {
        EXPECT_EQ(screenAt180VR(7, 201, 101, x, y), ofFour) << x << ", " << y;
        EXPECT_EQ(screenAt180VR(10, 201, 101, x, y), ofThree) << x << ", " << y;
        EXPECT_EQ(screenAt180VR(8, 201, 101, x, y), 0);
    }
}

// Worked out by hand on a surface twice as wide as high, where a height counts double; the mesh's point
// stands at (−x, y, z) before the view turns it, and the eye one unit before the origin.
TEST(Screens180VR, MatricesMoveThePictureAsTheModeWants) {
    struct Case {
        const char* name;
        RotateZoomView view;  // zoom, xAngle, yAngle, zAngle
        Scene180VR scene;
        Point point;
        SurfacePoint expected;
    };
    const Point flat = {0.5, 0.25, 0.0};
    const Case cases[] = {
        {"mode without a mesh", {1, 0, 180, 0}, {-7, 9, 0, 0, 0}, flat, {-2.0, 1.0}},
        {"disc, x", {1, 180, 0, 0}, {0, 9, 0, 0, 0}, flat, {-0.5 / 0.75, 2.0 / 0.75}},
        {"stretch", {1, 20, 50, 90}, {1, 9, 0, 0, 0}, {0.5, 0.25, -0.26}, {-1.0 / 1.26, 0.9 / 1.26}},
        {"cylinder", {1, 0, 90, 0}, {2, 9, 0, 0, 0}, {0.6, 0.1, 0.0}, {0.0, 0.25}},
        {"curved", {1, 180, 0, 0}, {3, 0.5, 0, 0, 0}, {0.2, 0.1, 0.1}, {-0.2 / 0.9, 3.4 / 0.9}},
        {"roll", {1, 0, 0, 0}, {0, 0, 0, 0, 90}, flat, {0.25, 1.0}},
        {"roll switched off", {1, 0, 0, 0}, {0, 0, 0, 0, -90}, flat, {-0.5, 0.5}},
        {"lens offset before the view", {1, 0, 180, 0}, {0, 0, 0.1, 0, 0}, flat, {-1.0 / 0.6, 0.5 / 0.6}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        expectSeenAt(c.expected, c.point, screenMatrix180VR(c.view, c.scene, 200, 100));
    }
}

}  // namespace
}  // namespace fovix
