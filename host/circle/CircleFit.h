// Fits circles to edge points, most of which may be outliers.
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

// Distance of the point from the circle; negative inside.
double outside(const Circle& circle, EdgePoint point);

// Robust least-squares fit. A point's weight falls with its distance from the circle and is 0 at `reach` and
// beyond. Returns nullopt if the points do not determine a circle.
std::optional<Circle> fitted(const std::vector<EdgePoint>& points, Circle start, double reach);

// Standard error of centre and radius as a share of the radius, estimated from the points' distances. Large
// for a short arc; at most 1.
double doubtIn(const Circle& circle, const std::vector<EdgePoint>& points);

// The circles to consider.
struct CircleLimits {
    double minRadius = 0, maxRadius = 0;
    double width = 0, height = 0;  // of the image, which contains the centre

    bool allow(const Circle& circle) const;
};

// The circle that most points agree on, within a tolerance given as a share of its radius. Points outside
// count against it (light in the dark surround), points inside do not (the scene). Deterministic.
std::optional<Circle> agreedCircle(const std::vector<EdgePoint>& points, const CircleLimits& limits,
                                   double tolerance);

}  // namespace fovix_host
