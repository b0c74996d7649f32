// Applies the options to a handle.
#pragma once

#include "render/Inputs.h"
#include "render/RenderOptions.h"
#include "setup/View.h"

namespace fovix_host {

// Creates handles with touch controllers, or without them if the options set the views.
View::Creator creatorFor(const RenderOptions& options);

// Requires a current GL context.
void setUpView(VRHANDLE handle, const RenderOptions& options, const Inputs& inputs);

// Sets the views of the options. Call it before each rendered frame, because strips scroll by themselves.
void setViews(VRHANDLE handle, const ViewOptions& view);

// Number of rendered frames after which the animations that the options start have ended.
int framesToSettle(const ViewOptions& view);

}  // namespace fovix_host
