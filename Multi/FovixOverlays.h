// Flat-colour frames and indicators over the finished picture: which screen is addressed and where it looks.
#pragma once

#include "handle/FovixContext.h"

namespace fovix {

/// GL thread, at the end of a frame, without the lock. Draws what the display type shows; nothing for most.
void drawFramesAndIndicators(FovixContext& context, const Display& display);

}  // namespace fovix
