// Parameters of the display that a handle shows. Any thread.
#pragma once

#include "handle/FovixContext.h"

namespace fovix {

/// Returns whether an index lies in 0..last; prints a line when it does not.
bool isInRange(const char* what, int index, int last);

/// Sets the draw mode of all controllers, then that of the model; a model with draw modes fetches its mesh
/// again.
void setDrawMode(FovixContext& context, int mode);

/// Sets the mount of all controllers, then that of the model, whose views return to their defaults.
void setCameraMount(FovixContext& context, int mount);

/// Sets the layout of the model, whose views return to their defaults when it is a new one, then that of all
/// controllers.
void setShape(FovixContext& context, int shape);

}  // namespace fovix
