// The main mesh on its way from a handle's model to its device. GL thread.
#pragma once

#include "handle/FovixContext.h"

namespace fovix {

/// Binds the main mesh for a frame: the bound one again, or the model's when a setter or the model itself has
/// changed it or the device does not hold this display's.
void bindMesh(FovixContext& context, const Display& display);

/// Fetches the model's main mesh and binds it. Without one it prints a line and the next frame tries again.
void fetchMesh(FovixContext& context, const Display& display);

}  // namespace fovix
