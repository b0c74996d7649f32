#include "mesh/VertexCache.h"

#include <array>
#include <cmath>

namespace fovix {

namespace {

/// Steps of a curved mesh's texture coordinates, which medium-precision shaders represent exactly.
constexpr double kTextureSteps = 1024.0;

template <class TextureCoord>
std::shared_ptr<VertexCache> convert(const GridMesh& mesh, const std::array<int, 3>& order,
                                     TextureCoord&& textureCoord) {
    auto cache = std::make_shared<VertexCache>();
    cache->triangleCount = mesh.triangleCount;
    cache->extent = mesh.extent;
    const auto triangles = static_cast<std::size_t>(mesh.triangleCount);
    cache->positions.resize(triangles * 9);
    cache->textureCoords.resize(triangles * 6);
    float* position = cache->positions.data();
    float* coords = cache->textureCoords.data();
    const double* triangle = mesh.triangles.data();
    for (std::size_t t = 0; t < triangles; ++t, triangle += kDoublesPerTriangle) {
        for (const int corner : order) {
            const double* vertex = triangle + 5 * corner;
            for (int axis = 0; axis < 3; ++axis) *position++ = static_cast<float>(vertex[axis]);
            *coords++ = textureCoord(vertex[3]);
            *coords++ = textureCoord(vertex[4]);
        }
    }
    return cache;
}

}  // namespace

std::shared_ptr<VertexCache> VertexCache_FromFlatMesh(const GridMesh& mesh) {
    return convert(mesh, {0, 2, 1}, [](double value) { return static_cast<float>(value); });
}

std::shared_ptr<VertexCache> VertexCache_FromCurvedMesh(const GridMesh& mesh) {
    return convert(mesh, {0, 1, 2}, [](double value) {
        return static_cast<float>(std::trunc(value * kTextureSteps) / kTextureSteps);
    });
}

}  // namespace fovix
