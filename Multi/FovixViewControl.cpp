// View control: touch, sensor, cruise and pan-tilt-zoom exports. Any thread.
//
// Thin dispatch: every function forwards to one operation of the model or of a controller, without the lock.
// Numbers that are not finite are refused here, so that no view ever holds one.

#include "FovixDisplay.h"
#include "base/Diagnostics.h"
#include "base/Numbers.h"
#include "handle/FovixContext.h"
#include "handle/FovixHandle.h"
#include "view/OverviewAim.h"

namespace fovix {

namespace {

constexpr int kNone = -1;  ///< shape or screen of a model that has none

/// Runs operation(context) when all values are finite; exportName appears in the line that refuses others.
template <class Operation, class... Values>
void withFinite(VRHANDLE handle, const char* exportName, Operation&& operation, Values... values) {
    withContext(handle, [&](FovixContext& context) {
        if (allFinite(values...)) return operation(context);
        printLine("%s() Error : a value is not finite\n", exportName);
    });
}

TouchController* controllerAt(const Display& display, int screen) {
    if (screen < 0 || screen >= kScreenCount) return nullptr;
    return display.controllers[static_cast<std::size_t>(screen)].get();
}

/// Calls a member of the controller that the last touch-down chose.
template <class Operation, class... Arguments>
void callCurrent(FovixContext& context, Operation TouchController::*operation, Arguments... arguments) {
    const DisplayPtr display = context.display.load();
    TouchController* controller = controllerAt(*display, context.currentScreen);
    if (controller) (controller->*operation)(arguments...);
}

/// The same for an export whose values must be finite.
template <class Operation, class... Values>
void steer(VRHANDLE handle, const char* exportName, Operation TouchController::*operation, Values... values) {
    const auto call = [&](FovixContext& context) { callCurrent(context, operation, values...); };
    withFinite(handle, exportName, call, values...);
}

/// Whether a model has this screen; only the types with six screens look at the index.
bool hasScreen(const Display& display, int screen) {
    const bool hasScreens = display.type == FOVIX_TYPE_360VR || display.type == FOVIX_TYPE_180VR;
    return !hasScreens || isInRange("screen", screen, kScreenCount - 1);
}

/// Whether the touch began on the part of a multi-view layout that aims the selected view.
bool isOnOverview(int shape, int currentScreen) {
    if (shape == FOVIX_SHAPE_OVERVIEW_FIVE) return currentScreen == 0;
    return shape == FOVIX_SHAPE_TWO_AND_STRIP && currentScreen >= 2;
}

/// A touch on the overview screen or the strip of a multi-view layout aims the selected view; gives whether
/// it did.
bool aimAtTouch(FovixContext& context, float x, float y, bool adjust) {
    const DisplayPtr display = context.display.load();
    FovixModel& model = *display->model;
    const int shape = model.getShape(kNone), selected = model.getSelectedScreen(kNone);
    double zoom = 0.0, roll = 0.0;
    if (!isOnOverview(shape, context.currentScreen)) return false;
    if (!model.getPTZ(selected, nullptr, nullptr, &zoom, &roll)) return false;
    TouchController* target = controllerAt(*display, selected);
    if (!target || !target->canBeAimed()) return false;
    if (adjust) return target->autoAdjust();
    const int width = context.backingWidth, height = context.backingHeight;
    const AimedView aim = shape == FOVIX_SHAPE_OVERVIEW_FIVE ? aimOnOverview(x, y, width, height)
                                                             : aimOnStrip(x, y, zoom, width, height);
    return target->setPTZ(aim.pan, aim.tilt, zoom, roll);
}

void touchDown(FovixContext& context, float x, float y) {
    const DisplayPtr display = context.display.load();
    context.currentScreen = display->model->selectScreen(truncateToInt(x), truncateToInt(y), 0);
    if (aimAtTouch(context, x, y, false)) return;
    callCurrent(context, &TouchController::onTouchDown, x, y);
}

void startAutoCruise(FovixContext& context, double speed) {
    const DisplayPtr display = context.display.load();
    TouchController* selected = controllerAt(*display, display->model->getSelectedScreen(kNone));
    if (selected && selected->startAutoCruise(speed)) return;
    forEachController(*display, &TouchController::startAutoCruise, speed);
}

/// The panorama looks at a point or a rectangle through its one large screen.
void showSingleScreen(VRHANDLE handle) {
    if (Fovix_GetShape(handle) != FOVIX_SHAPE_SINGLE) Fovix_SetShape(handle, FOVIX_SHAPE_SINGLE);
}

void displayRect(VRHANDLE handle, FovixContext& context, int left, int top, int right, int bottom, int width,
                 int height) {
    if (left >= right || top >= bottom) return printLine("Fovix_DisplayRect, point info error!");
    const int type = context.display.load()->type;
    if (type != FOVIX_TYPE_360VR && type != FOVIX_TYPE_180VR && type != FOVIX_TYPE_SINGLE_PIP) {
        return printLine("current type is not support -> [%d]!\n", type);
    }
    if (type == FOVIX_TYPE_360VR) showSingleScreen(handle);
    const DisplayPtr display = context.display.load();
    const int screen = type == FOVIX_TYPE_SINGLE_PIP ? 0 : context.currentScreen.get();
    TouchController* controller = controllerAt(*display, screen);
    if (controller) controller->displayRect(left, top, right, bottom, width, height);
}

void displayTarget(VRHANDLE handle, FovixContext& context, int targetX, int targetY, int width, int height) {
    printLine("Fovix_DisplayTarget(targetX: %d, targetY: %d, w: %d, h:%d)\n", targetX, targetY, width,
              height);
    const int type = context.display.load()->type;
    if (type != FOVIX_TYPE_360VR && type != FOVIX_TYPE_180VR) {
        return printLine("current type is not support -> [%d]!\n", type);
    }
    if (type == FOVIX_TYPE_360VR) showSingleScreen(handle);
    callCurrent(context, &TouchController::displayTarget, targetX, targetY, width, height);
}

}  // namespace

}  // namespace fovix

