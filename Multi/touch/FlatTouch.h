// Touch on a flat picture: a pinch zooms, drags and flings move the picture while it is zoomed in.
//
// The single views and two lenses in one picture share these gestures; they differ in the numbers of
// FlatTouchKind. Gestures write targets on the host's thread; update eases the view towards them on the GL
// thread.
#pragma once

#include "base/Cell.h"
#include "base/Easing.h"
#include "touch/TouchController.h"

namespace fovix {

/// What makes one kind of flat picture differ from another. The limit of an angle is half the target zoom
/// times its growth, plus what it is without zoom; degrees.
struct FlatTouchKind {
    double pitchGrowth, pitchLimit;
    double yawGrowth, yawLimit;
    double zoomStep;  ///< zoom per frame
};

/// Up to this zoom the end of a gesture brings the whole picture back.
inline constexpr double kSnapZoom = 3.0;

struct FlatTouchParams : ControllerParams {
    FlatTouchParams(const FlatTouchKind& kind, double zoomMax) : mZoomMax(zoomMax), mKind(&kind) {}

    Cell<float> mLastY = 0.0f;  ///< last touch event, surface pixels
    Cell<float> mLastX = 0.0f;
    Cell<double> mZoomTarget = 1.0;
    Cell<double> mZoom = 1.0;
    Cell<double> mZoomMax;             ///< largest zoom of a pinch
    Cell<double> mXAngleTarget = 0.0;  ///< vertical: what up and down drags change, degrees
    Cell<double> mYAngleTarget = 0.0;  ///< horizontal
    Cell<double> mZAngleTarget = 0.0;  ///< no gesture turns the picture
    Cell<double> mXAngle = 0.0;
    Cell<double> mYAngle = 0.0;
    Cell<double> mZAngle = 0.0;
    Cell<int> mGliding = 0;   ///< from a fling to the next drag the picture moves slowly
    Cell<int> mPinching = 0;  ///< from the first pinch event to the next touch-down drags are ignored
    Cell<double> mPinchStartZoom = 1.0;       ///< target zoom at the touch-down
    Cell<double> mPinchStartDistance = -1.0;  ///< pixels between the fingers; -1: not known yet
    const FlatTouchKind* mKind;
};

void clearTargets(FlatTouchParams& p);

/// One frame's step of zoom and angles; under the lock.
void easeView(FlatTouchParams& p);

/// Hands the current view to the model; without the lock.
void FlatTouch_PushView(TouchController& controller);

// Operations that the kinds share.
void FlatTouch_OnTouchDown(TouchController& controller, float x, float y);
void FlatTouch_OnTouchUp(TouchController& controller, float x, float y);
void FlatTouch_OnTouchMove(TouchController& controller, float x, float y);
void FlatTouch_OnTouchPinch(TouchController& controller, float x1, float y1, float x2, float y2);
void FlatTouch_OnTouchPinchScale(TouchController& controller, float scale);
void FlatTouch_OnTouchFling(TouchController& controller, float velocityX, float velocityY);

}  // namespace fovix
