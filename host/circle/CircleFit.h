// Circles through edge points, most of which may belong to something else.
#pragma once

#include <optional>
#include <vector>

namespace fovix_host {

struct EdgePoint {
    double x = 0, y = 0;
};

struct Circle {
    double x = 0, y = 0, radius = 0;
};

// How far outside the circle the point lies; below 0 inside.
double outside(const Circle& circle, EdgePoint point);

// The circle that comes closest to the points near the start, each counting less the farther it lies from
// the circle, and none from `reach` on. Nothing where they do not determine one.
std::optional<Circle> fitted(const std::vector<EdgePoint>& points, Circle start, double reach);

// How far the centre or the radius may be off, as a share of the radius, when the points are as far from the
// true circle as they are from this one. Large where they lie on a short arc; at most 1.
double doubtIn(const Circle& circle, const std::vector<EdgePoint>& points);

// Which circles are looked for.
struct CircleLimits {
    double leastRadius = 0, mostRadius = 0;
    double width = 0, height = 0;  // of the picture, in which the centre lies

    bool allow(const Circle& circle) const;
};

// The circle that most points agree on within a share of its radius. Points outside speak against it (light
// in the dark surround), points inside do not (the scene). Always the same one for the same points.
std::optional<Circle> agreedCircle(const std::vector<EdgePoint>& points, const CircleLimits& limits,
                                   double tolerance);

}  // namespace fovix_host
