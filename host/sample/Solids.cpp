#include "sample/Solids.h"

#include <algorithm>

namespace fovix_host {

bool meets(const Ray& ray, const Convex& solid, Hit& hit) {
    double enter = 0.0;
    double leave = hit.distance;
    const Plane* face = nullptr;
    for (const Plane& plane : solid) {
        const double approach = dot(plane.normal, ray.direction);
        const double height = plane.offset - dot(plane.normal, ray.origin);
        if (approach == 0.0) {
            if (height < 0.0) return false;
        } else if (approach < 0.0) {
            const double distance = height / approach;
            if (distance > enter) {
                enter = distance;
                face = &plane;
            }
        } else {
            leave = std::min(leave, height / approach);
        }
        if (enter >= leave) return false;
    }
    if (!face) return false;
    hit = {enter, face->normal};
    return true;
}

namespace {

bool meetsSphere(const Ray& ray, Vec3 centre, double radius, Hit& hit) {
    const Vec3 to = centre - ray.origin;
    const double along = dot(to, ray.direction);
    const double under = radius * radius - dot(to, to) + along * along;
    if (under < 0.0) return false;
    const double distance = along - std::sqrt(under);
    if (distance <= 0.0 || distance >= hit.distance) return false;
    hit = {distance, unit(ray.at(distance) - centre)};
    return true;
}

}  // namespace

bool meetsCapsule(const Ray& ray, Vec3 from, Vec3 to, double radius, Hit& hit) {
    bool met = meetsSphere(ray, from, radius, hit);
    met = meetsSphere(ray, to, radius, hit) || met;
    // The tube between the spheres: a cylinder around the axis, without caps.
    const double axisLength = length(to - from);
    if (axisLength == 0.0) return met;
    const Vec3 axis = (to - from) * (1.0 / axisLength);
    const Vec3 offset = ray.origin - from;
    const Vec3 across = ray.direction - axis * dot(ray.direction, axis);
    const Vec3 away = offset - axis * dot(offset, axis);
    const double a = dot(across, across);
    if (a < 1e-12) return met;
    const double half = dot(across, away);
    const double under = half * half - a * (dot(away, away) - radius * radius);
    if (under < 0.0) return met;
    const double distance = (-half - std::sqrt(under)) / a;
    if (distance <= 0.0 || distance >= hit.distance) return met;
    const double height = dot(ray.at(distance) - from, axis);
    if (height < 0.0 || height > axisLength) return met;
    hit = {distance, unit(ray.at(distance) - from - axis * height)};
    return true;
}

Convex box(Vec3 low, Vec3 high) {
    return frustum(low, high, low, high);
}

Convex frustum(Vec3 footLow, Vec3 footHigh, Vec3 roofLow, Vec3 roofHigh) {
    const double height = roofHigh.z - footLow.z;
    // The lean of a side face follows from the distances of its lower and upper edge.
    const auto side = [&](Vec3 outward, double foot, double roof) {
        const Vec3 normal = unit(outward * height + Vec3{0, 0, foot - roof});
        const Vec3 onFoot = outward * foot + Vec3{0, 0, footLow.z};
        return Plane{normal, dot(normal, onFoot)};
    };
    return {
        {{0, 0, -1}, -footLow.z},
        {{0, 0, 1}, roofHigh.z},
        side({-1, 0, 0}, -footLow.x, -roofLow.x),
        side({1, 0, 0}, footHigh.x, roofHigh.x),
        side({0, -1, 0}, -footLow.y, -roofLow.y),
        side({0, 1, 0}, footHigh.y, roofHigh.y),
    };
}

}  // namespace fovix_host
