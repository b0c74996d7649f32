// The 360-degree panorama: the lens circle in 60 sectors and up to 30 rings, laid on a hemisphere, a cylinder
// or an unrolled strip. The lens is equidistant: psi, the angle off its axis, grows in proportion to the
// distance from the centre of the circle, up to half of the field of view at the rim.
#include <algorithm>
#include <array>
#include <cmath>

#include "base/Angles.h"
#include "base/Diagnostics.h"
#include "mesh/GridCells.h"

namespace fovix {

namespace {

constexpr int kSectors = 60;  ///< of 6 degrees
constexpr int kRings = 30;    ///< of 3 degrees, the first at the lens's centre

constexpr double kSphereRadius = 1.09;

enum class Surface { Nothing, Sphere, Cylinder, Strip, Wall };

/// What a mount shows in a shape. A band (cylinder, strip) leaves out the rings nearest the centre and is
/// moved to lie about y = 0: 0.7417649525 is half of 85 degrees, the strips' shifts are 0.4 and 0.7625 pi.
struct Projection {
    int mount, shape;
    Surface surface;
    double size = 0.0;  ///< a cylinder's radius, a strip's height per radian
    int firstRing = 0;
    double shift = 0.0;
    bool flipY = true;
};

constexpr Projection kProjections[] = {
    {0, 0, Surface::Sphere},
    {0, 1, Surface::Sphere},
    {0, 2, Surface::Sphere},
    {0, 3, Surface::Cylinder, 1.308, 1, -0.7417649525, false},
    {0, 4, Surface::Cylinder, 1.09, 0, -0.7417649525, false},
    {0, 5, Surface::Strip, 1.4, 4, -1.2566370614359172, false},
    {0, 6, Surface::Strip, 2.3, 8, -2.395464398362217, false},
    {0, 7, Surface::Sphere},
    {0, 8, Surface::Sphere},
    {0, 9, Surface::Sphere},
    {1, 0, Surface::Sphere},
    {1, 2, Surface::Sphere},
    {1, 5, Surface::Wall},
    {1, 6, Surface::Strip, 2.3, 8, -2.395464398362217, false},
    {1, 8, Surface::Sphere},
    {2, 0, Surface::Sphere},  // and every mount above
};

Projection projectionOf(int mount, int shape) {
    const auto found =
        std::find_if(std::begin(kProjections), std::end(kProjections),
                     [&](const Projection& p) { return p.mount == std::min(mount, 2) && p.shape == shape; });
    return found != std::end(kProjections) ? *found : Projection{mount, shape, Surface::Nothing};
}

struct Sector {
    double theta, cosine, sine;
};

struct Ring {
    double r;  ///< distance from the lens's centre, texture pixels
    double psi, cosine, sine;
};

/// The last sector ends on the first one's cosine and sine, so that the seam closes to the last bit.
std::array<Sector, kSectors + 1> makeSectors() {
    std::array<Sector, kSectors + 1> sectors;
    for (int i = 0; i <= kSectors; ++i) {
        const double angle = i % kSectors * kPi / 30.0;
        sectors[static_cast<std::size_t>(i)] = {i * kPi / 30.0, std::cos(angle), std::sin(angle)};
    }
    return sectors;
}

std::array<Ring, kRings + 1> makeRings(double maxRadius, double degreesPerPixel) {
    std::array<Ring, kRings + 1> rings;
    for (int j = 0; j <= kRings; ++j) {
        const double r = std::sin(j * kPi / 60.0) * maxRadius;
        const double psi = r * degreesPerPixel * kLensRadiansPerDegree * 0.5;
        rings[static_cast<std::size_t>(j)] = {r, psi, std::cos(psi), std::sin(psi)};
    }
    return rings;
}

std::array<double, 3> positionOf(const Projection& projection, const Sector& sector, const Ring& ring) {
    const double q = kSphereRadius * ring.sine;
    switch (projection.surface) {
        case Surface::Sphere:
            return {q * sector.cosine, q * sector.sine, kSphereRadius * ring.cosine};
        case Surface::Cylinder:
            return {projection.size * sector.cosine, ring.psi, projection.size * sector.sine};
        case Surface::Strip:
            return {sector.theta, projection.size * ring.psi, 0.0};
        case Surface::Wall: {
            const double y = q * sector.sine;
            const double x = kSphereRadius * q * sector.cosine / std::sqrt(1.1881 - y * y);
            return {x, y, 0.5 * kSphereRadius * ring.cosine};
        }
        case Surface::Nothing:
            break;
    }
    return {};
}

}  // namespace

GridMesh GridMesh_Create_360VR(const FishEyeConfig& lens, int mount, int shape) {
    const int width = FishEyeConfig_GetTextureWidth(lens), height = FishEyeConfig_GetTextureHeight(lens);
    const double maxRadius = lens.maxRadius;
    const double fishEyeSize = std::max(width, height);
    printLine("FishEyeConfig_GetWidth = %f\n", FishEyeConfig_GetWidth(lens));
    printLine("FishEyeConfig_GetHeight = %f\n", FishEyeConfig_GetHeight(lens));
    printLine("FishEyeConfig_GetTextureWidth = %d\n", width);
    printLine("FishEyeConfig_GetTextureHeight = %d\n", height);
    printLine("m_FishEyeWidth = %f\n", fishEyeSize);
    printLine("m_FishEyeHeight = %f\n", fishEyeSize);
    printLine("m_TextureWidth = %d\n", width);
    printLine("m_MaxRadius = %f\n", maxRadius);
    printLine("m_Shape = %d\n", shape);

    const Projection projection = projectionOf(mount, shape);
    const auto sectors = makeSectors();
    const auto rings = makeRings(maxRadius, lens.degreesPerPixel);
    const double uCenter = static_cast<double>(lens.xCenter) / width;
    const double vCenter = static_cast<double>(lens.yCenter) / height;
    const double upward = projection.flipY ? -1.0 : 1.0;
    auto mesh = layGrid(kSectors, kRings - projection.firstRing, kLinesAside, [&](int i, int j) -> MeshPoint {
        const Sector& sector = sectors[static_cast<std::size_t>(i)];
        const Ring& ring = rings[static_cast<std::size_t>(j + projection.firstRing)];
        const auto [x, y, z] = positionOf(projection, sector, ring);
        return {x, upward * y + projection.shift, z, sector.cosine * ring.r / width + uCenter,
                sector.sine * ring.r / height + vCenter};
    });
    printLine("numTriangles = %d", mesh.triangleCount);
    return mesh;
}

}  // namespace fovix
