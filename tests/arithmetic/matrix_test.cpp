#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Mat4.h"

using namespace fovix;

TEST(Matrix, RotatesAQuarterTurnAboutEachAxis) {
    const struct {
        void (*rotate)(Mat4&, double);
        std::array<double, 16> quarter;
    } cases[] = {
        {Mat4_RotateX, {1, 0, 0, 0, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1}},
        {Mat4_RotateY, {0, 0, -1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1}},
        {Mat4_RotateZ, {0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}},
    };
    for (std::size_t axis = 0; axis < 3; ++axis) {
        Mat4 m;
        cases[axis].rotate(m, 90.0);
        for (std::size_t k = 0; k < 16; ++k)
            EXPECT_NEAR(m[k], cases[axis].quarter[k], 1e-10) << axis << ", " << k;
    }
    // Degrees become radians with eleven decimals: half a turn overshoots by one hundred-billionth.
    Mat4 half;
    Mat4_RotateZ(half, 180.0);
    EXPECT_NEAR(half[1], 1.0207e-11, 1e-14);
}

TEST(Matrix, MultipliesOnTheRight) {
    Mat4 m;
    Mat4_Translate(m, 1.0, 2.0, 3.0);
    Mat4_RotateX(m, 180.0);
    EXPECT_NEAR(m[12], 1.0, 1e-9);
    EXPECT_NEAR(m[13], -2.0, 1e-9);
    EXPECT_NEAR(m[14], -3.0, 1e-9);
    Mat4_Scale(m, 10.0, 100.0, -1.0);
    EXPECT_NEAR(m[0], 10.0, 1e-9);
    EXPECT_NEAR(m[5], -100.0, 1e-7);
    EXPECT_NEAR(m[12], 10.0, 1e-9);
    EXPECT_NEAR(m[13], -200.0, 1e-7);
    EXPECT_NEAR(m[14], 3.0, 1e-9);
    EXPECT_EQ(m[15], 1.0);

    Mat4 square = {{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}};
    Mat4_Multiply(square, square);
    EXPECT_EQ(square.m, (std::array<double, 16>{56, 62, 68, 74, 152, 174, 196, 218, 248, 286, 324, 362, 344,
                                                398, 452, 506}));
}

TEST(Matrix, PerspectiveStretchesYByTheSurface) {
    Mat4 m;
    Mat4_Perspective(m, 90.0, 0.1, 100.0, 1600.0, 900.0, 1.5);
    const std::array<double, 16> expected = {
        1.5, 0, 0, 0, 0, 1.5 * 16 / 9, 0, 0, 0, 0, -100.1 / 99.9, -1, 0, 0, -20 / 99.9, 0};
    for (std::size_t k = 0; k < 16; ++k) EXPECT_NEAR(m[k], expected[k], 1e-9) << k;
}

TEST(Matrix, StaysFiniteOnTheWayToGL) {
    const struct {
        double fov, numerator, denominator;
    } cases[] = {{0.0, 1280.0, 720.0}, {90.0, 1280.0, 0.0}, {90.0, 0.0, 0.0}};
    for (const auto& [fov, numerator, denominator] : cases) {
        Mat4 m;
        Mat4_Translate(m, 0.0, 0.0, -1.0);
        Mat4_Perspective(m, fov, 0.1, 30.0, numerator, denominator, 1.0);
        for (const float value : Mat4_ToFloats(m))
            EXPECT_TRUE(std::isfinite(value)) << fov << ", " << denominator;
    }
    Mat4 far;
    Mat4_Translate(far, 1e300, -1e300, 0.1);
    const auto floats = Mat4_ToFloats(far);
    EXPECT_EQ(floats[12], std::numeric_limits<float>::max());
    EXPECT_EQ(floats[13], -std::numeric_limits<float>::max());
    EXPECT_EQ(floats[14], 0.1f);
}
