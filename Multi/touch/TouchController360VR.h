// Touch for the 360-degree panorama: one controller per screen, which holds that screen's pan, tilt and zoom.
//
// Drags move the view at once. Flings run out and, under a ceiling, leave a spin; there pinches also snap
// between the wide view of the whole hemisphere and a close one. Every frame advances the animations, limits
// the view (TouchLimits360VR.h) and pushes it to the owner.
#pragma once

#include "touch/TouchParams360VR.h"

namespace fovix {

ControllerPtr TouchController360VR_Create(OwnerPtr owner, int screenIndex);

}  // namespace fovix
