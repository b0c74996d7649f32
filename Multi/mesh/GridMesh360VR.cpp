// The 360-degree panorama: the lens circle in 60 sectors and up to 30 rings, on a hemisphere, a cylinder or
// an unrolled strip. The lens is equidistant: psi, the angle off its axis, grows in proportion to the
// distance from the centre of the circle, up to half of the field of view at the rim.
#include <algorithm>
#include <array>
#include <cmath>

#include "Fovix.h"
#include "base/Angles.h"
#include "base/Diagnostics.h"
#include "mesh/GridCells.h"

namespace fovix {

namespace {

constexpr int kSectors = 60;  ///< of 6 degrees
constexpr int kRings = 30;    ///< of 3 degrees, the first at the lens's centre

/// The widest view is one unit from the hemisphere's centre: at 1.10 the rim of a 170-degree lens would touch
/// the edges of the screen.
constexpr double kSphereRadius = 1.09;
constexpr double kSphereRadiusSquare = 1.1881;  // the product of two doubles would differ in its last bit

/// The view from outside looks at a larger cylinder, so that both walls are 0.89 units from the eye.
constexpr double kOutsideRadius = 1.2 * kSphereRadius;
constexpr double kInsideRadius = kSphereRadius;

/// The wall keeps half of the hemisphere's depth.
constexpr double kWallDepth = 0.5 * kSphereRadius;

// A band's height is counted by psi. These shifts bring its middle to about y = 0: half of 85 degrees, psi at
// the rim, for the cylinders; what the left-out rings make of it for the strips.
constexpr double kCylinderShift = -0.7417649525;
constexpr double kStripShift = -0.4 * kPi;
constexpr double kTwoStripsShift = -0.7625 * kPi;

enum class Form { kNothing, kSphere, kCylinder, kStrip, kWall };

/// What a mount shows in a shape. A band (cylinder, strip) may leave out the rings nearest the centre, which
/// it stretches most. A strip's size fills its screen's height: 0.82 units to both sides for a single
/// strip, 1.01 for each of two.
struct Projection {
    int mount, shape;
    Form form;
    double size = 0.0;  ///< a cylinder's radius, a strip's height per radian
    int firstRing = 0;
    double shift = 0.0;
    bool flipY = true;
};

constexpr Projection kProjections[] = {
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_SINGLE, Form::kSphere},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_DOME, Form::kSphere},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_BOWL, Form::kSphere},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_CYLINDER, Form::kCylinder, kOutsideRadius, 1, kCylinderShift, false},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_CYLINDER_INSIDE, Form::kCylinder, kInsideRadius, 0, kCylinderShift,
     false},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_STRIP, Form::kStrip, 1.4, 4, kStripShift, false},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_TWO_STRIPS, Form::kStrip, 2.3, 8, kTwoStripsShift, false},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_FOUR_SCREENS, Form::kSphere},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_OVERVIEW_FIVE, Form::kSphere},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_TWO_AND_STRIP, Form::kSphere},
    {FOVIX_MOUNT_WALL, FOVIX_SHAPE_SINGLE, Form::kSphere},
    {FOVIX_MOUNT_WALL, FOVIX_SHAPE_BOWL, Form::kSphere},
    {FOVIX_MOUNT_WALL, FOVIX_SHAPE_STRIP, Form::kWall},
    {FOVIX_MOUNT_WALL, FOVIX_SHAPE_TWO_STRIPS, Form::kStrip, 2.3, 8, kTwoStripsShift, false},
    {FOVIX_MOUNT_WALL, FOVIX_SHAPE_OVERVIEW_FIVE, Form::kSphere},
    {FOVIX_MOUNT_WALL_INVERTED, FOVIX_SHAPE_SINGLE, Form::kSphere},  // and every mount above
};

Projection projectionOf(int mount, int shape) {
    const auto found =
        std::find_if(std::begin(kProjections), std::end(kProjections), [&](const Projection& p) {
            return p.mount == std::min<int>(mount, FOVIX_MOUNT_WALL_INVERTED) && p.shape == shape;
        });
    return found != std::end(kProjections) ? *found : Projection{mount, shape, Form::kNothing};
}

struct Sector {
    double theta, cosine, sine;
};

struct Ring {
    double r;  ///< distance from the lens's centre, texture pixels
    double psi, cosine, sine;
};

/// The last sector ends on the cosine and sine of the first, so the seam closes to the last bit.
std::array<Sector, kSectors + 1> makeSectors() {
    constexpr double kHalfTurn = kSectors / 2;
    std::array<Sector, kSectors + 1> sectors;
    for (int i = 0; i <= kSectors; ++i) {
        const double angle = i % kSectors * kPi / kHalfTurn;
        sectors[static_cast<std::size_t>(i)] = {i * kPi / kHalfTurn, std::cos(angle), std::sin(angle)};
    }
    return sectors;
}

std::array<Ring, kRings + 1> makeRings(double maxRadius, double degreesPerPixel) {
    std::array<Ring, kRings + 1> rings;
    for (int j = 0; j <= kRings; ++j) {
        const double r = std::sin(j * kPi / (2.0 * kRings)) * maxRadius;
        const double psi = r * degreesPerPixel * kLensRadiansPerDegree * 0.5;
        rings[static_cast<std::size_t>(j)] = {r, psi, std::cos(psi), std::sin(psi)};
    }
    return rings;
}

std::array<double, 3> positionOf(const Projection& projection, const Sector& sector, const Ring& ring) {
    const double q = kSphereRadius * ring.sine;
    switch (projection.form) {
        case Form::kSphere:
            return {q * sector.cosine, q * sector.sine, kSphereRadius * ring.cosine};
        case Form::kCylinder:
            return {projection.size * sector.cosine, ring.psi, projection.size * sector.sine};
        case Form::kStrip:
            return {sector.theta, projection.size * ring.psi, 0.0};
        case Form::kWall: {
            // Each row of the hemisphere is stretched to its full width.
            const double y = q * sector.sine;
            const double x = kSphereRadius * q * sector.cosine / std::sqrt(kSphereRadiusSquare - y * y);
            return {x, y, kWallDepth * ring.cosine};
        }
        case Form::kNothing:
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
