// A mesh as the drawing code binds it: single-precision arrays in the order of drawing.
//
// Model, context and GL's attribute pointers share a cache: it lives until the last of them has let go.
#pragma once

#include <memory>
#include <vector>

#include "mesh/GridMesh.h"

namespace fovix {

struct VertexCache {
    std::vector<float> textureCoords;  ///< u, v per vertex, three vertices per triangle
    std::vector<float> positions;      ///< x, y, z per vertex
    int triangleCount = 0;
    double extent = 0.0;  ///< the mesh's extent

    int vertexCount() const { return 3 * triangleCount; }
};

using VertexCachePtr = std::shared_ptr<const VertexCache>;

/// The flat pictures: each triangle's vertices in the order first, third, second (the winding turns round).
std::shared_ptr<VertexCache> VertexCache_FromFlatMesh(const GridMesh& mesh);

/// The 180- and 360-degree meshes: vertices in mesh order, texture coordinates truncated toward zero to
/// 1/1024.
std::shared_ptr<VertexCache> VertexCache_FromCurvedMesh(const GridMesh& mesh);

}  // namespace fovix
