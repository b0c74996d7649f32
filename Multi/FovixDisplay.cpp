#include "FovixDisplay.h"

#include <atomic>
#include <limits>

#include "base/Diagnostics.h"
#include "handle/DisplayTypes.h"
#include "handle/FovixHandle.h"
#include "handle/HandleOwner.h"

namespace fovix {

namespace {

/// Accepted changes after which the views of types 0 and 1 are not left for the Korvel picture any more.
constexpr int kFreeTypeSwitches = 3;

std::shared_ptr<Display> makeDisplay(FovixContext& context, int code) {
    static std::atomic<std::uint64_t> lastSerial{0};
    const DisplayType& type = displayTypeOf(code);
    auto display = std::make_shared<Display>();
    display->type = code;
    display->serial = ++lastSerial;
    display->model = type.createModel(context.fishEye);
    const OwnerPtr owner = HandleOwner_Create(&context);
    for (int screen = 0; context.touchEnabled && screen < type.controllerCount; ++screen) {
        display->controllers[static_cast<std::size_t>(screen)] = type.createController(owner, screen);
    }
    return display;
}

/// The lens parameters belong to the type that they were sent for.
void forgetLens(FishEyeConfig& fishEye) {
    fishEye.TextureWidth = 0;
    fishEye.TextureHeight = 0;
    fishEye.Fec_xCenter = -1;
    fishEye.Fec_yCenter = -1;
    fishEye.Fec_radius = -1;
    fishEye.Fec_imgWidth = -1;
    fishEye.Fec_imgHeight = -1;
}

/// A picture that is already here keeps being shown: its size makes the centred circle.
void adoptPictureSize(FovixContext& context) {
    const FrameSlot& slot = context.frames[0];
    FishEyeConfig& fishEye = context.fishEye;
    if (!slot.data || slot.width <= 0 || slot.height <= 0) return;
    if (slot.width == fishEye.TextureWidth && slot.height == fishEye.TextureHeight) return;
    fishEye.TextureWidth = slot.width;
    fishEye.TextureHeight = slot.height;
    RefreshConfig(fishEye);
}

/// The new display is whole before a frame can see it; the old one goes when the last user lets go of it.
void setType(FovixContext& context, int type) {
    const LockSection section(context.lock);
    const int current = context.display.load()->type;
    if (type == current) return;
    if (context.typeSwitchCount >= kFreeTypeSwitches && type == FOVIX_TYPE_KORVEL &&
        (current == FOVIX_TYPE_360VR || current == FOVIX_TYPE_180VR)) {
        return;
    }
    const std::shared_ptr<Display> display = makeDisplay(context, type);
    FovixModel& model = *display->model;
    if (context.typeSwitchCount < std::numeric_limits<int>::max()) ++context.typeSwitchCount;
    if (context.fishEye.displayType != type) {
        context.fishEye.displayType = type;
        RefreshConfig(context.fishEye);
    }
    context.currentScreen = 0;
    model.init();
    forgetLens(context.fishEye);
    const int width = context.backingWidth, height = context.backingHeight;
    if (width > 0 && height > 0) model.setViewSize(width, height);
    adoptPictureSize(context);
    context.display.store(display);
    context.configChanged = 1;
}

/// Only the panorama has a table of mounts and shapes; other types ignore what they do not know.
bool acceptsCode(const Display& display, const char* what, int code, int last) {
    return display.type != FOVIX_TYPE_360VR || isInRange(what, code, last);
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

void setBackground(FovixContext& context, unsigned int rgb) {
    context.backgroundRed = static_cast<float>((rgb >> 16) & 255u) / 255.0f;
    context.backgroundGreen = static_cast<float>((rgb >> 8) & 255u) / 255.0f;
    context.backgroundBlue = static_cast<float>(rgb & 255u) / 255.0f;
}

/// A getter that forwards to one operation of the model.
int ask(VRHANDLE handle, int (FovixModel::*get)(int), int absent) {
    return withContext(handle, absent,
                       [&](FovixContext& context) { return (*context.display.load()->model.*get)(absent); });
}

}  // namespace

bool isInRange(const char* what, int index, int last) {
    if (index >= 0 && index <= last) return true;
    printLine("Fovix Error : %s %d is not in 0..%d\n", what, index, last);
    return false;
}

}  // namespace fovix

using fovix::DisplayPtr;
using fovix::TouchController;
using fovix::withContext;

void Fovix_SetType(VRHANDLE handle, int type) {
    if (!withContext(handle, [&](FovixContext& context) { fovix::setType(context, type); })) {
        fovix::printLine("Fovix_SetType() Error! handle is NULL!\n");
    }
}

int Fovix_GetType(VRHANDLE handle) {
    return withContext(handle, 1, [](FovixContext& context) { return context.display.load()->type; });
}

void Fovix_SetDrawMode(VRHANDLE handle, int mode) {
    withContext(handle, [&](FovixContext& context) { fovix::setDrawMode(context, mode); });
}

void Fovix_SetDrawModeCartoon(VRHANDLE handle, int fromMode, int toMode, int step, int frameCount) {
    withContext(handle, [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        if (display->model->setDrawModeCartoon(fromMode, toMode, step, frameCount)) {
            context.configChanged = 1;
        }
    });
}

void Fovix_SetCameraMount(VRHANDLE handle, int mount) {
    withContext(handle, [&](FovixContext& context) { fovix::setCameraMount(context, mount); });
}

int Fovix_GetCameraMount(VRHANDLE handle) {
    return fovix::ask(handle, &fovix::FovixModel::getCameraMount, 4);
}

void Fovix_SetShape(VRHANDLE handle, int shape) {
    withContext(handle, [&](FovixContext& context) { fovix::setShape(context, shape); });
}

int Fovix_GetShape(VRHANDLE handle) {
    return fovix::ask(handle, &fovix::FovixModel::getShape, -1);
}

void Fovix_SetFecParams(VRHANDLE handle, int xCenter, int yCenter, int radius, int imgWidth, int imgHeight) {
    withContext(handle, [&](FovixContext& context) {
        const fovix::LockSection section(context.lock);
        fovix::FishEyeConfig& fishEye = context.fishEye;
        if (fishEye.Fec_xCenter == xCenter && fishEye.Fec_yCenter == yCenter &&
            fishEye.Fec_radius == radius && fishEye.Fec_imgWidth == imgWidth &&
            fishEye.Fec_imgHeight == imgHeight) {
            return;
        }
        fishEye.Fec_xCenter = xCenter;
        fishEye.Fec_yCenter = yCenter;
        fishEye.Fec_radius = radius;
        fishEye.Fec_imgWidth = imgWidth;
        fishEye.Fec_imgHeight = imgHeight;
        RefreshConfig(fishEye);
    });
}

void Fovix_SetTwoLensesDrawMode(VRHANDLE handle, int mode) {
    withContext(handle, [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        if (display->model->setTwoLensesDrawMode(mode)) context.configChanged = 1;
        forEachController(*display, &TouchController::setTwoLensesDrawMode, mode);
    });
}

void Fovix_SetTwoLensesScreen(VRHANDLE handle, int screen) {
    withContext(handle, [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        display->model->setTwoLensesScreen(screen);
        forEachController(*display, &TouchController::setTwoLensesScreen, screen);
    });
}

int Fovix_GetTwoLensesScreen(VRHANDLE handle) {
    return fovix::ask(handle, &fovix::FovixModel::getTwoLensesScreen, 3);
}

void Fovix_SetBackground(VRHANDLE handle, unsigned int rgb) {
    withContext(handle, [&](FovixContext& context) { fovix::setBackground(context, rgb); });
}
