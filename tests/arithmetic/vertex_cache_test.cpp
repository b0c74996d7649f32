#include "mesh/VertexCache.h"

#include <gtest/gtest.h>

using namespace fovix;

TEST(VertexCache, CutsTextureCoordinatesOfCurvedMeshesOnly) {
    const GridMesh mesh = {{1, 2, 3, 0.25, 0.9999, 4, 5, 6, -0.0005, -0.0015, 7, 8, 9, 1.0, 1.5}, 1, 0.75};
    const auto flat = VertexCache_FromFlatMesh(mesh), curved = VertexCache_FromCurvedMesh(mesh);
    EXPECT_EQ(flat->textureCoords, (std::vector{0.25f, 0.9999f, 1.0f, 1.5f, -0.0005f, -0.0015f}));
    EXPECT_EQ(curved->positions, (std::vector<float>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
    std::vector<float> in1024ths = curved->textureCoords;
    for (float& coord : in1024ths) coord *= 1024.0f;
    EXPECT_EQ(in1024ths, (std::vector<float>{256, 1023, 0, -1, 1024, 1536}));
    EXPECT_EQ(curved->extent, 0.75);
}
