#include "circle/CircleFit.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

namespace fovix_host {
namespace {

constexpr double kSingular = 1e-9;  // determinants below this belong to points on a line

std::optional<Circle> circleThrough(EdgePoint a, EdgePoint b, EdgePoint c) {
    const double bx = b.x - a.x, by = b.y - a.y, cx = c.x - a.x, cy = c.y - a.y;
    const double turn = 2.0 * (bx * cy - by * cx);
    if (std::abs(turn) < kSingular) return std::nullopt;
    const double b2 = bx * bx + by * by, c2 = cx * cx + cy * cy;
    const double x = (cy * b2 - by * c2) / turn, y = (bx * c2 - cx * b2) / turn;
    return Circle{a.x + x, a.y + y, std::hypot(x, y)};
}

double score(const std::vector<EdgePoint>& points, const Circle& circle, double reach) {
    int near = 0, beyond = 0;
    for (const EdgePoint& point : points) {
        const double away = outside(circle, point);
        near += std::abs(away) <= reach;
        beyond += away > reach;
    }
    constexpr double kPenalty = 0.5;  // some light in the surround is usual
    return near - kPenalty * beyond;
}

// The normal equations of one Gauss-Newton step for centre and radius.
class Adjustment {
  public:
    void add(const Circle& circle, EdgePoint point, double weight) {
        const double away = outside(circle, point), distance = away + circle.radius;
        const std::array<double, 3> slope{(point.x - circle.x) / distance, (point.y - circle.y) / distance,
                                          1.0};
        for (std::size_t i = 0; i < 3; ++i) {
            for (std::size_t j = 0; j < 3; ++j) _sums[i][j] += weight * slope[i] * slope[j];
            _right[i] += weight * slope[i] * away;
        }
        _squares += weight * away * away;
    }

    // The step, by Cramer's rule.
    std::optional<Circle> change() const {
        const double whole = determinant(_sums);
        if (!(std::abs(whole) > kSingular)) return std::nullopt;
        std::array<double, 3> solution{};
        for (std::size_t column = 0; column < 3; ++column) {
            auto replaced = _sums;
            for (std::size_t row = 0; row < 3; ++row) replaced[row][column] = _right[row];
            solution[column] = determinant(replaced) / whole;
        }
        return Circle{solution[0], solution[1], solution[2]};
    }

    // Standard error of the step in pixels.
    std::optional<double> uncertainty() const {
        const double whole = determinant(_sums);
        if (!(std::abs(whole) > kSingular)) return std::nullopt;
        double trace = 0;  // of the inverse
        for (std::size_t i = 0; i < 3; ++i) {
            const std::size_t j = (i + 1) % 3, k = (i + 2) % 3;
            trace += (_sums[j][j] * _sums[k][k] - _sums[j][k] * _sums[k][j]) / whole;
        }
        return std::sqrt(_squares * trace);
    }

  private:
    using Matrix = std::array<std::array<double, 3>, 3>;
    static double determinant(const Matrix& a) {
        return a[0][0] * (a[1][1] * a[2][2] - a[1][2] * a[2][1]) -
               a[0][1] * (a[1][0] * a[2][2] - a[1][2] * a[2][0]) +
               a[0][2] * (a[1][0] * a[2][1] - a[1][1] * a[2][0]);
    }

    Matrix _sums{};
    std::array<double, 3> _right{};
    double _squares = 0;
};

}  // namespace

bool CircleLimits::allow(const Circle& circle) const {
    return circle.radius >= minRadius && circle.radius <= maxRadius && circle.x > 0 && circle.x < width &&
           circle.y > 0 && circle.y < height;
}

double outside(const Circle& circle, EdgePoint point) {
    const double x = point.x - circle.x, y = point.y - circle.y;
    return std::sqrt(x * x + y * y) - circle.radius;
}

std::optional<Circle> fitted(const std::vector<EdgePoint>& points, Circle circle, double reach) {
    constexpr int kRounds = 8;  // more than a fit from a good start needs
    for (int round = 0; round < kRounds; ++round) {
        Adjustment adjustment;
        for (const EdgePoint& point : points) {
            const double share = outside(circle, point) / reach;
            if (std::abs(share) < 1.0)
                adjustment.add(circle, point, (1.0 - share * share) * (1.0 - share * share));
        }
        const auto change = adjustment.change();
        if (!change) return std::nullopt;
        circle = {circle.x + change->x, circle.y + change->y, circle.radius + change->radius};
        if (!(circle.radius > reach)) return std::nullopt;
    }
    return circle;
}

double doubtIn(const Circle& circle, const std::vector<EdgePoint>& points) {
    Adjustment adjustment;
    for (const EdgePoint& point : points) adjustment.add(circle, point, 1.0);
    return std::min(adjustment.uncertainty().value_or(circle.radius) / circle.radius, 1.0);
}

std::optional<Circle> agreedCircle(const std::vector<EdgePoint>& points, const CircleLimits& limits,
                                   double tolerance) {
    if (points.size() < 3) return std::nullopt;
    constexpr int kTrials = 2000;  // three points of a circle that holds a sixth of them: 99.99 %
    std::minstd_rand chance(1);
    const auto any = [&] { return points[chance() % points.size()]; };
    std::optional<Circle> best;
    double bestScore = 0;
    for (int trial = 0; trial < kTrials; ++trial) {
        const EdgePoint a = any(), b = any(), c = any();
        const auto circle = circleThrough(a, b, c);
        if (!circle || !limits.allow(*circle)) continue;
        const double reached = score(points, *circle, tolerance * circle->radius);
        if (reached <= bestScore) continue;
        best = circle;
        bestScore = reached;
    }
    if (!best) return std::nullopt;
    const auto better = fitted(points, *best, 2.0 * tolerance * best->radius);
    return better && limits.allow(*better) ? better : best;
}

}  // namespace fovix_host
