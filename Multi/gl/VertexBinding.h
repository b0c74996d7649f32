// What the vertex attributes point at, and how much of it may be drawn. GL thread; meshes are bound under the
// lock.
//
// The attributes point straight into the library's memory, so the binding shares every mesh for as long as
// they do.
#pragma once

#include <cstdint>

#include "mesh/VertexCache.h"

namespace fovix {

/// Attribute locations of the textured program, and what the context offers.
struct VertexAttributes {
    unsigned position = 0, textureCoords = 0;
    bool hasVertexArrayObjects = false;
};

class VertexBinding {
  public:
    /// After a new GL context: no attribute points anywhere, and the main mesh must be fetched.
    void forget(const VertexAttributes& attributes);

    /// Binds the main mesh again; returns false when it must be fetched: none is bound, or it came from
    /// another source.
    bool reuse(std::uint64_t source);

    /// Binds a main mesh. Without one the previous pointers stay, since the host may have moved them, and
    /// what they hold is drawn only for the source that it came from.
    void use(const VertexCachePtr& mesh, std::uint64_t source);

    /// Binds an overlay's mesh until the next main mesh.
    void useOverlay(const VertexCachePtr& mesh);

    /// Points the position attribute at other vertices for the length of draw(): x, y, z each, tightly
    /// packed.
    template <class Draw>
    void withPositions(unsigned attribute, const float* vertices, Draw&& draw) {
        pointAt(attribute, vertices);
        draw();
        restore(attribute);
    }

    /// Vertices that a draw call may read.
    int drawable() const { return _drawable; }

  private:
    void point(const VertexCachePtr& mesh);
    void pointAt(unsigned attribute, const float* vertices);
    void restore(unsigned attribute);
    void unbindHostArrays() const;

    VertexAttributes _attributes;
    VertexCachePtr _main;       ///< the main mesh bound last
    VertexCachePtr _bound;      ///< what the attributes point at: the main mesh or an overlay's
    std::uint64_t _source = 0;  ///< where _main came from
    int _drawable = 0;
};

}  // namespace fovix
