#include "base/Surface.h"

#include <GL/glew.h>

namespace fovix {

Cell<int>& ppiZoom() {
    static Cell<int> zoom = 1;
    return zoom;
}

void setViewport(const SurfaceRect& rect) {
    glViewport(scaledToPpi(rect.x), scaledToPpi(rect.y), scaledToPpi(rect.width), scaledToPpi(rect.height));
}

}  // namespace fovix