using fovix::callCurrent;
using fovix::ControllerPtr;
using fovix::DisplayPtr;
using fovix::steer;
using fovix::TouchController;
using fovix::withContext;
using fovix::withFinite;

// Touch and sensor input

void Fovix_OnTouchDown(VRHANDLE handle, float x, float y) {
    withFinite(
        handle, "Fovix_OnTouchDown", [&](FovixContext& context) { fovix::touchDown(context, x, y); }, x, y);
}

void Fovix_OnTouchUp(VRHANDLE handle, float x, float y) {
    steer(handle, "Fovix_OnTouchUp", &TouchController::onTouchUp, x, y);
}

void Fovix_OnTouchMove(VRHANDLE handle, float x, float y) {
    const auto move = [&](FovixContext& context) {
        if (!fovix::aimAtTouch(context, x, y, false))
            callCurrent(context, &TouchController::onTouchMove, x, y);
    };
    withFinite(handle, "Fovix_OnTouchMove", move, x, y);
}

void Fovix_OnTouchPinch(VRHANDLE handle, float x1, float y1, float x2, float y2) {
    steer(handle, "Fovix_OnTouchPinch", &TouchController::onTouchPinch, x1, y1, x2, y2);
}

void Fovix_OnTouchPinchScale(VRHANDLE handle, float scale) {
    steer(handle, "Fovix_OnTouchPinchScale", &TouchController::onTouchPinchScale, scale);
}

void Fovix_OnTouchFling(VRHANDLE handle, float velocityX, float velocityY) {
    steer(handle, "Fovix_OnTouchFling", &TouchController::onTouchFling, velocityX, velocityY);
}

void Fovix_AutoAdjust(VRHANDLE handle) {
    withContext(handle, [](FovixContext& context) {
        if (!fovix::aimAtTouch(context, 0.0f, 0.0f, true)) callCurrent(context, &TouchController::autoAdjust);
    });
}

void Fovix_OnAccelerometer(VRHANDLE handle, float x, float y) {
    steer(handle, "Fovix_OnAccelerometer", &TouchController::onAccelerometer, x, y);
}

void Fovix_OnOrientation(VRHANDLE handle, float a, float b, float c) {
    steer(handle, "Fovix_OnOrientation", &TouchController::onOrientation, a, b, c);
}

// Cruise and reset

void Fovix_StartAutoCruise(VRHANDLE handle, double speed) {
    const auto start = [&](FovixContext& context) { fovix::startAutoCruise(context, speed); };
    withFinite(handle, "Fovix_StartAutoCruise", start, speed);
}

void Fovix_StopAutoCruise(VRHANDLE handle) {
    withContext(handle, [](FovixContext& context) {
        forEachController(*context.display.load(), &TouchController::stopAutoCruise);
    });
}

void Fovix_ResetPosition(VRHANDLE handle) {
    withContext(handle, [](FovixContext& context) { context.display.load()->model->resetPosition(); });
}

// Views of the model

void Fovix_SetPTZ(VRHANDLE handle, double pan, double tilt, double zoom, double roll, double ptzFifth) {
    Fovix_SetPTZ_SubScreen(handle, 0, pan, tilt, zoom, roll, ptzFifth);
}

void Fovix_GetPTZ(VRHANDLE handle, double* pan, double* tilt, double* zoom, double* roll) {
    Fovix_GetPTZ_SubScreen(handle, 0, pan, tilt, zoom, roll);
}

