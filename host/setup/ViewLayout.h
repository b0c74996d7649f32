// Gives a view the layout that the options ask for, and the lens circle that its display type implies.
#pragma once

#include <Fovix.h>

#include <optional>

#include "circle/LensCircle.h"
#include "options/ViewOptions.h"

namespace fovix_host {

// The one asked for, else as few cells as hold the pictures.
ViewOptions::Grid gridOf(const ViewOptions& options, int pictures);

// What the display type needs for pictures of this size where nobody knows better; nothing where the
// library's own circle in the middle of the picture is right.
std::optional<LensCircle> lensOfType(const ViewOptions& options, int pictures, int width, int height);

// Mount, shape, draw mode and what belongs to the types with several pictures; the type is set before.
void setLayout(VRHANDLE handle, const ViewOptions& options, int pictures);

}  // namespace fovix_host
