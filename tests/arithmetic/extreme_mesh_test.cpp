// No lens that a host can report, and no surface, puts anything but finite numbers into a mesh.
#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

#include "VertexCache.h"
#include "mesh_reading.h"

using namespace fovix;

bool allFinite(const VertexCache& cache) {
    const auto finite = [](float value) { return std::isfinite(value); };
    return std::all_of(cache.positions.begin(), cache.positions.end(), finite) &&
           std::all_of(cache.textureCoords.begin(), cache.textureCoords.end(), finite);
}

/// The first builder whose mesh is not finite, or nothing.
std::string brokenMesh(const FishEyeConfig& lens, int backingWidth, int backingHeight) {
    for (const auto create : {GridMesh_Create_Original, GridMesh_Create_HalfBottom, GridMesh_Create_Korvel}) {
        const GridMesh mesh = create(lens, backingWidth, backingHeight);
        if (!allFinite(*VertexCache_FromFlatMesh(mesh))) return "flat " + std::to_string(mesh.triangleCount);
    }
    for (const int shape : {0, 3, 6}) {
        const GridMesh mesh = GridMesh_Create_360VR(lens, 0, shape);
        if (!allFinite(*VertexCache_FromCurvedMesh(mesh))) return "360 shape " + std::to_string(shape);
    }
    for (const int mode : {0, 1, 2, 3}) {
        const auto mesh = GridMesh_Create_180VR(mode, lens, backingWidth, backingHeight).value();
        if (!allFinite(*VertexCache_FromCurvedMesh(mesh))) return "180 mode " + std::to_string(mode);
    }
    return "";
}

TEST(ExtremeLens, GivesFiniteMeshes) {
    std::mt19937 random(20);
    const auto pick = [&](std::initializer_list<int> values) {
        return values.begin()[random() % values.size()];
    };
    for (int round = 0; round < 100; ++round) {
        const int type = pick({0, 1}), width = pick({1, 2, 719, 1920, 16384, INT_MAX});
        const int height = pick({1, 3, 576, 1080, 16384, INT_MAX});
        const Fec fec = {pick({1, 360, 960, INT_MAX}), pick({1, 288, 540, INT_MAX}),
                         pick({0, 1, 358, 540, INT_MAX}), pick({1, 720, 1920, INT_MAX}),
                         pick({1, 576, 1080, INT_MAX})};
        const int backingWidth = pick({INT_MIN, 0, 1, 1280, INT_MAX});
        const int backingHeight = pick({INT_MIN, 0, 1, 720, INT_MAX});
        std::string broken;
        printed([&] { broken = brokenMesh(lensOf(type, width, height, fec), backingWidth, backingHeight); });
        EXPECT_EQ(broken, "") << "type " << type << ", texture " << width << " x " << height << ", lens "
                              << fec.xCenter << ", " << fec.yCenter << ", " << fec.radius << " of "
                              << fec.imgWidth << " x " << fec.imgHeight << ", surface " << backingWidth
                              << " x " << backingHeight;
    }
}
