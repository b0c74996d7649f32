// Two fingers on a 360-degree view: a pinch zooms; away from the ceiling a twist rolls the view instead.
#pragma once

#include "touch/TouchController.h"

namespace fovix {

/// Positions of the two fingers in surface pixels.
void TouchPinch360VR_OnTouchPinch(TouchController& controller, float x1, float y1, float x2, float y2);

/// Finger distance over that at the start of the pinch. A scale that no fingers have, 0 or less, moves
/// nothing.
void TouchPinch360VR_OnTouchPinchScale(TouchController& controller, float scale);

}  // namespace fovix
