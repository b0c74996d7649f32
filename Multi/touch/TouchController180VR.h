// Touch for the 180-degree view: one controller per screen, which turns that screen about three axes and
// zooms it.
//
// Gestures, sensors and commands write targets; update eases the current values towards them, or a bounce or
// the cruise drives them, and pushes them to the owner. Some gestures change the draw mode of the whole
// handle: the disc (0) shows everything, the curved screen (3) is for looking closely.
#pragma once

#include <memory>

#include "base/Animators.h"
#include "touch/DeviceTurn.h"
#include "touch/EasedView.h"

namespace fovix {

/// Sensors and auto-adjust make the view glide, like a fling.
struct VR180TouchParams : EasedViewParams, DeviceOrientation {
    Cell<int> mDrawMode = 0;  ///< 0 disc, 1 stretched, 2 cylinder, 3 curved screen; as in the model
    std::unique_ptr<BounceAnimator> mXAngleBounce, mYAngleBounce;  ///< back to the edge; under the lock only
    Cell<int> mCruising = 0;
    Cell<double> mCruiseStep = 0.0;  ///< degrees of yaw per frame
};

ControllerPtr TouchController180VR_Create(OwnerPtr owner, int screenIndex);

}  // namespace fovix
