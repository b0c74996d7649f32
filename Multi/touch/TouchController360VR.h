// Touch for the 360-degree panorama: one controller per screen, which holds that screen's pan, tilt and zoom.
//
// Drags move the view at once. Flings run out and leave a spin where the camera hangs on the ceiling; there
// pinches also snap between the wide view of the whole hemisphere and a close one. Every frame advances the
// animations, limits the view (TouchLimits360VR.h) and hands it to the model.
#pragma once

#include "base/Animators.h"
#include "base/Cell.h"
#include "touch/TouchController.h"

namespace fovix {

/// mTouchState: after a touch-down or touch-up, and once a pinch sample arrived.
inline constexpr int kTouched = 1, kPinched = 2;

struct VR360TouchParams : ControllerParams {
    Cell<double> mPan = 90.0;  ///< degrees; hundredths of a radian for the strips
    Cell<double> mRoll = 0.0;  ///< degrees, turned by a twist of two fingers
    Cell<double> mTilt = 0.0;  ///< degrees
    Cell<double> mPtzFifth = 0.0;
    Cell<double> mZoom = 90.0;  ///< field of view, degrees
    Cell<int> mMount = 0;
    Cell<int> mShape = 0;

    Cell<int> mTouchState = 0;            ///< kTouched or kPinched; 0 before the first gesture
    Cell<double> mPinchReference = -1.0;  ///< first distance of a pinch, or its last scale; -1: not known yet
    Cell<double> mPinchLastDistance = 0.0;  ///< finger distance of the sample before
    Cell<double> mPanAtDown = 0.0;          ///< view at the start of the drag, twist or pinch
    Cell<double> mRollAtDown = 0.0;
    Cell<int> mTwisting = 0;         ///< the fingers turn the view
    Cell<float> mTwistAngle = 0.0f;  ///< line between the fingers, degrees
    Cell<int> mTwistFirst = 0;       ///< mTwistStartAngle is still to be taken
    Cell<float> mTwistStartAngle = 0.0f;
    Cell<double> mDownX = 0.0, mDownY = 0.0;  ///< where the drag started, surface pixels
    Cell<double> mTiltAtDown = 0.0;
    Cell<double> mZoomAtDown = 0.0;
    Cell<int> mZoomGesture = 0;  ///< until the next touch-down neither drags nor flings move the view

    // Animators are touched under the lock only.
    std::unique_ptr<GlideAnimator> mPanGlide, mTiltGlide, mZoomGlide;  ///< to a target or another zoom
    std::unique_ptr<BounceAnimator> mTiltBounce;                       ///< back to the rim of the picture
    std::unique_ptr<GlideAnimator> mTiltVelocity, mPanVelocity;  ///< a fling: degrees per frame, running out
    Cell<double> mSpinVelocity = 0.0;                            ///< degrees per frame that a fling left
    Cell<double> mFlingFactor = 1.0;                             ///< how much of a fling stays as spin
    Cell<int> mZooming = 0;  ///< a change between wide and close view is running

    Cell<float> mLastOrientationA = 0.0f, mLastOrientationB = 0.0f, mLastOrientationC = 0.0f;  ///< degrees
    Cell<int> mCruising = 0;
    Cell<double> mCruiseStep = 0.0;  ///< degrees per frame
};

/// A drag turns the view from here by the distance of the finger.
void startDrag(VR360TouchParams& p, double x, double y);

/// A finger that leaves the surface, or stays on it after a pinch, drags on from here; whole pixels.
void restartDrag(VR360TouchParams& p, float x, float y);

ControllerPtr TouchController360VR_Create(OwnerPtr owner, int screenIndex);

}  // namespace fovix
