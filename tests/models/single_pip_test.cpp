// The picture with its overview: projections of main view and inset, view record, diagnostics.
#include "FovixModelSinglePIP.h"

#include <array>
#include <climits>
#include <string>

#include "projection.h"

namespace fovix {
namespace {

using testing::internal::CaptureStdout;
using testing::internal::GetCapturedStdout;

TEST(SinglePip, ProjectsMainViewAndInset) {
    for (const auto& [zoom, degrees] :
         {std::pair{1.0, 90.0}, {0.25, 148.0}, {0.625, 119.0}, {5.0, 45.0}, {3.0, 67.5}}) {
        EXPECT_DOUBLE_EQ(singlePipFieldOfView(zoom), degrees) << "zoom " << zoom;
    }
    // The picture's point (1, 0.5), 0.285 before the eye at the usual distance.
    const Point corner = {1.0, 0.5, 0.0};
    const auto main = [&](double zoom, double x, double y, double distance, int width, int height) {
        return project(corner, singlePipMainMatrix(zoom, x, y, distance, width, height));
    };
    expectAt(main(1, 0, 0, kSinglePipDistance, 500, 500), {1 / 0.285, 0.5 / 0.285});
    expectAt(main(1, 0.4, 0.1, 0.5, 500, 500), {0.6 / 0.5, 0.6 / 0.5});
    expectAt(main(1, 0, 0, 0.5, 1000, 500), {0.5 / 0.5, 0.5 / 0.5});
    expectAt(main(1, 0, 0, 0.5, 500, 1000), {1 / 0.5, 0.25 / 0.5});
    expectAt(main(5, 0, 0, 0.5, 500, 500), {2.4142136 / 0.5, 0.5 * 2.4142136 / 0.5});
    // The inset lies from −0.3 to 0.9, around y −0.7.
    const Mat4 inset = singlePipInsetMatrix(500, 500);
    expectAt(project({-1.0, 0.0, 0.0}, inset), {-0.3, -0.7});
    expectAt(project({1.0, 1.0, 0.0}, inset), {0.9, -0.1});
}

TEST(SinglePip, KeepsItsViewRecord) {
    const FishEyeConfig lens;
    const ModelPtr model = FovixModelSinglePIP_Create(lens);
    const FovixModelOperations& operations = model->operations;
    const auto view = [&] {
        std::array<double, 4> values{};
        operations.getRotateZoom(*model, 3, &values[0], &values[1], &values[2], &values[3]);
        return values;
    };
    using View = std::array<double, 4>;
    operations.init(*model);
    EXPECT_EQ(view(), (View{0, 0, 0.7149999737739563, 1}));
    operations.setRotateZoom(*model, 9, 0.5, 0.25, 0.125, 3);
    EXPECT_EQ(view(), (View{0.5, 0.25, 0.125, 3}));
    operations.getRotateZoom(*model, 0, nullptr, nullptr, nullptr, nullptr);
    operations.resetPosition(*model);
    EXPECT_EQ(view(), (View{0.5, 0.25, 0.125, 1}));
    for (const auto& [mode, count] : {std::pair{0, 0}, {1, 1}, {INT_MIN, 1}, {3, 1}}) {
        operations.setDrawMode(*model, mode);
        EXPECT_EQ(operations.getOverlayCount(*model), count) << "mode " << mode;
    }
    operations.setDrawMode(*model, 0);
    operations.init(*model);
    EXPECT_EQ(view(), (View{0, 0, 0.7149999737739563, 1}));
    EXPECT_EQ(operations.getOverlayCount(*model), 0) << "init keeps the draw mode";
}

TEST(SinglePip, BuildsThePictureOnce) {
    FishEyeConfig lens = lensOfPicture(22, 1600, 800);
    const ModelPtr model = FovixModelSinglePIP_Create(lens);
    const auto fetch = model->operations.getVerticesCache;
    CaptureStdout();
    const VertexCachePtr mesh = fetch(*model);
    const std::string lines = GetCapturedStdout();
    EXPECT_EQ(lines.rfind("GridMesh_Create_Original()\nbacking : 0 x 0\n", 0), 0u) << lines;
    const std::string last = "FovixModelSinglePIP.createVertices(numTriangles=2)\n";
    EXPECT_EQ(lines.substr(lines.size() - std::min(lines.size(), last.size())), last);
    ASSERT_TRUE(mesh);
    EXPECT_EQ(mesh->positions,
              (std::vector<float>{-1, .5, 0, 1, .5, 0, -1, -.5, 0, -1, -.5, 0, 1, .5, 0, 1, -.5, 0}));

    lens.TextureHeight = 0;
    CaptureStdout();
    EXPECT_EQ(fetch(*model), mesh);
    model->operations.onConfigChanged(*model);
    model->operations.onConfigChanged(*model);
    EXPECT_EQ(fetch(*model), nullptr);
    EXPECT_EQ(GetCapturedStdout(), "GridMesh_Create_Original()\nerror pCtxt = NULL\n");
}

}  // namespace
}  // namespace fovix
