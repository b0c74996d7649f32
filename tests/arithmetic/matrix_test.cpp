#include <gtest/gtest.h>

#include <limits>

#include "base/Mat4.h"

using namespace fovix;

void expectMatrix(const Mat4& m, const std::array<double, 16>& expected) {
    for (std::size_t k = 0; k < 16; ++k) EXPECT_NEAR(m[k], expected[k], 1e-8) << k;
}

TEST(Matrix, MultipliesOnTheRight) {
    Mat4 m;  // rows: where the axes and the origin go
    Mat4_Translate(m, 1.0, 2.0, 3.0);
    Mat4_RotateX(m, 90.0);
    Mat4_RotateY(m, 90.0);
    Mat4_RotateZ(m, 90.0);
    Mat4_Scale(m, 10.0, 100.0, -1.0);
    expectMatrix(m, {0, 0, 1, 0, 0, 100, 0, 0, 10, 0, 0, 0, 30, 200, 1, 1});
    Mat4 square = {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}};
    Mat4_Multiply(square, square);
    expectMatrix(square, {56, 62, 68, 74, 152, 174, 196, 218, 248, 286, 324, 362, 344, 398, 452, 506});
    Mat4 half;  // degrees become radians with eleven decimals
    Mat4_RotateZ(half, 180.0);
    EXPECT_NEAR(half[1], 1.0207e-11, 1e-14);
    Mat4 seen;
    Mat4_Perspective(seen, 90.0, 0.1, 100.0, 1600.0, 900.0, 1.5);
    expectMatrix(seen, {1.5, 0, 0, 0, 0, 8.0 / 3, 0, 0, 0, 0, -100.1 / 99.9, -1, 0, 0, -20 / 99.9, 0});
}

TEST(Matrix, StaysFiniteOnTheWayToGL) {
    for (const auto& [fov, denominator] : {std::pair{0.0, 720.0}, {90.0, 0.0}}) {
        Mat4 m;
        Mat4_Translate(m, 0.0, 0.0, -1.0);
        Mat4_Perspective(m, fov, 0.1, 30.0, 0.0, denominator, 1.0);
        for (const double value : m.m) EXPECT_LT(std::abs(value), 1e12) << fov << ", " << denominator;
    }
    constexpr float kMost = std::numeric_limits<float>::max();
    Mat4 far;
    Mat4_Translate(far, 1e300, -1e300, 0.1);
    const auto floats = Mat4_ToFloats(far);
    EXPECT_TRUE(floats[12] == kMost && floats[13] == -kMost && floats[14] == 0.1f);
}
