// The meshes of the 360-degree panorama: every vertex is where its texture coordinate says that the lens
// looks.
#include <cmath>

#include "mesh_reading.h"

using namespace fovix;

/// Fits on a picture that is wider than high, off its centre.
const FishEyeConfig& offCentreLens() {
    static const FishEyeConfig lens = lensOf(0, 1600, 1000, {700, 520, 480, 1600, 1000});
    return lens;
}

enum Surface { Nothing, Sphere, Cylinder, Strip, Wall };

/// Where a surface shows what the texture coordinate of the vertex samples; on a strip x is the direction
/// itself.
Vertex placeOf(const Vertex& vertex, Surface surface, double size, double shift) {
    const double px = vertex.u * 1600.0 - 700.0, py = vertex.v * 1000.0 - 520.0, d = std::hypot(px, py);
    const double cosine = px / d, sine = py / d, psi = d / 480.0 * 85.0 * kPi / 180.0,
                 q = 1.09 * std::sin(psi);
    switch (surface) {
        case Nothing:
            return {};
        case Sphere:
            return {q * cosine, -q * sine, 1.09 * std::cos(psi), 0, 0};
        case Cylinder:
            return {size * cosine, psi + shift, size * sine, 0, 0};
        case Strip:
            return {std::atan2(sine, cosine), size * psi + shift, 0, 0, 0};
        default:
            return {q * cosine / std::sqrt(1 - q * q * sine * sine / 1.1881), -q * sine,
                    0.545 * std::cos(psi), 0, 0};
    }
}

TEST(Panorama, PutsEveryVertexWhereTheLensLooks) {
    constexpr double kHalf = -0.7417649525;
    const struct {
        int mount, shape, firstRing;
        Surface surface;
        double size, shift;
    } cases[] = {
        {0, 0, 0, Sphere, 0, 0},
        {0, 1, 0, Sphere, 0, 0},
        {0, 2, 0, Sphere, 0, 0},
        {0, 3, 1, Cylinder, 1.308, kHalf},
        {0, 4, 0, Cylinder, 1.09, kHalf},
        {0, 5, 4, Strip, 1.4, -0.4 * kPi},
        {0, 6, 8, Strip, 2.3, -0.7625 * kPi},
        {0, 7, 0, Sphere, 0, 0},
        {0, 8, 0, Sphere, 0, 0},
        {0, 9, 0, Sphere, 0, 0},
        {0, 10, 0, Nothing, 0, 0},
        {1, 0, 0, Sphere, 0, 0},
        {1, 1, 0, Nothing, 0, 0},
        {1, 2, 0, Sphere, 0, 0},
        {1, 5, 0, Wall, 0, 0},
        {1, 6, 8, Strip, 2.3, -0.7625 * kPi},
        {1, 8, 0, Sphere, 0, 0},
        {1, 9, 0, Nothing, 0, 0},
        {2, 0, 0, Sphere, 0, 0},
        {2, 5, 0, Nothing, 0, 0},
        {3, 0, 0, Sphere, 0, 0},
        {9, 0, 0, Sphere, 0, 0},
        {-1, 0, 0, Nothing, 0, 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::Message() << "mount " << each.mount << ", shape " << each.shape);
        const GridMesh mesh = GridMesh_Create_360VR(offCentreLens(), each.mount, each.shape);
        EXPECT_EQ(mesh.triangleCount, 120 * (30 - each.firstRing));
        double nearest = 480.0, farthest = 0.0;
        for (const Vertex& vertex : verticesOf(mesh)) {
            const double distance = std::hypot(vertex.u * 1600.0 - 700.0, vertex.v * 1000.0 - 520.0);
            nearest = std::min(nearest, distance);
            farthest = std::max(farthest, distance);
            if (distance < 1e-6) continue;  // the centre has no direction
            const Vertex expected = placeOf(vertex, each.surface, each.size, each.shift);
            const double turn = each.surface == Strip ? 2.0 * kPi : 1e9;
            ASSERT_NEAR(std::remainder(vertex.x - expected.x, turn), 0.0, 1e-6);
            ASSERT_NEAR(vertex.y, expected.y, 1e-6);
            ASSERT_NEAR(vertex.z, expected.z, 1e-6);
        }
        EXPECT_NEAR(nearest, 480.0 * std::sin(each.firstRing * kPi / 60.0), 1e-6);
        EXPECT_NEAR(farthest, 480.0, 1e-6);
    }
}

TEST(Panorama, LaysRingByRingInEverySectorAndClosesTheSeam) {
    for (const int shape : {0, 4, 5}) {
        const auto cells = cellsOf(GridMesh_Create_360VR(offCentreLens(), 0, shape));
        const std::size_t rings = cells.size() / 60, firstRing = 30 - rings;
        for (std::size_t k = 0; k < cells.size(); ++k) {
            const double theta = static_cast<double>(k / rings + 1) * kPi / 30.0;
            const double d = 480.0 * std::sin(static_cast<double>(k % rings + firstRing + 1) * kPi / 60.0);
            EXPECT_NEAR(cells[k].c.u, (700.0 + d * std::cos(theta)) / 1600.0, 1e-12)
                << shape << ", cell " << k;
            EXPECT_NEAR(cells[k].c.v, (520.0 + d * std::sin(theta)) / 1000.0, 1e-12)
                << shape << ", cell " << k;
            EXPECT_NEAR(shape == 5 ? cells[k].c.x : theta, theta, 1e-12);
            // Neighbours share their corners to the last bit, the last sector with the first one too.
            const std::size_t next = (k + rings) % cells.size();
            if (shape == 5 && next < k) continue;
            EXPECT_EQ(cells[k].d, cells[next].a) << shape << ", cell " << k;
            EXPECT_EQ(cells[k].c, cells[next].b) << shape << ", cell " << k;
        }
    }
}

TEST(Panorama, PrintsItsSettings) {
    const FishEyeConfig& lens = offCentreLens();
    EXPECT_EQ(printed([&] { GridMesh_Create_360VR(lens, 0, 5); }),
              "FishEyeConfig_GetWidth = 960.000000\nFishEyeConfig_GetHeight = 960.000000\n"
              "FishEyeConfig_GetTextureWidth = 1600\nFishEyeConfig_GetTextureHeight = 1000\n"
              "m_FishEyeWidth = 1600.000000\nm_FishEyeHeight = 1600.000000\nm_TextureWidth = 1600\n"
              "m_MaxRadius = 480.000000\nm_Shape = 5\nnumTriangles = 3120");
}
