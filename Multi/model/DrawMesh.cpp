#include "model/DrawMesh.h"

#include <algorithm>
#include <cmath>

#include "gl/GlCheck.h"

namespace fovix {

void drawMesh(const FovixModel& model, const Mat4& matrix, const DrawUniforms& uniforms, int triangleCount,
              const char* source, int line) {
    if (!std::all_of(matrix.m.begin(), matrix.m.end(), [](double value) { return std::isfinite(value); }))
        return;
    const std::array<float, 16> values = Mat4_ToFloats(matrix);
    glUniformMatrix4fv(uniforms.mvpMatrix, 1, GL_FALSE, values.data());
    glCheck(source, line);
    glUniform1f(uniforms.verticalOffset, 0.0f);
    glCheck(source, line);
    glDrawArrays(GL_TRIANGLES, 0, std::min(3 * triangleCount, model.boundVertexCount));
}

}  // namespace fovix
