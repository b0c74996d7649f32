// Two fingers on a 360-degree view: a pinch zooms; away from the ceiling a twist rolls the view instead.
#pragma once

#include "touch/TouchController.h"

namespace fovix {

/// Surface pixels.
void TouchPinch360VR_OnTouchPinch(TouchController& controller, float x1, float y1, float x2, float y2);

/// Finger distance over that at the start of the pinch; 0 and less is ignored.
void TouchPinch360VR_OnTouchPinchScale(TouchController& controller, float scale);

}  // namespace fovix
