// fovix-render --find-lens: prints the lens circle of a camera's picture or video instead of drawing views.
#pragma once

#include "output/OwnOutput.h"
#include "render/RenderOptions.h"

namespace fovix_host {

// One line as --lens takes it, and one that says how sure it is. Throws std::runtime_error with a sentence
// where no lens circle can be seen.
void printLens(const RenderOptions& options, OwnOutput& out);

}  // namespace fovix_host
