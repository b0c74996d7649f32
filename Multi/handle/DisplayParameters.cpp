#include "handle/DisplayParameters.h"

#include "base/Diagnostics.h"

namespace fovix {

namespace {

/// Only the panorama has a table of mounts and shapes; other types ignore unknown codes.
bool acceptsCode(const Display& display, const char* what, int code, int last) {
    return display.type != FOVIX_TYPE_360VR || isInRange(what, code, last);
}

}  // namespace

bool isInRange(const char* what, int index, int last) {
    if (index >= 0 && index <= last) return true;
    printLine("Fovix Error : %s %d is not in 0..%d\n", what, index, last);
    return false;
}

void setDrawMode(FovixContext& context, int mode) {
    const DisplayPtr display = context.display.load();
    forEachController(*display, &TouchController::setDrawMode, mode);
    if (display->model->setDrawMode(mode)) context.configChanged = 1;
}

void setShape(FovixContext& context, int shape) {
    printLine("Fovix_SetShape(%d)\n", shape);
    const DisplayPtr display = context.display.load();
    if (!acceptsCode(*display, "shape", shape, FOVIX_SHAPE_LARGE_AND_TWO)) return;
    if (display->model->getShape(shape) != shape && display->model->setShape(shape)) {
        display->model->resetPosition();
        context.configChanged = 1;
    }
    forEachController(*display, &TouchController::setShape, shape);
}

void setCameraMount(FovixContext& context, int mount) {
    const DisplayPtr display = context.display.load();
    if (!acceptsCode(*display, "mount", mount, FOVIX_MOUNT_FLOOR)) return;
    forEachController(*display, &TouchController::setCameraMount, mount);
    if (!display->model->setCameraMount(mount)) return;
    display->model->resetPosition();
    context.configChanged = 1;
}

}  // namespace fovix
