// The surfaces of the car park: the finish of floor, walls and ceiling at a point, the light, and the
// coloured panels that serve as landmarks. Colours are linear albedo unless stated otherwise.
#pragma once

#include <array>
#include <cstdint>

#include "sample/Solids.h"

namespace fovix_host {

// The hall's inner faces; the floor is z = 0.
constexpr double kHallHalfLength = 12.0;  // along x
constexpr double kHallHalfWidth = 8.0;    // along y
constexpr double kHallHeight = 4.0;
constexpr double kBayWidth = 2.5;
constexpr double kBayMouth = 3.2;    // the bays extend from here to the long walls
constexpr double kLaneCentre = 1.5;  // of the lanes at both sides of the x axis
constexpr double kLampRow = 1.8;     // of the lamps at both sides of the x axis

// A square on the floor or a panel on a wall, lit from within, so that it shows exactly its colour.
struct Landmark {
    const char* name;
    std::array<std::uint8_t, 3> colour;
    Vec3 centre;
    Vec3 halfSize;  // zero along the normal of its surface
};

constexpr std::array<Landmark, 6> kLandmarks{{
    {"red", {220, 30, 30}, {2.5, kHallHalfWidth, 1.7}, {0.8, 0, 0.45}},
    {"green", {30, 180, 60}, {kHallHalfLength, 6.6, 1.45}, {0, 0.8, 0.4}},
    {"blue", {40, 70, 220}, {-1.9, -kHallHalfWidth, 1.7}, {0.8, 0, 0.45}},
    {"yellow", {240, 210, 30}, {-kHallHalfLength, -6.6, 1.45}, {0, 0.8, 0.4}},
    {"magenta", {210, 40, 190}, {-5.0, 0, 0}, {0.5, 0.5, 0}},
    {"cyan", {30, 200, 220}, {-4.6, -6.2, 0}, {0.7, 0.7, 0}},
}};

// The landmark that covers the point, or nullptr.
const Landmark* landmarkAt(Vec3 point);

// What a surface reflects, and the share of its own light.
struct Finish {
    Vec3 albedo;
    double glow = 0;
};

Finish floorFinish(Vec3 point);
Finish ceilingFinish(Vec3 point);
Finish wallFinish(Vec3 point, Vec3 normal);
Finish pillarFinish(Vec3 point, Vec3 normal);

// Light from the two rows of lamps on a surface at the point.
double lightAt(Vec3 point, Vec3 normal);

}  // namespace fovix_host
