// 4 × 4 matrices of doubles, changed in place: every operation is m ← m × E for an elementary matrix E.
//
// Element k = 4·r + c is row r, column c. Points are rows, to the left of the matrix: translations are in
// elements 12 to 14 and the perspective's −1 in element 11, so the sixteen values go to a shader in storage
// order, without transposing. Angles are in degrees.
#pragma once

#include <array>

namespace fovix {

/// Planes of every projection, model units: 0.1 in single precision, and beyond every mesh.
inline constexpr double kNearPlane = 0.1000000014901161;
inline constexpr double kFarPlane = 30.0;

struct Mat4 {
    std::array<double, 16> m = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

    double operator[](std::size_t k) const { return m[k]; }
};

void Mat4_RotateX(Mat4& m, double degrees);
void Mat4_RotateY(Mat4& m, double degrees);
void Mat4_RotateZ(Mat4& m, double degrees);
void Mat4_Translate(Mat4& m, double x, double y, double z);

/// m ← m × diag(x, y, z, 1).
void Mat4_Scale(Mat4& m, double x, double y, double z);

/// fov (degrees) applies along x; y is stretched by numerator ÷ denominator, for which the models pass the
/// width and the height of the surface. scale enlarges both axes. The result is finite for every field of
/// view and height.
void Mat4_Perspective(Mat4& m, double fov, double near, double far, double numerator, double denominator,
                      double scale);

/// m ← m × other; other may be m itself.
void Mat4_Multiply(Mat4& m, const Mat4& other);

/// Narrowed in storage order; values beyond a float's range become the largest float.
std::array<float, 16> Mat4_ToFloats(const Mat4& m);

}  // namespace fovix
