// Touch for the 180-degree view: one controller per screen, which turns that screen about three axes and
// zooms it.
//
// Gestures, sensors and commands write targets; update eases the current values towards them, or lets a
// rebound or the cruise drive them, and hands them to the model. Some gestures change the draw mode of the
// whole handle: the disc (0) is for looking at it all, the curved screen (3) for looking closely.
#pragma once

#include "base/Animators.h"
#include "base/Cell.h"
#include "touch/TouchController.h"

namespace fovix {

struct VR180TouchParams : ControllerParams {
    Cell<int> mDrawMode = 0;    ///< 0 disc, 1 stretched picture, 2 cylinder, 3 curved screen; as in the model
    Cell<float> mLastY = 0.0f;  ///< last touch event, surface pixels
    Cell<float> mLastX = 0.0f;
    Cell<double> mZoomTarget = 1.0;
    Cell<double> mZoom = 1.0;                                                    ///< factor
    Cell<double> mXAngleTarget = 0.0, mYAngleTarget = 0.0, mZAngleTarget = 0.0;  ///< degrees
    Cell<double> mXAngle = 0.0;  ///< pitch: what up and down drags change
    Cell<double> mYAngle = 0.0;  ///< yaw
    Cell<double> mZAngle = 0.0;  ///< roll
    Cell<int> mGliding =
        0;  ///< from a fling, a sensor event or auto-adjust to the next drag the view moves slowly
    Cell<int> mPinching = 0;  ///< from the first pinch event to the next touch-down drags are ignored
    Cell<double> mPinchStartZoom = 1.0;                            ///< target zoom at the touch-down
    std::unique_ptr<BounceAnimator> mXAngleBounce, mYAngleBounce;  ///< back to the edge; under the lock only
    Cell<float> mLastOrientationA = 0.0f, mLastOrientationB = 0.0f, mLastOrientationC = 0.0f;  ///< degrees
    Cell<int> mCruising = 0;
    Cell<double> mCruiseStep = 0.0;  ///< degrees of yaw per frame
};

ControllerPtr TouchController180VR_Create(OwnerPtr owner, int screenIndex);

}  // namespace fovix
