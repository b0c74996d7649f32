// The meshes of the 360-degree panorama: every vertex is where its texture coordinate says that the lens
// looks.
#include "mesh_reading.h"

using namespace fovix;

/// Where a surface shows the direction theta round the lens's axis, d pixels off the middle.
Vertex placeOf(double theta, double d, char surface) {
    const double psi = d / 480.0 * 85.0 * kPi / 180.0, band = psi - 0.7417649525;
    const double cosine = std::cos(theta), sine = std::sin(theta);
    const double x = 1.09 * std::sin(psi) * cosine, y = -1.09 * std::sin(psi) * sine,
                 z = 1.09 * std::cos(psi);
    if (surface == 's') return {x, y, z};
    if (surface == 'w') return {x / std::sqrt(1.0 - y * y / 1.1881), y, z / 2.0};
    if (surface == '3') return {1.308 * cosine, band, 1.308 * sine};
    if (surface == '4') return {1.09 * cosine, band, 1.09 * sine};
    if (surface == '5') return {theta, 1.4 * psi - 0.4 * kPi, 0};
    if (surface == '6') return {theta, 2.3 * psi - 0.7625 * kPi, 0};
    return {0, 0, 0};
}

TEST(Panorama, PutsEveryVertexWhereTheLensLooks) {
    // A circle that fits on a picture wider than high, off its centre.
    const FishEyeConfig lens = lensOf(0, 1600, 1000, {700, 520, 480, 1600, 1000});
    // By shape: sphere, flattened wall, cylinders, strips, nothing.
    const std::pair<int, std::string> surfacesOfMounts[] = {
        {0, "sss3456sss-"}, {1, "s-s--w6-s--"}, {2, "s----------"}, {3, "s-"}, {9, "s"}, {-1, "-"}};
    for (const auto& [mount, surfaces] : surfacesOfMounts) {
        for (std::size_t shape = 0; shape < surfaces.size(); ++shape) {
            const char surface = surfaces[shape];
            const std::size_t firstRing = surface == '3' ? 1 : surface == '5' ? 4 : surface == '6' ? 8 : 0;
            const auto cells = cellsOf(GridMesh_Create_360VR(lens, mount, static_cast<int>(shape)));
            ASSERT_EQ(cells.size(), 60 * (30 - firstRing)) << "mount " << mount << ", shape " << shape;
            for (std::size_t k = 0; k < cells.size(); ++k) {
                SCOPED_TRACE(testing::Message() << mount << ", shape " << shape << ", cell " << k);
                // Ring by ring in every sector.
                const auto sector = static_cast<double>(k / (30 - firstRing) + 1);
                const auto ring = static_cast<double>(k % (30 - firstRing) + firstRing + 1);
                const double theta = sector * kPi / 30.0, d = 480.0 * std::sin(ring * kPi / 60.0);
                ASSERT_PRED3(isAt, cells[k].c, placeOf(theta, d, surface), 1e-6);
                ASSERT_NEAR(cells[k].c.u, (700.0 + d * std::cos(theta)) / 1600.0, 1e-12);
                ASSERT_NEAR(cells[k].c.v, (520.0 + d * std::sin(theta)) / 1000.0, 1e-12);
                // Neighbours share their corners to the last bit, the last sector with the first one too.
                const std::size_t next = (k + 30 - firstRing) % cells.size();
                const bool isStripsEnd = (surface == '5' || surface == '6') && next < k;
                ASSERT_TRUE(isStripsEnd || (cells[k].d == cells[next].a && cells[k].c == cells[next].b));
            }
        }
    }
}
