// A view that eases towards its targets: what the 180-degree view and the flat kinds have in common.
//
// Gestures write targets on the host's thread; update eases the view towards them on the GL thread.
#pragma once

#include "base/Cell.h"
#include "touch/TouchController.h"

namespace fovix {

struct EasedViewParams : ControllerParams {
    Cell<float> mLastY = 0.0f;  ///< last touch event, surface pixels
    Cell<float> mLastX = 0.0f;
    Cell<double> mZoomTarget = 1.0;
    Cell<double> mZoom = 1.0;                                                    ///< factor
    Cell<double> mXAngleTarget = 0.0, mYAngleTarget = 0.0, mZAngleTarget = 0.0;  ///< degrees
    Cell<double> mXAngle = 0.0;  ///< pitch: what up and down drags change
    Cell<double> mYAngle = 0.0;  ///< yaw
    Cell<double> mZAngle = 0.0;  ///< roll; no gesture changes it
    Cell<int> mGliding = 0;      ///< until the next drag the angles ease slowly
    Cell<int> mPinching = 0;     ///< from the first pinch event to the next touch-down drags are ignored
    Cell<double> mPinchStartZoom = 1.0;  ///< target zoom at the touch-down
};

/// Degrees that an event turns the view by.
struct DragTurn {
    double yaw, pitch;
};

/// A drag from the last touch event to this one.
DragTurn dragTurn(const EasedViewParams& p, float x, float y);

/// A fling, in pixels per second: a drag by what the finger travels in a short time. The slow easing of a
/// gliding view makes it look like inertia.
DragTurn flingTurn(float velocityX, float velocityY);

/// Turns one target by a drag, within ±limit; ends the gliding.
void turnTarget(EasedViewParams& p, Cell<double>& target, double degrees, double limit);

/// Centres the angles.
void clearTargets(EasedViewParams& p);

/// Eases one angle by a step and returns it.
double easeAngle(const EasedViewParams& p, Cell<double>& angle, double target);

/// The same for the zoom.
double easeZoomOf(EasedViewParams& p, double zoomStep);

/// One frame's step of zoom and angles; under the lock.
void easeView(EasedViewParams& p, double zoomStep);

/// Starts a gesture: a pinch counts from the current target.
void EasedView_OnTouchDown(TouchController& controller, float x, float y);

/// Keeps the position, from which the next drag counts.
void EasedView_OnTouchUp(TouchController& controller, float x, float y);

/// Pushes the current view to the owner; without the lock.
void EasedView_Push(TouchController& controller);

}  // namespace fovix
