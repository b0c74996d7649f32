#include "VertexCache.h"

#include <gtest/gtest.h>

using namespace fovix;

const GridMesh kTwoTriangles = {
    {1,  2,  3,  0.25, 0.9999, 4,  5,  6,  -0.0005, -0.0015, 7,  8,  9,  1.0, 1.5,
     11, 12, 13, 0.1,  0.2,    14, 15, 16, 0.3,     0.4,     17, 18, 19, 0.5, 0.6},
    2,
    0.75};

TEST(VertexCache, TurnsFlatTrianglesRound) {
    const auto cache = VertexCache_FromFlatMesh(kTwoTriangles);
    EXPECT_EQ(cache->positions,
              (std::vector<float>{1, 2, 3, 7, 8, 9, 4, 5, 6, 11, 12, 13, 17, 18, 19, 14, 15, 16}));
    EXPECT_EQ(cache->textureCoords, (std::vector<float>{0.25f, 0.9999f, 1.0f, 1.5f, -0.0005f, -0.0015f, 0.1f,
                                                        0.2f, 0.5f, 0.6f, 0.3f, 0.4f}));
    EXPECT_EQ(cache->vertexCount(), 6);
}

TEST(VertexCache, CutsCurvedTextureCoordinatesTo1024ths) {
    const auto cache = VertexCache_FromCurvedMesh(kTwoTriangles);
    EXPECT_EQ(cache->positions,
              (std::vector<float>{1, 2, 3, 4, 5, 6, 7, 8, 9, 11, 12, 13, 14, 15, 16, 17, 18, 19}));
    constexpr float k = 1.0f / 1024.0f;
    EXPECT_EQ(cache->textureCoords,
              (std::vector<float>{256 * k, 1023 * k, 0.0f, -k, 1024 * k, 1536 * k, 102 * k, 204 * k, 307 * k,
                                  409 * k, 512 * k, 614 * k}));
    EXPECT_EQ(cache->extent, 0.75);
    EXPECT_EQ(cache->triangleCount, 2);
}
