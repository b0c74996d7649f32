// Carries a point of a mesh through a screen's matrix.
#pragma once

#include <gtest/gtest.h>

#include "base/Mat4.h"

namespace fovix {

struct Point {
    double x, y, z;
};

struct SurfacePoint {
    double x, y;  ///< −1 left and bottom, 1 right and top
};

/// Points are rows: the matrix stands to the right of the point.
inline void expectSeenAt(const SurfacePoint& expected, const Point& point, const Mat4& matrix) {
    const auto column = [&](std::size_t c) {
        return point.x * matrix[c] + point.y * matrix[4 + c] + point.z * matrix[8 + c] + matrix[12 + c];
    };
    EXPECT_NEAR(column(0) / column(3), expected.x, 1e-6);
    EXPECT_NEAR(column(1) / column(3), expected.y, 1e-6);
}

}  // namespace fovix
