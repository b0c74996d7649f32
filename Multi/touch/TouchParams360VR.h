// The record of a 360-degree controller, and the small steps on it that drags, pinches and motion share.
#pragma once

#include <memory>

#include "Fovix.h"
#include "base/Animators.h"
#include "base/Cell.h"
#include "touch/DeviceTurn.h"
#include "touch/TouchController.h"
#include "view/Views360VR.h"

namespace fovix {

/// mTouchState: after a touch-down or touch-up, and after the first pinch sample.
inline constexpr int kTouched = 1, kPinched = 2;

struct VR360TouchParams : ControllerParams, DeviceOrientation {
    Cell<double> mPan = 90.0;  ///< degrees; hundredths of a radian for the strips
    Cell<double> mRoll = 0.0;  ///< degrees, turned by a twist of two fingers
    Cell<double> mTilt = 0.0;  ///< degrees
    Cell<double> mPtzFifth = 0.0;
    Cell<double> mZoom = 90.0;  ///< field of view, degrees
    Cell<int> mMount = 0;
    Cell<int> mShape = 0;

    Cell<int> mTouchState = 0;            ///< kTouched or kPinched; 0 before the first gesture
    Cell<double> mPinchReference = -1.0;  ///< first distance of a pinch, or its previous scale; -1: none yet
    Cell<double> mPinchLastDistance = 0.0;  ///< finger distance of the previous sample
    Cell<double> mPanAtDown = 0.0;          ///< view at the start of the drag, twist or pinch
    Cell<double> mRollAtDown = 0.0;
    Cell<int> mTwisting = 0;         ///< the fingers turn the view
    Cell<float> mTwistAngle = 0.0f;  ///< line between the fingers, degrees
    Cell<int> mTwistFirst = 0;       ///< the next sample sets mTwistStartAngle
    Cell<float> mTwistStartAngle = 0.0f;
    Cell<double> mDownX = 0.0, mDownY = 0.0;  ///< where the drag started, surface pixels
    Cell<double> mTiltAtDown = 0.0;
    Cell<double> mZoomAtDown = 0.0;
    Cell<int> mZoomGesture = 0;  ///< until the next touch-down neither drags nor flings move the view

    // Animators are used under the lock only.
    std::unique_ptr<GlideAnimator> mPanGlide, mTiltGlide, mZoomGlide;  ///< to a target or another zoom
    std::unique_ptr<BounceAnimator> mTiltBounce;                       ///< back to the rim of the hemisphere
    std::unique_ptr<GlideAnimator> mTiltVelocity, mPanVelocity;  ///< a fling: degrees per frame, running out
    Cell<double> mSpinVelocity = 0.0;                            ///< degrees per frame that a fling left
    Cell<double> mFlingFactor = 1.0;                             ///< how much of a fling stays as spin
    Cell<int> mZooming = 0;  ///< a change between wide and close view is running

    Cell<int> mCruising = 0;
    Cell<double> mCruiseStep = 0.0;  ///< degrees per frame
};

inline VR360TouchParams& paramsOf360(TouchController& controller) {
    return paramsOf<VR360TouchParams>(controller);
}

inline bool isOnCeiling(const VR360TouchParams& p) {
    return p.mMount == FOVIX_MOUNT_CEILING;
}

/// The wide view fills the surface only while it is level: a tilt calls for the close view.
bool wantsCloseView(const VR360TouchParams& p);

/// How far the view may tilt once a gesture is over, degrees.
double maxTilt(const VR360TouchParams& p);

/// A drag turns the view from here by the distance of the finger; surface pixels.
void startDrag(VR360TouchParams& p, double x, double y);

/// Continues a drag from here, in whole pixels: after a finger left the surface, or during a pinch.
void restartDrag(VR360TouchParams& p, float x, float y);

View360VR viewOf(const VR360TouchParams& p);
void setView(VR360TouchParams& p, const View360VR& view);

/// Limits the view to its mount and shape; without the lock.
void clampView(VR360TouchParams& p);

}  // namespace fovix
