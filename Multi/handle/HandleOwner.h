// What a handle does for its touch controllers.
#pragma once

#include "Fovix.h"
#include "touch/ViewOwner.h"

namespace fovix {

/// The owner of a handle's controllers. It keeps no reference to the context: controllers may outlive the
/// handle.
OwnerPtr HandleOwner_Create(VRHANDLE handle);

}  // namespace fovix
