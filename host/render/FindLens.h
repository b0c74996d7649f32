// fovix-render --find-lens: prints the lens circle of an input instead of rendering views.
#pragma once

#include "output/OwnOutput.h"
#include "render/RenderOptions.h"

namespace fovix_host {

// Prints one line in the form that --lens accepts, and one with the confidence. Throws std::runtime_error if
// no lens circle is visible.
void printLens(const RenderOptions& options, OwnOutput& out);

}  // namespace fovix_host
