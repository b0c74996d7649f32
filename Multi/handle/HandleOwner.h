// What a handle does for its touch controllers.
#pragma once

#include "handle/FovixHandle.h"
#include "touch/ViewOwner.h"

namespace fovix {

/// The owner of a handle's controllers. It keeps no reference to the context: controllers may outlive the
/// handle.
OwnerPtr HandleOwner_Create(VRHANDLE handle);

/// Sets the draw mode of all controllers, then that of the model; a model with draw modes fetches its
/// vertices again.
void setDrawMode(FovixContext& context, int mode);

}  // namespace fovix
