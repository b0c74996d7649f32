// The 180-degree model: shapes and modes, the cartoon from mesh to mesh, lens offset, views, diagnostics.
#include "FovixModel180VR.h"

#include <algorithm>
#include <climits>
#include <cmath>

#include "projection.h"

namespace fovix {
namespace {

using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;

class Model180VR : public testing::Test {
  protected:
    Model180VR() { operations.init(*model); }

    VertexCachePtr fetch() { return operations.getVerticesCache(*model); }
    int isMoving() { return operations.needsVertexUpdate(*model); }
    VertexCachePtr meshOf(int mode) {
        operations.setDrawMode(*model, mode);
        return fetch();
    }
    std::string linesOfFetch() {
        CaptureStdout();
        fetch();
        return GetCapturedStdout();
    }
    /// How far the positions have gone from one mesh to the other, 0..1; NaN when not all are as far.
    static double shareOf(const VertexCache& mesh, const VertexCache& from, const VertexCache& to) {
        const double share = (mesh.positions[0] - from.positions[0]) / (to.positions[0] - from.positions[0]);
        for (std::size_t i = 0; i < mesh.positions.size(); ++i) {
            const double start = from.positions[i], end = to.positions[i];
            if (std::abs(mesh.positions[i] - (start + (end - start) * share)) > 1e-5) return NAN;
        }
        return share;
    }

    FishEyeConfig lens = lensOfPicture(1, 1000, 1250);
    ModelPtr model = FovixModel180VR_Create(lens);
    const FovixModelOperations& operations = model->operations;
    Model180VRParams& params = paramsOf<Model180VRParams>(*model);
};

TEST_F(Model180VR, ShapesChooseTheMesh) {
    const struct {
        int shape, mode, morphs;
    } cases[] = {{5, 1, 1}, {3, 2, 0}, {7, 3, 0}, {10, 3, 0}, {0, 0, 1}, {3, 2, 0}, {0, 0, 0}};
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "shape " << c.shape);
        operations.setShape(*model, c.shape);
        EXPECT_EQ(operations.getShape(*model), c.shape);
        EXPECT_EQ(params.mDrawMode, c.mode);
        const VertexCachePtr mesh = fetch();
        EXPECT_EQ(isMoving(), c.morphs);
        EXPECT_EQ(mesh == params.mVertexCaches[static_cast<std::size_t>(c.mode)], !c.morphs);
    }
    operations.setShape(*model, 5);
    for (const int refused : {-1, 1, 2, 4, 6, 8, 9, 11, INT_MIN, INT_MAX})
        operations.setShape(*model, refused);
    EXPECT_EQ(operations.getShape(*model), 5);
    EXPECT_EQ(isMoving(), 1) << "a refused shape stopped the cartoon";
}

TEST_F(Model180VR, AShapeMorphsTheMeshInNineteenFetches) {
    const VertexCachePtr stretch = meshOf(1), disc = meshOf(0);
    operations.setShape(*model, 5);
    VertexCachePtr last;
    for (int n = 1; n <= 18; ++n) {
        ASSERT_EQ(isMoving(), 1);
        const VertexCachePtr blend = fetch();
        ASSERT_TRUE(blend);
        EXPECT_NEAR(shareOf(*blend, *disc, *stretch), n / 20.0, 1e-5) << "fetch " << n;
        EXPECT_EQ(blend->textureCoords, stretch->textureCoords);
        EXPECT_TRUE(!last || last == blend) << "the buffer changed at fetch " << n;
        last = blend;
    }
    EXPECT_EQ(fetch(), stretch);
    EXPECT_EQ(isMoving(), 0);
    EXPECT_EQ(fetch(), stretch);

    operations.setShape(*model, 0);
    operations.onConfigChanged(*model);  // the buffer outlives a change of the lens
    EXPECT_EQ(fetch(), last);
    operations.init(*model);
    EXPECT_EQ(params.mCartoonCache, nullptr);
    EXPECT_EQ(isMoving(), 0);
}

TEST_F(Model180VR, ADrawModeEndsTheCartoonAndTheSameCartoonGoesOn) {
    const VertexCachePtr stretch = meshOf(1), disc = meshOf(0);
    operations.setDrawModeCartoon(*model, 0, 1, 5, 10);
    EXPECT_NEAR(shareOf(*fetch(), *disc, *stretch), 0.5, 1e-5);
    EXPECT_NEAR(shareOf(*fetch(), *disc, *stretch), 0.6, 1e-5);
    operations.setDrawModeCartoon(*model, 0, 1, 7, 10);  // where it stands: nothing changes
    EXPECT_NEAR(shareOf(*fetch(), *disc, *stretch), 0.7, 1e-5);
    operations.setDrawModeCartoon(*model, 0, 1, 5, 10);
    EXPECT_NEAR(shareOf(*fetch(), *disc, *stretch), 0.5, 1e-5);
    EXPECT_EQ(params.mDrawMode, 0) << "a cartoon leaves the matrix's mode alone";
    operations.setDrawMode(*model, 1);
    EXPECT_EQ(isMoving(), 0);
    EXPECT_EQ(fetch(), stretch);
}

