// Views: pan-tilt-zoom, rotate-zoom, rectangles and targets. Any thread, without the lock.

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "handle/DisplayParameters.h"
#include "handle/FovixContext.h"
#include "handle/FovixHandle.h"
#include "handle/Steering.h"

namespace fovix {

namespace {

/// Returns whether a model has this screen; only the types with six screens look at the index.
bool hasScreen(const Display& display, int screen) {
    const bool hasScreens = display.type == FOVIX_TYPE_360VR || display.type == FOVIX_TYPE_180VR;
    return !hasScreens || isInRange("screen", screen, kScreenCount - 1);
}

void setPTZ(VRHANDLE handle, int screen, double pan, double tilt, double zoom, double roll, double ptzFifth) {
    const auto set = [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        if (hasScreen(*display, screen)) display->model->setPTZ(screen, pan, tilt, zoom, roll, ptzFifth);
    };
    withFinite(handle, "Fovix_SetPTZ", set, pan, tilt, zoom, roll, ptzFifth);
}

void getPTZ(VRHANDLE handle, int screen, double* pan, double* tilt, double* zoom, double* roll) {
    withContext(handle, [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        if (hasScreen(*display, screen)) display->model->getPTZ(screen, pan, tilt, zoom, roll);
    });
}

void setRotateZoom(VRHANDLE handle, int screen, double xAngle, double yAngle, double zAngle, double zoom) {
    const auto set = [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        if (hasScreen(*display, screen)) display->model->setRotateZoom(screen, xAngle, yAngle, zAngle, zoom);
    };
    withFinite(handle, "Fovix_SetRotateZoom", set, xAngle, yAngle, zAngle, zoom);
}

void getRotateZoom(VRHANDLE handle, int screen, double* xAngle, double* yAngle, double* zAngle,
                   double* zoom) {
    withContext(handle, [&](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        if (hasScreen(*display, screen)) display->model->getRotateZoom(screen, xAngle, yAngle, zAngle, zoom);
    });
}

}  // namespace

}  // namespace fovix

using fovix::callCurrent;
using fovix::ControllerPtr;
using fovix::DisplayPtr;
using fovix::TouchController;
using fovix::withContext;
using fovix::withFinite;

void Fovix_ResetPosition(VRHANDLE handle) {
    withContext(handle, [](FovixContext& context) { context.display.load()->model->resetPosition(); });
}

void Fovix_SetPTZ(VRHANDLE handle, double pan, double tilt, double zoom, double roll, double ptzFifth) {
    fovix::setPTZ(handle, 0, pan, tilt, zoom, roll, ptzFifth);
}

void Fovix_GetPTZ(VRHANDLE handle, double* pan, double* tilt, double* zoom, double* roll) {
    fovix::getPTZ(handle, 0, pan, tilt, zoom, roll);
}

void Fovix_SetPTZ_SubScreen(VRHANDLE handle, int screen, double pan, double tilt, double zoom, double roll,
                            double ptzFifth) {
    fovix::setPTZ(handle, screen, pan, tilt, zoom, roll, ptzFifth);
}

void Fovix_GetPTZ_SubScreen(VRHANDLE handle, int screen, double* pan, double* tilt, double* zoom,
                            double* roll) {
    fovix::getPTZ(handle, screen, pan, tilt, zoom, roll);
}

void Fovix_SetRotateZoom(VRHANDLE handle, double xAngle, double yAngle, double zAngle, double zoom) {
    fovix::setRotateZoom(handle, 0, xAngle, yAngle, zAngle, zoom);
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
    fovix::getRotateZoom(handle, 0, xAngle, yAngle, zAngle, zoom);
}

void Fovix_SetRotateZoom_SubScreen(VRHANDLE handle, int screen, double xAngle, double yAngle, double zAngle,
                                   double zoom) {
    fovix::setRotateZoom(handle, screen, xAngle, yAngle, zAngle, zoom);
}

void Fovix_GetRotateZoom_SubScreen(VRHANDLE handle, int screen, double* xAngle, double* yAngle,
                                   double* zAngle, double* zoom) {
    fovix::getRotateZoom(handle, screen, xAngle, yAngle, zAngle, zoom);
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

void Fovix_GetPTZFor180VR(VRHANDLE handle, double* xAngle, double* yAngle, double* third, double* zoom) {
    withContext(handle, [&](FovixContext& context) {
        callCurrent(context, &TouchController::getPTZFor180VR, xAngle, yAngle, third, zoom);
    });
}

void Fovix_SetPTZFor180VR(VRHANDLE handle, double xAngle, double yAngle, double zAngle, double zoom) {
    const auto set = [&](FovixContext& context) {
        callCurrent(context, &TouchController::setPTZFor180VR, xAngle, yAngle, zAngle, zoom);
    };
    withFinite(handle, "Fovix_SetPTZFor180VR", set, xAngle, yAngle, zAngle, zoom);
}

float Fovix_GetRelativeXOffset(VRHANDLE handle) {
    return withContext(handle, 0.0f, [](FovixContext& context) {
        const DisplayPtr display = context.display.load();
        const ControllerPtr& controller = display->controllers[0];
        return controller ? controller->getRelativeXOffset(0.0f) : 0.0f;
    });
}

void Fovix_DisplayRect(VRHANDLE handle, int left, int top, int right, int bottom, int width, int height) {
    const bool alive = withContext(handle, [&](FovixContext& context) {
        fovix::displayRect(context, left, top, right, bottom, width, height);
    });
    if (!alive) fovix::printLine("Fovix_DisplayRect Error, handle is NULL!");
}

void Fovix_DisplayTarget(VRHANDLE handle, int targetX, int targetY, int width, int height) {
    const bool alive = withContext(handle, [&](FovixContext& context) {
        fovix::displayTarget(context, targetX, targetY, width, height);
    });
    if (!alive) fovix::printLine("Fovix_DisplayRect Error, handle is NULL!");
}
