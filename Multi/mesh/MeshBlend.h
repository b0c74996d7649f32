// The blend: an animated change from one mesh to another, one step per fetched frame.
//
// Only the positions move; the texture coordinates are the target's from the first step. GL may still point
// at the arrays of the last step, so they are refilled and never resized.
#pragma once

#include <memory>

#include "base/Cell.h"
#include "mesh/VertexCache.h"

namespace fovix {

/// The numbers change under the lock, and isRunning also reads without it; `mesh` belongs to the GL thread.
struct MeshBlend {
    Cell<int> isActive = 0;
    Cell<int> from = 0, to = 0;         ///< meshes at both ends, by the model's own numbers
    int frame = 0;                      ///< steps so far; may begin at any number
    Cell<int> frames = 0;               ///< step at which the target is reached
    bool isStale = false;               ///< `mesh` does not show `frame` yet
    std::shared_ptr<VertexCache> mesh;  ///< the mixed mesh; kept for the next blend unless the model drops it

    bool isRunning() const { return isActive && from != to && frames > 0; }

    /// Restarting an identical blend resumes it.
    void start(int fromMesh, int toMesh, int firstFrame, int frameCount);

    /// Counts a step. Returns false once the target is reached.
    bool advance();

    /// Ends the blend and keeps its numbers, by which `start` knows it again.
    void stop();

    /// Ends the blend and forgets its numbers.
    void reset();

    /// Fills `mesh` with positions `frame` ÷ `frames` of the way. Vertices that only the target has stay at
    /// the origin.
    void mix(const VertexCache& source, const VertexCache& target);
};

}  // namespace fovix
