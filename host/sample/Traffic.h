// Traffic of the car park: cars and a pedestrian, their shapes, colours and paths.
#pragma once

#include <vector>

#include "sample/Surfaces.h"

namespace fovix_host {

// What a ray hits first: where, and the finish of the surface.
struct Sight {
    Hit hit;
    Finish finish;
};

struct Car {
    double x = 0, y = 0;
    double forwardX = 1, forwardY = 0;  // unit vector from the boot to the bonnet
    Vec3 paint;

    Sphere bounds() const { return {{x, y, 0.6}, 2.4}; }
    Sphere boundsWithShadow() const { return {{x, y, 0.6}, 3.2}; }
    bool meets(const Ray& ray, Sight& sight) const;
    // Share of the hall's light on the floor at a point near the car: low under it, 1 far away.
    double floorLight(double floorX, double floorY) const;
};

struct Walker {
    double x = 0, y = 0;
    double forwardY = 1;  // walks north (1) or south (-1)
    double stride = 0;    // swing of the limbs, -1 to 1

    Sphere bounds() const { return {{x, y, 0.9}, 1.0}; }
    Sphere boundsWithShadow() const { return {{x, y, 0.9}, 1.1}; }
    bool meets(const Ray& ray, Sight& sight) const;
    double floorLight(double floorX, double floorY) const;
};

std::vector<Car> parkedCars();
// Positions at a frame number, 25 per second; they repeat every kTrafficPeriod frames.
std::vector<Car> movingCars(int frame);
Walker walkerAt(int frame);
constexpr int kTrafficPeriod = 600;
constexpr double kTrafficHeight = 1.9;  // of the tallest

}  // namespace fovix_host
