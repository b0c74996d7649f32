#include "touch/EasedView.h"

#include "base/Easing.h"
#include "touch/Gestures.h"

namespace fovix {

namespace {

/// A fling drags by its speed divided by these: by a hundredth of a second across, by a twentieth up and
/// down.
constexpr float kFlingAcross = 100.0f, kFlingUpDown = 20.0f;

}  // namespace

DragTurn dragTurn(const EasedViewParams& p, float x, float y) {
    return {-dragDistance(p.mLastX, x) * kDegreesPerPixel, -dragDistance(p.mLastY, y) * kDegreesPerPixel};
}

DragTurn flingTurn(float velocityX, float velocityY) {
    return {-(velocityX / kFlingAcross) * kDegreesPerPixel, -(velocityY / kFlingUpDown) * kDegreesPerPixel};
}

void turnTarget(EasedViewParams& p, Cell<double>& target, double degrees, double limit) {
    const double zoom = p.mZoom;
    target.change([=](double angle) { return draggedTarget(angle, degrees, zoom, limit); });
    p.mGliding = 0;
}

void clearTargets(EasedViewParams& p) {
    p.mXAngleTarget = p.mYAngleTarget = p.mZAngleTarget = 0.0;
}

double easeAngle(const EasedViewParams& p, Cell<double>& angle, double target) {
    const bool gliding = p.mGliding != 0;
    return angle.change([=](double current) { return easeStep(current, target, gliding); });
}

double easeZoomOf(EasedViewParams& p, double zoomStep) {
    const double target = p.mZoomTarget;
    return p.mZoom.change([=](double zoom) { return easeZoom(zoom, target, zoomStep); });
}

void easeView(EasedViewParams& p, double zoomStep) {
    easeZoomOf(p, zoomStep);
    easeAngle(p, p.mXAngle, p.mXAngleTarget);
    easeAngle(p, p.mYAngle, p.mYAngleTarget);
    easeAngle(p, p.mZAngle, p.mZAngleTarget);
}

void EasedView_OnTouchDown(TouchController& controller, float x, float y) {
    auto& p = paramsOf<EasedViewParams>(controller);
    p.mPinchStartZoom = p.mZoomTarget;
    p.mPinching = 0;
    EasedView_OnTouchUp(controller, x, y);
}

void EasedView_OnTouchUp(TouchController& controller, float x, float y) {
    auto& p = paramsOf<EasedViewParams>(controller);
    p.mLastX = x;
    p.mLastY = y;
}

void EasedView_Push(TouchController& controller) {
    const auto& p = paramsOf<EasedViewParams>(controller);
    controller.owner->pushRotateZoom(controller, p.mXAngle, p.mYAngle, p.mZAngle, p.mZoom);
}

}  // namespace fovix
