// The display types: which code makes which model and which controllers.
#pragma once

#include "handle/FovixContext.h"

namespace fovix {

/// Replaces model and controllers by those of another type and forgets the lens parameters. The new display
/// is published when it is complete; the old one is freed with its last user.
void setType(FovixContext& context, int type);

}  // namespace fovix
