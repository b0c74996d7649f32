#include "mesh/MeshBlend.h"

#include <algorithm>
#include <cstddef>

#include "base/Numbers.h"

namespace fovix {

void MeshBlend::start(int fromMesh, int toMesh, int firstFrame, int frameCount) {
    if (from != fromMesh || to != toMesh || frame != firstFrame || frames != frameCount) {
        from = fromMesh;
        to = toMesh;
        frame = firstFrame;
        frames = frameCount;
        isStale = true;
    }
    isActive = 1;
}

bool MeshBlend::advance() {
    frame = saturateToInt(std::int64_t{frame} + 1);
    isStale = frame < frames;
    return isStale;
}

void MeshBlend::stop() {
    isActive = 0;
    isStale = false;
}

void MeshBlend::reset() {
    stop();
    from = to = 0;
    frame = 0;
    frames = 0;
}

void MeshBlend::mix(const VertexCache& source, const VertexCache& target) {
    if (!mesh || mesh->triangleCount != target.triangleCount) {
        mesh = std::make_shared<VertexCache>(target);
        mesh->extent = 0.0;
    }
    std::copy(target.textureCoords.begin(), target.textureCoords.end(), mesh->textureCoords.begin());
    const auto done = static_cast<float>(frame), all = static_cast<float>(frames);
    const std::size_t common = std::min(source.positions.size(), target.positions.size());
    for (std::size_t i = 0; i < common; ++i) {
        const float before = source.positions[i];
        mesh->positions[i] = before + (target.positions[i] - before) * done / all;
    }
    std::fill(mesh->positions.begin() + static_cast<std::ptrdiff_t>(common), mesh->positions.end(), 0.0f);
    isStale = false;
}

}  // namespace fovix
