#include "touch/FlatTouch.h"

#include <algorithm>

#include "touch/Gestures.h"

namespace fovix {

namespace {

constexpr double kWidestSpread = 5.0;  ///< larger ones count as this

FlatTouchParams& params(TouchController& controller) {
    return paramsOf<FlatTouchParams>(controller);
}

/// Moves one target by a drag; the whole picture stays where it is.
void addAngle(FlatTouchParams& p, Cell<double>& target, double degrees, double growth, double limit) {
    if (p.mZoomTarget <= 1.0) return;
    target = draggedTarget(target, degrees, p.mZoom, p.mZoomTarget * 0.5 * growth + limit);
    p.mGliding = 0;
}

void addPitch(FlatTouchParams& p, double degrees) {
    addAngle(p, p.mXAngleTarget, degrees, p.mKind->pitchGrowth, p.mKind->pitchLimit);
}

void addYaw(FlatTouchParams& p, double degrees) {
    addAngle(p, p.mYAngleTarget, degrees, p.mKind->yawGrowth, p.mKind->yawLimit);
}

void zoomTo(FlatTouchParams& p, double zoom) {
    p.mZoomTarget = zoom <= kSmallestZoom ? kSmallestZoom : std::min<double>(zoom, p.mZoomMax);
    if (p.mZoomTarget <= 1.0) clearTargets(p);
}

/// How far the fingers have spread; those that began on one point count as spread by any distance.
double spreadRatio(double distance, double startDistance) {
    if (startDistance > 0.0) return distance / startDistance;
    return distance > 0.0 ? kWidestSpread : 1.0;
}

/// Spreading the fingers at all zooms in four times, the widest spread twenty times.
double pinchZoom(double ratio, double startZoom) {
    return ratio > 1.0 ? std::min(ratio, kWidestSpread) * 20.0 / 5.0 * startZoom : startZoom * ratio;
}

}  // namespace

void clearTargets(FlatTouchParams& p) {
    p.mXAngleTarget = p.mYAngleTarget = p.mZAngleTarget = 0.0;
}

void easeView(FlatTouchParams& p) {
    const bool gliding = p.mGliding != 0;
    p.mZoom = easeZoom(p.mZoom, p.mZoomTarget, p.mKind->zoomStep);
    p.mXAngle = easeStep(p.mXAngle, p.mXAngleTarget, gliding);
    p.mYAngle = easeStep(p.mYAngle, p.mYAngleTarget, gliding);
    p.mZAngle = easeStep(p.mZAngle, p.mZAngleTarget, gliding);
}

void FlatTouch_PushView(TouchController& controller) {
    const FlatTouchParams& p = params(controller);
    controller.owner->pushRotateZoom(controller, p.mXAngle, p.mYAngle, p.mZAngle, p.mZoom);
}

void FlatTouch_OnTouchDown(TouchController& controller, float x, float y) {
    FlatTouchParams& p = params(controller);
    p.mPinchStartZoom = p.mZoomTarget;
    p.mPinching = 0;
    p.mPinchStartDistance = -1.0;
    FlatTouch_OnTouchUp(controller, x, y);
}

void FlatTouch_OnTouchUp(TouchController& controller, float x, float y) {
    FlatTouchParams& p = params(controller);
    p.mLastX = x;
    p.mLastY = y;
}

void FlatTouch_OnTouchMove(TouchController& controller, float x, float y) {
    FlatTouchParams& p = params(controller);
    if (p.mPinching) return;
    addYaw(p, -dragDistance(p.mLastX, x) * kDegreesPerPixel);
    addPitch(p, -dragDistance(p.mLastY, y) * kDegreesPerPixel);
    p.mLastX = x;
    p.mLastY = y;
}

void FlatTouch_OnTouchPinch(TouchController& controller, float x1, float y1, float x2, float y2) {
    FlatTouchParams& p = params(controller);
    const double distance = fingerDistance(x1, y1, x2, y2);
    if (p.mPinchStartDistance < 0.0) {
        p.mPinchStartDistance = distance;
        p.mPinching = 1;
    }
    zoomTo(p, pinchZoom(spreadRatio(distance, p.mPinchStartDistance), p.mPinchStartZoom));
    p.mLastX = x2;  // the second finger's place counts as the last event
    p.mLastY = y2;
}

void FlatTouch_OnTouchPinchScale(TouchController& controller, float scale) {
    FlatTouchParams& p = params(controller);
    p.mPinching = 1;
    if (scale != 0.0f) zoomTo(p, scale * p.mPinchStartZoom);
}

void FlatTouch_OnTouchFling(TouchController& controller, float velocityX, float velocityY) {
    FlatTouchParams& p = params(controller);
    addYaw(p, -(velocityX / 100.0f) * kDegreesPerPixel);
    p.mGliding = 1;
    addPitch(p, -(velocityY / 20.0f) * kDegreesPerPixel);
    p.mGliding = 1;
}

}  // namespace fovix
