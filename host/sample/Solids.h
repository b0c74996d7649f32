// Shapes of the sample scene and their intersection with rays: convex solids bounded by planes, and capsules.
// Metres; x points east, y north, z up.
#pragma once

#include <cmath>
#include <vector>

namespace fovix_host {

struct Vec3 {
    double x = 0, y = 0, z = 0;
};

inline Vec3 operator+(Vec3 a, Vec3 b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vec3 operator-(Vec3 a, Vec3 b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vec3 operator*(Vec3 a, double s) {
    return {a.x * s, a.y * s, a.z * s};
}
inline Vec3 operator*(Vec3 a, Vec3 b) {
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}
inline double dot(Vec3 a, Vec3 b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline double length(Vec3 a) {
    return std::sqrt(dot(a, a));
}
inline Vec3 unit(Vec3 a) {
    return a * (1.0 / length(a));
}

struct Ray {
    Vec3 origin;
    Vec3 direction;  // of length 1

    Vec3 at(double distance) const { return origin + direction * distance; }
};

struct Hit {
    double distance = 1e30;
    Vec3 normal;
};

// The points p with dot(normal, p) <= offset; the normal has length 1.
struct Plane {
    Vec3 normal;
    double offset = 0;
};

using Convex = std::vector<Plane>;

// Each returns true and updates the hit if the ray enters the shape before hit.distance.
bool meets(const Ray& ray, const Convex& solid, Hit& hit);
bool meetsCapsule(const Ray& ray, Vec3 from, Vec3 to, double radius, Hit& hit);

struct Sphere {
    Vec3 centre;
    double radius = 0;
};

// Returns true if the ray intersects the sphere: a cheap test before the exact one.
inline bool passes(const Ray& ray, const Sphere& sphere) {
    const Vec3 to = sphere.centre - ray.origin;
    const double along = dot(to, ray.direction);
    const double outside = dot(to, to) - sphere.radius * sphere.radius;
    return outside <= 0.0 || (along > 0.0 && outside <= along * along);
}

Convex box(Vec3 low, Vec3 high);
// A frustum with a rectangular foot and roof, both parallel to the floor; cars consist of these.
Convex frustum(Vec3 footLow, Vec3 footHigh, Vec3 roofLow, Vec3 roofHigh);

}  // namespace fovix_host
