#include "sample/Surfaces.h"

#include <algorithm>
#include <numbers>

namespace fovix_host {
namespace {

constexpr Vec3 kRoadWhite{0.75, 0.75, 0.72};
constexpr Vec3 kWarningYellow{0.75, 0.52, 0.03};
constexpr Vec3 kNearlyBlack{0.02, 0.02, 0.022};

bool within(double value, double low, double high) {
    return value >= low && value <= high;
}
bool near(double value, double centre, double halfSize) {
    return std::abs(value - centre) <= halfSize;
}

// Distance to the nearest multiple of period.
double toNearest(double value, double period) {
    return std::abs(value - period * std::round(value / period));
}

double corner(int x, int y) {
    auto h = static_cast<std::uint32_t>(x) * 0x9E3779B1u ^ static_cast<std::uint32_t>(y) * 0x85EBCA77u;
    h = (h ^ (h >> 15)) * 0x2C1B3C6Du;
    h = (h ^ (h >> 12)) * 0x297A2D39u;
    return static_cast<double>(h >> 8) / 16777216.0;
}

// Smooth noise between 0 and 1 with blotches about one unit wide.
double blotches(double x, double y) {
    const double xFloor = std::floor(x), yFloor = std::floor(y);
    const int i = static_cast<int>(xFloor), j = static_cast<int>(yFloor);
    const auto ease = [](double t) { return t * t * (3.0 - 2.0 * t); };
    const double s = ease(x - xFloor), t = ease(y - yFloor);
    const double low = std::lerp(corner(i, j), corner(i + 1, j), s);
    const double high = std::lerp(corner(i, j + 1), corner(i + 1, j + 1), s);
    return std::lerp(low, high, t);
}

double grain(double x, double y) {
    return 0.6 * blotches(x, y) + 0.4 * blotches(5.1 * x, 5.1 * y);
}

// Bay numbers in a 3 by 5 raster, one octal digit per row from the top.
constexpr std::array<int, 10> kDigits{075557, 026227, 071747, 071717, 055711,
                                      074717, 074757, 071122, 075757, 075717};

bool digitCovers(int digit, double u, double v) {
    if (!within(u, 0.0, 0.999) || !within(v, 0.0, 0.999)) return false;
    const int row = static_cast<int>(v * 5.0);
    const int column = static_cast<int>(u * 3.0);
    return (kDigits[static_cast<std::size_t>(digit)] >> (3 * (4 - row)) >> (2 - column)) & 1;
}

// The number at the mouth of each bay, readable from the lane.
bool bayNumberCovers(double x, double y) {
    const double towards = y > 0 ? 1.0 : -1.0;
    const int bay = static_cast<int>(std::lround(x / kBayWidth));
    if (bay == 0) return false;
    const int number = bay + 5 + (y > 0 ? 0 : 10);
    const double u = (x - bay * kBayWidth) * towards / 0.34;  // one digit is 0.34 m wide
    const double v = (kBayMouth + 0.85 - std::abs(y)) / 0.6;
    if (number < 10) return digitCovers(number, u + 0.5, v);
    return digitCovers(number / 10, u + 1.15, v) || digitCovers(number % 10, u - 0.15, v);
}

bool bayLineCovers(double x, double y) {
    const double across = std::abs(y);
    const double reach = 4.5 * kBayWidth;
    if (across < kBayMouth || std::abs(x) > reach + 0.06) return false;
    return near(toNearest(x - kBayWidth / 2, kBayWidth), 0.0, 0.06);
}

// A zebra crossing over the lanes, and hatching between the bays beyond.
bool walkwayCovers(double x, double y) {
    if (std::abs(x) > 1.25) return false;
    if (std::abs(y) < kBayMouth - 0.2) return std::abs(x) < 1.1 && std::fmod(y + 20.0, 0.9) < 0.45;
    return std::abs(y) >= kBayMouth && std::fmod(x + std::abs(y) + 20.0, 1.2) < 0.22;
}

// Arrows of the two lanes: the southern one leads east, the northern one west.
bool arrowCovers(double x, double y) {
    const double forward = y < 0 ? 1.0 : -1.0;
    const double across = std::abs(std::abs(y) - kLaneCentre);
    const double along = forward * (x - 6.25 * (x > 0 ? 1.0 : -1.0));
    if (within(along, -1.0, 0.3)) return across < 0.09;
    return within(along, 0.3, 1.0) && across < 0.36 * (1.0 - along) / 0.7;
}

bool laneLineCovers(double x, double y) {
    return near(y, 0.0, 0.05) && std::abs(x) > 1.6 && std::fmod(x + 30.0, 2.0) < 1.1;
}

bool doorCovers(double along, double z, double margin) {
    return std::abs(along) < 0.5 + margin && z < 2.1 + margin;
}

Finish gateFinish(double y, double z) {
    // A ramp into the dark inside a striped frame.
    if (std::abs(y) > 2.3 || z > 2.5)
        return {std::fmod(y + z + 20.0, 0.5) < 0.25 ? kWarningYellow : kNearlyBlack};
    const double depth = 0.05 + 0.10 * std::max(0.0, 1.0 - z / 1.2);
    return {{depth, depth, 1.1 * depth}};
}

Finish doorFinish(double along, double z) {
    if (!doorCovers(along, z, 0.0)) return {{0.05, 0.06, 0.07}};
    if (within(along, 0.3, 0.42) && near(z, 1.05, 0.03)) return {{0.5, 0.5, 0.5}};
    return {{0.22, 0.25, 0.28}};
}

}  // namespace

const Landmark* landmarkAt(Vec3 point) {
    const auto covered = [point](const Landmark& mark) {
        constexpr double kThickness = 1e-6;
        return near(point.x, mark.centre.x, mark.halfSize.x + kThickness) &&
               near(point.y, mark.centre.y, mark.halfSize.y + kThickness) &&
               near(point.z, mark.centre.z, mark.halfSize.z + kThickness);
    };
    const auto found = std::find_if(kLandmarks.begin(), kLandmarks.end(), covered);
    return found == kLandmarks.end() ? nullptr : &*found;
}

Finish floorFinish(Vec3 point) {
    const double x = point.x, y = point.y;
    const double wear = grain(x * 0.9, y * 0.9);
    if (bayLineCovers(x, y) || bayNumberCovers(x, y) || walkwayCovers(x, y) || arrowCovers(x, y) ||
        laneLineCovers(x, y))
        return {kRoadWhite * (0.75 + 0.25 * wear)};
    double grey = 0.16 + 0.07 * wear;
    if (std::abs(y) < kBayMouth) {
        // Tyres have darkened two tracks of each lane.
        const double track = std::abs(std::abs(std::abs(y) - kLaneCentre) - 0.75);
        grey *= 0.72 + 0.28 * std::min(1.0, track / 0.35);
    } else {
        const double oil = std::hypot(x - kBayWidth * std::round(x / kBayWidth), std::abs(y) - 5.0);
        grey *= 0.7 + 0.3 * std::min(1.0, oil / (0.25 + 0.6 * wear));
    }
    if (toNearest(x - 2.0, 4.0) < 0.02 || toNearest(y, 4.0) < 0.02) grey *= 0.7;
    return {{grey, grey, 0.97 * grey}};
}

Finish ceilingFinish(Vec3 point) {
    // Joints left by the boards of the formwork.
    const bool joint = toNearest(point.x, 2.5) < 0.02 || toNearest(point.y - 0.5, 1.0) < 0.012;
    const double grey = (0.30 + 0.12 * grain(point.x, point.y)) * (joint ? 0.6 : 1.0);
    return {{grey, grey, grey}};
}

Finish wallFinish(Vec3 point, Vec3 normal) {
    const bool shortWall = std::abs(normal.x) > 0.5;
    const double along = shortWall ? point.y : point.x;
    if (shortWall && std::abs(along) < 2.5 && point.z < 2.7) return gateFinish(along, point.z);
    if (!shortWall && doorCovers(along, point.z, 0.1)) return doorFinish(along, point.z);
    if (!shortWall && std::abs(along) < 0.45 && within(point.z, 2.22, 2.44)) return {{0.02, 0.45, 0.12}, 0.8};

    // Each panel has a white border.
    for (const Landmark& mark : kLandmarks) {
        const double toWall = (shortWall ? kHallHalfLength : kHallHalfWidth) + dot(normal, mark.centre);
        const bool beside =
            near(along, shortWall ? mark.centre.y : mark.centre.x, 0.88) && near(toWall, 0.0, 1e-6);
        if (beside && near(point.z, mark.centre.z, mark.halfSize.z + 0.08)) return {{0.8, 0.8, 0.8}};
    }
    const double wear = 0.92 + 0.08 * grain(along, point.z);
    if (point.z < 0.15) return {kNearlyBlack * 3.0};
    if (point.z < 1.0) return {Vec3{0.07, 0.16, 0.30} * wear};
    if (point.z < 1.1) return {kWarningYellow * wear};
    if (toNearest(along, 3.0) < 0.015 || near(point.z, 2.5, 0.012)) return {{0.3, 0.3, 0.29}};
    return {Vec3{0.52, 0.51, 0.48} * wear};
}

Finish pillarFinish(Vec3 point, Vec3 normal) {
    const double along = std::abs(normal.x) > 0.5 ? point.y : point.x;
    if (point.z < 1.1) return {std::fmod(along + point.z + 40.0, 0.4) < 0.2 ? kWarningYellow : kNearlyBlack};
    return {{0.42, 0.42, 0.41}};
}

double lightAt(Vec3 point, Vec3 normal) {
    double light = 0.45;
    for (const double row : {-kLampRow, kLampRow}) {
        const double y = row - point.y, z = 3.9 - point.z;
        const double facing = std::max(0.0, normal.y * y + normal.z * z);
        light += 3.4 * facing / (y * y + z * z + 0.5);
    }
    return light * (1.0 + 0.10 * std::cos(2.0 * std::numbers::pi * point.x / 5.0));
}

}  // namespace fovix_host
