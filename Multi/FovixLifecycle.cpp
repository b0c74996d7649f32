// Lifecycle of a handle: create, prepare, size, release.

#include "Fovix.h"

#include <exception>
#include <memory>

#include "base/Diagnostics.h"
#include "base/ProcessLock.h"
#include "base/Surface.h"
#include "gl/GlDevice.h"
#include "handle/DisplayTypes.h"
#include "handle/FovixContext.h"
#include "handle/FovixHandle.h"
#include "handle/FrameInput.h"
#include "handle/MainMesh.h"

namespace fovix {

namespace {

constexpr char kVersion[] = "1.2.1_dbg";

void create(VRHANDLE* out, int touchEnabled) {
    printLine("Fovix Version : %s\n", kVersion);
    if (!out) return;
    *out = nullptr;
    try {
        auto context = std::make_shared<FovixContext>();
        context->touchEnabled = touchEnabled;
        context->device = GlDevice_Create();
        context->display.store(std::make_shared<Display>());
        setType(*context, FOVIX_TYPE_180VR);
        *out = registerContext(context);
    } catch (const std::exception& exception) {
        reportException(exception);
    }
}

void forgetFrames(FovixContext& context) {
    const LockSection section;
    for (FrameSlot& slot : context.frames) forgetFrame(slot);
}

/// Passes the size of the surface to the model. Under the lock, so that a display that is being made
/// meanwhile gets the new size either from here or when it is made.
void adoptViewSize(FovixContext& context) {
    const LockSection section;
    printLine("backingWidth = %d, backingHeight = %d\n", 0, 0);
    const int width = context.viewWidth, height = context.viewHeight;
    context.backingWidth = width;
    context.backingHeight = height;
    printLine("set backingWidth = %d, backingHeight = %d\n", width, height);
    context.display.load()->model->setViewSize(width, height);
}

/// The new GL context holds nothing yet: neither the main mesh nor textures.
void fillDevice(FovixContext& context) {
    const DisplayPtr display = context.display.load();
    context.configChanged = 1;
    if (isTextureUsable(context.fishEye)) fetchMesh(context, *display);
    display->model->resetPosition();
    context.device->createTextures(context.frames[0]);
}

void prepare(FovixContext& context) {
    printLine("Fovix_Prepare()\n");
    forgetFrames(context);
    if (context.device->prepare()) fillDevice(context);
    adoptViewSize(context);
}

void init(FovixContext& context, int width, int height) {
    printLine("Fovix_Init()\n");
    context.viewWidth = width;
    context.viewHeight = height;
    context.device->setViewport(SurfaceRect{0, 0, width, height});
    adoptViewSize(context);
    const int type = context.display.load()->type;
    if (type == FOVIX_TYPE_ORIGINAL || type == FOVIX_TYPE_KORVEL) context.drawnConfigVersion = -1;
    context.configChanged = 1;
}

/// Once the handle is out of the table no export finds the context; those still running share it until they
/// return.
void release(VRHANDLE handle) {
    const ContextPtr found = contextOf(handle);
    if (!found) return;
    const ContextPtr context = unregisterContext(handle);
    if (!context) return printLine("Error VRHANDLE\n");  // another thread released it meanwhile
    context->magic = 0;
    const LockSection section;
    for (FrameSlot& slot : context->frames) slot.data.reset();
    context->display.store(std::make_shared<Display>());
}

}  // namespace

}  // namespace fovix

using fovix::withContext;

const char* Fovix_Version(void) {
    return fovix::kVersion;
}

void Fovix_Create(VRHANDLE* out) {
    fovix::create(out, 1);
}

void Fovix_CreateNoTouchEvent(VRHANDLE* out) {
    fovix::create(out, 0);
}

void Fovix_Prepare(VRHANDLE handle) {
    withContext(handle, fovix::prepare);
}

void Fovix_Init(VRHANDLE handle, int width, int height) {
    withContext(handle, [&](FovixContext& context) { fovix::init(context, width, height); });
}

void Fovix_getViewSize(VRHANDLE handle, int* width, int* height) {
    withContext(handle, [&](FovixContext& context) {
        if (width) *width = context.viewWidth;
        if (height) *height = context.viewHeight;
    });
}

void Fovix_SetPPIZoom(int zoom) {
    if (zoom > 0) fovix::ppiZoom() = zoom;
}

void Fovix_CleanUp(VRHANDLE handle) {
    withContext(handle, [](FovixContext& context) {
        context.fishEye.TextureWidth = 0;
        context.fishEye.TextureHeight = 0;
    });
}

void Fovix_Release(VRHANDLE handle) {
    try {
        fovix::release(handle);
    } catch (const std::exception& exception) {
        fovix::reportException(exception);
    }
}
