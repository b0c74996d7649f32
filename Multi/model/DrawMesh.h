// The one draw call of every model: hands a matrix to the textured program and draws the bound arrays.
#pragma once

#include "base/Mat4.h"
#include "model/FovixModel.h"

namespace fovix {

/// Where a draw operation puts its values, as the frame hands them to it.
struct DrawUniforms {
    int mvpMatrix, verticalOffset;
};

/// GL thread. Draws triangleCount triangles of the arrays that the attributes point at, never more than they
/// hold; nothing for a matrix that is not finite. source and the caller's line appear in GL error lines.
void drawMesh(const FovixModel& model, const Mat4& matrix, const DrawUniforms& uniforms, int triangleCount,
              const char* source, int line = __builtin_LINE());

}  // namespace fovix
