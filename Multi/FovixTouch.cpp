// Touch, sensors and cruise. Any thread, without the lock.

#include "Fovix.h"
#include "handle/FovixContext.h"
#include "handle/FovixHandle.h"
#include "handle/Steering.h"

namespace fovix {

namespace {

/// Calls a member of the current controller when all values are finite.
template <class Operation, class... Values>
void steer(VRHANDLE handle, const char* exportName, Operation TouchController::*operation, Values... values) {
    const auto call = [&](FovixContext& context) { callCurrent(context, operation, values...); };
    withFinite(handle, exportName, call, values...);
}

}  // namespace

}  // namespace fovix

using fovix::steer;
using fovix::TouchController;
using fovix::withContext;
using fovix::withFinite;

void Fovix_OnTouchDown(VRHANDLE handle, float x, float y) {
    const auto down = [&](FovixContext& context) { fovix::touchDown(context, x, y); };
    withFinite(handle, "Fovix_OnTouchDown", down, x, y);
}

void Fovix_OnTouchUp(VRHANDLE handle, float x, float y) {
    steer(handle, "Fovix_OnTouchUp", &TouchController::onTouchUp, x, y);
}

void Fovix_OnTouchMove(VRHANDLE handle, float x, float y) {
    const auto move = [&](FovixContext& context) { fovix::touchMove(context, x, y); };
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
    withContext(handle, fovix::autoAdjust);
}

void Fovix_OnAccelerometer(VRHANDLE handle, float x, float y) {
    steer(handle, "Fovix_OnAccelerometer", &TouchController::onAccelerometer, x, y);
}

void Fovix_OnOrientation(VRHANDLE handle, float a, float b, float c) {
    steer(handle, "Fovix_OnOrientation", &TouchController::onOrientation, a, b, c);
}

void Fovix_StartAutoCruise(VRHANDLE handle, double speed) {
    const auto start = [&](FovixContext& context) { fovix::startAutoCruise(context, speed); };
    withFinite(handle, "Fovix_StartAutoCruise", start, speed);
}

void Fovix_StopAutoCruise(VRHANDLE handle) {
    withContext(handle, [](FovixContext& context) {
        forEachController(*context.display.load(), &TouchController::stopAutoCruise);
    });
}
