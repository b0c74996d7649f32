// Display type and parameters. Any thread.

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "base/ProcessLock.h"
#include "handle/DisplayParameters.h"
#include "handle/DisplayTypes.h"
#include "handle/FovixContext.h"
#include "handle/FovixHandle.h"

namespace fovix {

namespace {

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
        const fovix::LockSection section;
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
    return fovix::ask(handle, &fovix::FovixModel::getTwoLensesScreen, FOVIX_TWO_LENSES_SCREEN_NONE);
}

void Fovix_SetBackground(VRHANDLE handle, unsigned int rgb) {
    withContext(handle, [&](FovixContext& context) { fovix::setBackground(context, rgb); });
}