void Fovix_SetPTZ_SubScreen(VRHANDLE handle, int screen, double pan, double tilt, double zoom, double roll,
                            double ptzFifth) {
    const auto set = [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        if (fovix::hasScreen(*display, screen))
            display->model->setPTZ(screen, pan, tilt, zoom, roll, ptzFifth);
    };
    withFinite(handle, "Fovix_SetPTZ", set, pan, tilt, zoom, roll, ptzFifth);
}

void Fovix_GetPTZ_SubScreen(VRHANDLE handle, int screen, double* pan, double* tilt, double* zoom,
                            double* roll) {
    withContext(handle, [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        if (fovix::hasScreen(*display, screen)) display->model->getPTZ(screen, pan, tilt, zoom, roll);
    });
}

void Fovix_SetRotateZoom(VRHANDLE handle, double xAngle, double yAngle, double zAngle, double zoom) {
    Fovix_SetRotateZoom_SubScreen(handle, 0, xAngle, yAngle, zAngle, zoom);
}

void Fovix_SetRotateZoomRecoverMode(VRHANDLE handle, double xAngle, double yAngle, double zAngle,
                                    double zoom) {
    const auto set = [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        forEachController(*display, &TouchController::setRotateZoom, xAngle, yAngle, zAngle, zoom);
        display->model->setRotateZoom(0, xAngle, yAngle, zAngle, zoom);
    };
    withFinite(handle, "Fovix_SetRotateZoomRecoverMode", set, xAngle, yAngle, zAngle, zoom);
}

void Fovix_GetRotateZoom(VRHANDLE handle, double* xAngle, double* yAngle, double* zAngle, double* zoom) {
    Fovix_GetRotateZoom_SubScreen(handle, 0, xAngle, yAngle, zAngle, zoom);
}

void Fovix_SetRotateZoom_SubScreen(VRHANDLE handle, int screen, double xAngle, double yAngle, double zAngle,
                                   double zoom) {
    const auto set = [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        if (fovix::hasScreen(*display, screen))
            display->model->setRotateZoom(screen, xAngle, yAngle, zAngle, zoom);
    };
    withFinite(handle, "Fovix_SetRotateZoom", set, xAngle, yAngle, zAngle, zoom);
}

void Fovix_GetRotateZoom_SubScreen(VRHANDLE handle, int screen, double* xAngle, double* yAngle,
                                   double* zAngle, double* zoom) {
    withContext(handle, [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        if (fovix::hasScreen(*display, screen))
            display->model->getRotateZoom(screen, xAngle, yAngle, zAngle, zoom);
    });
}

void Fovix_SetRotationFor180VR(VRHANDLE handle, double degrees) {
    const auto set = [&](FovixContext& context) { context.display.load()->model->setRotation(degrees); };
    withFinite(handle, "Fovix_SetRotationFor180VR", set, degrees);
}

void Fovix_SetLogicZoom(VRHANDLE handle, double min, double max, double div, double zoom) {
    const auto set = [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        display->model->setLogicZoom(min, max, div, zoom);
        forEachController(*display, &TouchController::setLogicZoom, min, max, div, zoom);
    };
    withFinite(handle, "Fovix_SetLogicZoom", set, min, max, div, zoom);
}

float Fovix_GetLogicZoom(VRHANDLE handle) {
    return withContext(handle, 0.0f, [](FovixContext& context) {
        return context.display.load()->model->getLogicZoom(0.0f);
    });
}

// Views of a controller

void Fovix_GetPTZFor180VR(VRHANDLE handle, double* xAngle, double* yAngle, double* third, double* zoom) {
    withContext(handle, [&](FovixContext& context) {
        callCurrent(context, &TouchController::getPTZFor180VR, xAngle, yAngle, third, zoom);
    });
}

void Fovix_SetPTZFor180VR(VRHANDLE handle, double xAngle, double yAngle, double zAngle, double zoom) {
    steer(handle, "Fovix_SetPTZFor180VR", &TouchController::setPTZFor180VR, xAngle, yAngle, zAngle, zoom);
}

float Fovix_GetRelativeXOffset(VRHANDLE handle) {
    return withContext(handle, 0.0f, [](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        const ControllerPtr& controller = display->controllers[0];
        return controller ? controller->getRelativeXOffset() : 0.0f;
    });
}

void Fovix_DisplayRect(VRHANDLE handle, int left, int top, int right, int bottom, int width, int height) {
    const bool alive = withContext(handle, [&](FovixContext& context) {
        fovix::displayRect(handle, context, left, top, right, bottom, width, height);
    });
    if (!alive) fovix::printLine("Fovix_DisplayRect Error, handle is NULL!");
}

void Fovix_DisplayTarget(VRHANDLE handle, int targetX, int targetY, int width, int height) {
    const bool alive = withContext(handle, [&](FovixContext& context) {
        fovix::displayTarget(handle, context, targetX, targetY, width, height);
    });
    if (!alive) fovix::printLine("Fovix_DisplayRect Error, handle is NULL!");
}
