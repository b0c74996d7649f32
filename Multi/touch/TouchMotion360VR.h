// What moves a 360-degree view by itself: changes between wide and close, bounces, flings, spin and cruise.
//
// Animators are created, stepped and dropped under the lock, which these functions take.
#pragma once

#include "touch/TouchParams360VR.h"

namespace fovix {

/// While the view changes between wide and close, gestures are ignored.
bool isTransitionRunning(TouchController& controller);

/// Ends every animation, the spin and the cruise where they are.
void stopMotion(TouchController& controller);

void zoomInTransition(TouchController& controller);
void zoomOutTransition(TouchController& controller);

/// Starts a bounce to the rim of the hemisphere if the view is tilted beyond it.
void tiltBounceBack(TouchController& controller);

/// One rendered frame of everything that runs.
void advanceMotion(TouchController& controller);

}  // namespace fovix
