// No lens that a host can report, and no surface, puts anything but finite numbers into a mesh.
#include <algorithm>
#include <climits>
#include <random>

#include "mesh_reading.h"

using namespace fovix;

TEST(ExtremeLens, YieldsFiniteMeshes) {
    std::mt19937 random(20);
    const auto pick = [&](std::initializer_list<int> some) { return some.begin()[random() % some.size()]; };
    for (int round = 0; round < 100; ++round) {
        std::vector<GridMesh> meshes;
        printed([&] {
            const int type = pick({0, 1}), width = pick({1, 2, 719, 1920, 16384, INT_MAX});
            const int height = pick({1, 3, 576, 1080, 16384, INT_MAX});
            const Fec fec = {pick({1, 360, 960, INT_MAX}), pick({1, 288, 540, INT_MAX}),
                             pick({0, 1, 358, 540, INT_MAX}), pick({1, 720, 1920, INT_MAX}),
                             pick({1, 576, 1080, INT_MAX})};
            const int surfaceW = pick({INT_MIN, 0, 1, 1280, INT_MAX});
            const int surfaceH = pick({INT_MIN, 0, 1, 720, INT_MAX});
            const FishEyeConfig lens = lensOf(type, width, height, fec);
            meshes.push_back(GridMesh_Create_HalfBottom(lens, surfaceW, surfaceH));
            meshes.push_back(GridMesh_Create_Korvel(lens, surfaceW, surfaceH));
            for (const int shape : {0, 3, 6}) meshes.push_back(GridMesh_Create_360VR(lens, 0, shape));
            for (const int mode : {0, 1, 2, 3}) {
                meshes.push_back(*GridMesh_Create_180VR(mode, lens, surfaceW, surfaceH));
            }
        });
        for (std::size_t k = 0; k < meshes.size(); ++k) {
            EXPECT_TRUE(std::all_of(meshes[k].triangles.begin(), meshes[k].triangles.end(),
                                    [](double value) { return std::isfinite(static_cast<float>(value)); }))
                << "mesh " << k << ", round " << round;
        }
    }
}
