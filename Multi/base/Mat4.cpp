#include "base/Mat4.h"

#include <algorithm>
#include <cmath>

#include "base/Angles.h"
#include "base/Numbers.h"

namespace fovix {

namespace {

constexpr Mat4 kZero = {{}};

/// A rotation in the plane of two axes: the sine is in row `to`, column `from`, its negative in the opposite
/// place.
void rotate(Mat4& m, double degrees, std::size_t from, std::size_t to) {
    const double angle = degrees * kMatrixRadiansPerDegree;
    const double cosine = std::cos(angle), sine = std::sin(angle);
    Mat4 e;
    e.m[5 * from] = e.m[5 * to] = cosine;
    e.m[4 * from + to] = -sine;
    e.m[4 * to + from] = sine;
    Mat4_Multiply(m, e);
}

}  // namespace

void Mat4_RotateX(Mat4& m, double degrees) {
    rotate(m, degrees, 1, 2);
}

void Mat4_RotateY(Mat4& m, double degrees) {
    rotate(m, degrees, 0, 2);
}

void Mat4_RotateZ(Mat4& m, double degrees) {
    rotate(m, degrees, 0, 1);
}

void Mat4_Translate(Mat4& m, double x, double y, double z) {
    Mat4 e;
    e.m[12] = x;
    e.m[13] = y;
    e.m[14] = z;
    Mat4_Multiply(m, e);
}

void Mat4_Scale(Mat4& m, double x, double y, double z) {
    Mat4 e;
    e.m[0] = x;
    e.m[5] = y;
    e.m[10] = z;
    Mat4_Multiply(m, e);
}

void Mat4_Perspective(Mat4& m, double fov, double near, double far, double numerator, double denominator,
                      double scale) {
    constexpr double kSmallestTangent = 1e-9;  // a zoom may close the field of view
    const double tangent = std::tan(fov * kMatrixRadiansPerDegree * 0.5);
    const double f = scale / std::copysign(std::max(std::abs(tangent), kSmallestTangent), tangent);
    const double stretch = denominator != 0.0 ? numerator / denominator : 1.0;
    Mat4 e = kZero;
    e.m[0] = f;
    e.m[5] = f * stretch;
    e.m[10] = (near + far) / (near - far);
    e.m[11] = -1.0;
    e.m[14] = 2.0 * far * near / (near - far);
    Mat4_Multiply(m, e);
}

void Mat4_Multiply(Mat4& m, const Mat4& other) {
    const Mat4 a = m, b = other;
    for (std::size_t row = 0; row < 16; row += 4) {
        for (std::size_t column = 0; column < 4; ++column) {
            m.m[row + column] = a[row] * b[column] + a[row + 1] * b[4 + column] + a[row + 2] * b[8 + column] +
                                a[row + 3] * b[12 + column];
        }
    }
}

std::array<float, 16> Mat4_ToFloats(const Mat4& m) {
    std::array<float, 16> floats;
    for (std::size_t k = 0; k < 16; ++k) floats[k] = toFloat(m[k]);
    return floats;
}

}  // namespace fovix
