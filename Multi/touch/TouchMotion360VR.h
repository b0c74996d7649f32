// What moves a 360-degree view by itself: changes between wide and close, rebounds, flings, spin and cruise.
//
// Animators are made, stepped and dropped under the controller's lock, which these functions take.
#pragma once

#include "Fovix.h"
#include "touch/TouchController360VR.h"
#include "view/Views360VR.h"

namespace fovix {

inline VR360TouchParams& paramsOf360(TouchController& controller) {
    return paramsOf<VR360TouchParams>(controller);
}

inline bool isOnCeiling(const VR360TouchParams& p) {
    return p.mMount == FOVIX_MOUNT_CEILING;
}

/// While the view changes between wide and close, gestures do not reach it.
bool isTransitionRunning(TouchController& controller);

/// Ends every animation, the spin and the cruise where they are.
void stopMotion(TouchController& controller);

void zoomInTransition(TouchController& controller);
void zoomOutTransition(TouchController& controller);

/// A tilt beyond the rim of the picture springs back.
void tiltBounceBack(TouchController& controller);

/// The wide view fills the surface only while it is level: a tilt calls for the close view.
bool wantsCloseView(const VR360TouchParams& p);

double maxTilt(const VR360TouchParams& p);

View360VR viewOf(const VR360TouchParams& p);
void setView(VR360TouchParams& p, const View360VR& view);

/// Keeps the view within the limits of its mount and shape; without the lock.
void clampView(VR360TouchParams& p);

/// One frame of everything that runs.
void advanceMotion(TouchController& controller);

}  // namespace fovix