TEST_F(Model180VR, AnyNumbersMakeAHarmlessCartoon) {
    const struct {
        int from, to, step, frames;
        int movingAfter;  ///< five fetches
    } cases[] = {
        {0, 1, INT_MAX, INT_MAX, 0},
        {0, 1, INT_MIN, INT_MAX, 1},
        {0, 1, 1, 0, 0},
        {0, 1, 1, INT_MIN, 0},
        {4, 0, 1, 3, 0},
        {-1, INT_MIN, 1, 3, 0},
        {INT_MAX, -1, 1, 100, 1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.from << " to " << c.to << ", " << c.step << " of " << c.frames);
        operations.init(*model);
        operations.setDrawModeCartoon(*model, c.from, c.to, c.step, c.frames);
        for (int n = 0; n < 5; ++n) {
            const VertexCachePtr mesh = fetch();
            if (!mesh) continue;
            EXPECT_EQ(mesh->triangleCount, 12000);
            EXPECT_TRUE(std::all_of(mesh->positions.begin(), mesh->positions.end(),
                                    [](float value) { return std::isfinite(value); }));
        }
        EXPECT_EQ(isMoving(), c.movingAfter);
    }
    operations.setDrawModeCartoon(*model, 0, 9, 1, 3);
    EXPECT_NE(linesOfFetch().find("----------------> error pCtxtFrom = 0x"), std::string::npos);
}

TEST_F(Model180VR, AMissingMeshSaysWhy) {
    operations.setDrawMode(*model, -4);
    EXPECT_EQ(linesOfFetch(),
              "getVerticesCache() mode is error : -4\nFovixModel180VR.createVertices(-4)\n"
              "createVertices() mode is error : -4\nerror pCtxt = NULL\n");
    operations.setDrawMode(*model, 0);
    lens.TextureWidth = 0;
    EXPECT_EQ(linesOfFetch(), "FovixModel180VR.createVertices(0)\nerror pCtxt = NULL\n");
    lens.TextureWidth = 1000;
    const VertexCachePtr mesh = fetch();
    ASSERT_TRUE(mesh);
    EXPECT_EQ(linesOfFetch(), "") << "a mesh is built once";
    operations.onConfigChanged(*model);
    operations.onConfigChanged(*model);
    EXPECT_NE(fetch(), mesh);
}

TEST_F(Model180VR, AFetchBringsExtentAndLensOffset) {
    const double m = 2.0 * 625.0 / 1000.0;  // the longer half side ÷ half the width
    const double extents[] = {0.0, 0.0, m, 1.15 * 1.06 * m};
    for (int mode = 0; mode < 4; ++mode) {
        meshOf(mode);
        EXPECT_NEAR(params.mMeshExtent, extents[mode], 1e-12) << "mode " << mode;
        EXPECT_EQ(params.mNumTriangles, 12000);
    }
    EXPECT_EQ(params.mLensOffsetX, 0.0);
    lens.Fec_xCenter = 700, lens.Fec_yCenter = 900, lens.Fec_radius = 500;
    lens.Fec_imgWidth = 2000, lens.Fec_imgHeight = 1000;
    fetch();
    EXPECT_NEAR(params.mLensOffsetX, 0.15, 1e-12);
    EXPECT_NEAR(params.mLensOffsetY, -0.4, 1e-12);
    lens.Fec_radius = 0;
    fetch();
    EXPECT_EQ(params.mLensOffsetX, 0.0);
    EXPECT_EQ(params.mLensOffsetY, 0.0);
}

TEST_F(Model180VR, ViewsBelongToTheirScreens) {
    for (int screen = 0; screen < 6; ++screen)
        operations.setRotateZoom(*model, screen, screen, 2, 3, 4 + screen);
    for (const int refused : {-1, 6, INT_MIN, INT_MAX}) operations.setRotateZoom(*model, refused, 9, 9, 9, 9);
    double x = -1, y = -1, z = -1, zoom = -1;
    operations.getRotateZoom(*model, 6, &x, &y, &z, &zoom);
    EXPECT_EQ(x, -1) << "a refused screen was read";
    for (int screen = 0; screen < 6; ++screen) {
        operations.getRotateZoom(*model, screen, &x, &y, &z, &zoom);
        EXPECT_EQ(std::vector({x, y, z, zoom}), std::vector<double>({1.0 * screen, 2, 3, 4.0 + screen}));
    }
    operations.resetPosition(*model);
    operations.getRotateZoom(*model, 5, nullptr, &y, nullptr, &zoom);
    EXPECT_EQ(y, 0.0);
    EXPECT_EQ(zoom, 1.0);

    operations.setViewSize(*model, 201, 101);
    operations.setShape(*model, 7);
    EXPECT_EQ(operations.selectScreen(*model, 200, 100), 3);
    EXPECT_EQ(operations.getSelectedScreen(*model), 3);
    operations.init(*model);
    EXPECT_EQ(operations.getSelectedScreen(*model), 0);
    EXPECT_EQ(operations.getShape(*model), 7) << "init keeps the shape";
}

}  // namespace
}  // namespace fovix
