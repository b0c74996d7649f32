// A mesh as it is drawn: single-precision arrays in drawing order.
//
// The model, the frame and GL's attribute pointers share a cache; it is freed with the last reference.
#pragma once

#include <memory>
#include <vector>

#include "mesh/GridMesh.h"

namespace fovix {

struct VertexCache {
    std::vector<float> textureCoords;  ///< u, v per vertex, three vertices per triangle
    std::vector<float> positions;      ///< x, y, z per vertex
    int triangleCount = 0;
    double extent = 0.0;  ///< as in GridMesh

    int vertexCount() const { return 3 * triangleCount; }
};

using VertexCachePtr = std::shared_ptr<const VertexCache>;

/// For the flat kinds: reverses each triangle's winding (first, third, second vertex).
std::shared_ptr<VertexCache> VertexCache_FromFlatMesh(const GridMesh& mesh);

/// For the 180- and 360-degree kinds: vertices in mesh order, texture coordinates truncated toward zero to
/// 1/1024.
std::shared_ptr<VertexCache> VertexCache_FromCurvedMesh(const GridMesh& mesh);

}  // namespace fovix
