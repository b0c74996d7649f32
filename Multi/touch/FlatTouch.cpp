#include "touch/FlatTouch.h"

#include <algorithm>

#include "touch/Gestures.h"
#include "view/RotateZoomView.h"

namespace fovix {

namespace {

// Spreading the fingers zooms by four times the ratio of their distances: by 20 for a ratio of 5. Larger
// ratios count as 5.
constexpr double kWidestSpread = 5.0, kWidestSpreadZoom = 20.0;

FlatTouchParams& params(TouchController& controller) {
    return paramsOf<FlatTouchParams>(controller);
}

/// The whole frame does not move.
void turnView(FlatTouchParams& p, const DragTurn& turn) {
    if (p.mZoomTarget <= 1.0) return;
    const FlatTouchKind& kind = *p.mKind;
    const double half = p.mZoomTarget * 0.5;
    turnTarget(p, p.mYAngleTarget, turn.yaw, half * kind.yawGrowth + kind.yawBase);
    turnTarget(p, p.mXAngleTarget, turn.pitch, half * kind.pitchGrowth + kind.pitchBase);
}

void zoomTo(FlatTouchParams& p, double zoom) {
    p.mZoomTarget = zoom <= kSmallestZoom ? kSmallestZoom : std::min<double>(zoom, p.mZoomMax);
    if (p.mZoomTarget <= 1.0) clearTargets(p);
}

/// How far the fingers have spread; from a common start point any distance counts as the widest spread.
double spreadRatio(double distance, double startDistance) {
    if (startDistance > 0.0) return distance / startDistance;
    return distance > 0.0 ? kWidestSpread : 1.0;
}

double pinchZoom(double ratio, double startZoom) {
    if (ratio <= 1.0) return startZoom * ratio;
    return std::min(ratio, kWidestSpread) * kWidestSpreadZoom / kWidestSpread * startZoom;
}

}  // namespace

void easeFlatView(FlatTouchParams& p) {
    easeView(p, p.mKind->zoomStep);
}

void FlatTouch_OnTouchDown(TouchController& controller, float x, float y) {
    params(controller).mPinchStartDistance = -1.0;
    EasedView_OnTouchDown(controller, x, y);
}

void FlatTouch_OnTouchMove(TouchController& controller, float x, float y) {
    FlatTouchParams& p = params(controller);
    if (p.mPinching) return;
    turnView(p, dragTurn(p, x, y));
    EasedView_OnTouchUp(controller, x, y);
}

void FlatTouch_OnTouchPinch(TouchController& controller, float x1, float y1, float x2, float y2) {
    FlatTouchParams& p = params(controller);
    const double distance = fingerDistance(x1, y1, x2, y2);
    if (p.mPinchStartDistance < 0.0) {
        p.mPinchStartDistance = distance;
        p.mPinching = 1;
    }
    zoomTo(p, pinchZoom(spreadRatio(distance, p.mPinchStartDistance), p.mPinchStartZoom));
    EasedView_OnTouchUp(controller, x2, y2);  // the second finger may drag on
}

void FlatTouch_OnTouchPinchScale(TouchController& controller, float scale) {
    FlatTouchParams& p = params(controller);
    p.mPinching = 1;
    if (scale != 0.0f) zoomTo(p, scale * p.mPinchStartZoom);
}

void FlatTouch_OnTouchFling(TouchController& controller, float velocityX, float velocityY) {
    FlatTouchParams& p = params(controller);
    turnView(p, flingTurn(velocityX, velocityY));
    p.mGliding = 1;
}

}  // namespace fovix
