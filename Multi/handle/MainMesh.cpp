#include "handle/MainMesh.h"

#include <exception>

#include "base/Diagnostics.h"
#include "base/ProcessLock.h"
#include "handle/FovixHandle.h"

namespace fovix {

namespace {

/// Out of memory counts as no mesh.
VertexCachePtr meshOf(FovixModel& model) {
    try {
        return model.getVerticesCache();
    } catch (const std::exception& exception) {
        reportException(exception);
        return nullptr;
    }
}

}  // namespace

void bindMesh(FovixContext& context, const Display& display) {
    const bool changesByItself = display.model->needsVertexUpdate();
    const LockSection section;
    if (!context.configChanged && !changesByItself && context.device->reuseMesh(display.serial)) return;
    fetchMesh(context, display);
}

void fetchMesh(FovixContext& context, const Display& display) {
    const LockSection section;
    // Cleared before the fetch: a change that arrives meanwhile is fetched by the next frame.
    context.configChanged.exchange(0);
    const VertexCachePtr mesh = meshOf(*display.model);
    if (!mesh) {
        context.configChanged = 1;
        printLine("buildVertices failed, Vertices is empty!\n");
    }
    context.device->useMesh(mesh, display.serial);
}

}  // namespace fovix
