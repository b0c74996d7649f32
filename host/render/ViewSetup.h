// Brings a view into the state that the options ask for.
#pragma once

#include "render/Inputs.h"
#include "render/RenderOptions.h"
#include "setup/View.h"

namespace fovix_host {

// A handle with touch controllers, which have a view of their own for each screen, or without them where the
// options set the views.
View::Creator creatorFor(const RenderOptions& options);

// Needs the GL context current.
void setUpView(VRHANDLE handle, const RenderOptions& options, const Inputs& inputs);

// Sets the views that the options name; before each frame, since strips scroll on by themselves.
void setViews(VRHANDLE handle, const ViewOptions& view);

// Frames after which every animation that the options start has ended.
int framesToSettle(const ViewOptions& view);

}  // namespace fovix_host
