// Touch for the frame with an overview inset: drags move the main view, touches in the inset aim it, a
// pinch zooms, a rectangle of the frame can be zoomed onto, and a cruise sweeps from side to side.
//
// The controller keeps its own view and pushes it to the owner when it changes, not in every frame.
#pragma once

#include <memory>

#include "base/Animators.h"
#include "base/Cell.h"
#include "touch/TouchController.h"

namespace fovix {

/// Where the current touch began.
enum TouchTarget { kTouchNone = -1, kTouchMainView = 0, kTouchInset = 1 };

struct SinglePIPTouchParams : ControllerParams {
    Cell<int> mTouchTarget = kTouchNone;
    Cell<float> mLastY = 0.0f;  ///< last touch event, surface pixels
    Cell<float> mLastX = 0.0f;
    Cell<double> mOffsetX = 0.0;     ///< horizontal offset that the view is heading for
    Cell<double> mCurOffsetX = 0.0;  ///< current offset, on its way while an animation runs
    Cell<double> mOffsetY = 0.0;
    Cell<double> mRelativeX = 0.0;  ///< offset within its range: -0.25 at one end, 0.25 at the other
    Cell<double> mRelativeY = 0.0;
    Cell<double> mZoom = 1.0;
    Cell<double> mZoomTarget = 1.0;                  ///< zoom that displayRect animates to
    std::unique_ptr<GlideAnimator> mZoomAnimator;    ///< under the lock
    std::unique_ptr<GlideAnimator> mOffsetAnimator;  ///< of mCurOffsetX; under the lock
    Cell<int> mCruising = 0;
    Cell<double> mCruiseStep = 0.0;  ///< offset per frame, signed
    Cell<int> mPinching = 0;         ///< from the first pinch event to the end of the touch
    Cell<double> mPinchStartZoom = 0.0;
    Cell<double> mPinchStartDistance = 0.0;  ///< pixels
    Cell<int> mDrawMode = 3;                 ///< 0: no inset
};

/// How far the main view may move from the centre at a zoom, in model units. Below a zoom of 0.25, which only
/// a host can set, the horizontal limit is negative; its absolute value holds.
double offsetLimitX(double zoom);
double offsetLimitY(double zoom);

/// Share of the range that a drag over the whole surface moves: 1 at zoom 0.25, 0.5 at 1, 0.2 at 5.
double dragSpeed(double zoom);

/// The horizontal surface position that a touch in the inset selects.
float insetToSurface(float x, int surfaceWidth);

/// Zoom that shows a rectangle of this height, in surface pixels: 5 up to a quarter of the surface, 3 for
/// half of it, 1 for four fifths and above.
double zoomForRect(double rectHeight, double surfaceHeight);

ControllerPtr TouchControllerSinglePIP_Create(OwnerPtr owner, int screenIndex);

}  // namespace fovix
