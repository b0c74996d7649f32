// Carries a point of a mesh through a screen's matrix, and makes the lens of a picture.
#pragma once

#include <gtest/gtest.h>

#include "FishEyeConfig.h"
#include "Mat4.h"

namespace fovix {

struct Point {
    double x, y, z;
};

struct SurfacePoint {
    double x, y;  ///< −1 left and bottom, 1 right and top
};

/// Points are rows: the matrix stands to the right of the point.
inline SurfacePoint project(const Point& point, const Mat4& matrix) {
    const auto column = [&](std::size_t c) {
        return point.x * matrix[c] + point.y * matrix[4 + c] + point.z * matrix[8 + c] + matrix[12 + c];
    };
    return {column(0) / column(3), column(1) / column(3)};
}

inline void expectAt(const SurfacePoint& actual, const SurfacePoint& expected, double tolerance = 1e-6) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
}

/// The centred circle of a picture about which the host reports nothing more.
inline FishEyeConfig lensOfPicture(int displayType, int width, int height) {
    FishEyeConfig lens;
    lens.displayType = displayType;
    lens.TextureWidth = width;
    lens.TextureHeight = height;
    RefreshConfig(lens);
    return lens;
}

}  // namespace fovix
