// Applies the options' layout to a handle; default lens circles of the display types.
#pragma once

#include <Fovix.h>

#include <optional>

#include "circle/LensCircle.h"
#include "options/ViewOptions.h"

namespace fovix_host {

// The grid of the options, else the smallest one that fits the inputs.
ViewOptions::Grid gridOf(const ViewOptions& options, int inputs);

// Default lens circle of the type for frames of this size; nullopt if the library's centred circle is
// correct.
std::optional<LensCircle> lensOfType(const ViewOptions& options, int inputs, int width, int height);

// Passes a lens circle to the library.
void setLensCircle(VRHANDLE handle, const LensCircle& lens);

// Sets everything but the type, which must be set already.
void setLayout(VRHANDLE handle, const ViewOptions& options, int inputs);

}  // namespace fovix_host
