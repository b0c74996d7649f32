// The picture with its overview: view record, mesh, diagnostics.
#include "model/FovixModelSinglePIP.h"

#include "model_fixture.h"

namespace fovix {
namespace {

class SinglePip : public ModelTest<SinglePIPParams, FovixModelSinglePIP_Create> {
  protected:
    SinglePip() : ModelTest(22, 1600, 800) {}
};

TEST_F(SinglePip, KeepsItsViewAndItsPicture) {
    ops.setRotateZoom(*model, 9, 0.5, 0.25, 0.125, 3);
    EXPECT_EQ(rotateZoomOf(3), (View{0.5, 0.25, 0.125, 3}));
    ops.resetPosition(*model);
    EXPECT_EQ(rotateZoomOf(3), (View{0.5, 0.25, 0.125, 1}));
    ops.setDrawMode(*model, 0);
    ops.init(*model);
    EXPECT_EQ(rotateZoomOf(3), (View{0, 0, 0.7149999737739563, 1}));
    EXPECT_EQ(ops.getOverlayCount(*model), 0) << "init keeps the draw mode";
    ops.setDrawMode(*model, INT_MIN);
    EXPECT_EQ(ops.getOverlayCount(*model), 1);

    takeLines();
    const VertexCachePtr mesh = fetch();
    EXPECT_EQ(takeLines(),
              "GridMesh_Create_Original()\nbacking : 0 x 0\noriginal : 1600.000000 x 800.000000, length = "
              "2.000000\ndisplay as : 1600.000000 x 800.000000, ratio : 1.000000\n"
              "FovixModelSinglePIP.createVertices(numTriangles=2)\n");
    EXPECT_EQ(mesh->positions,
              (std::vector<float>{-1, .5, 0, 1, .5, 0, -1, -.5, 0, -1, -.5, 0, 1, .5, 0, 1, -.5, 0}));
    lens.TextureHeight = 0;
    EXPECT_EQ(fetch(), mesh);
    ops.onConfigChanged(*model);
    EXPECT_EQ(fetch(), nullptr);
    EXPECT_EQ(takeLines(), "GridMesh_Create_Original()\nerror pCtxt = NULL\n");
}

}  // namespace
}  // namespace fovix
