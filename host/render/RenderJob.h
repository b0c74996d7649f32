// The work of fovix-render: reads frames, renders them with the library and writes the results.
#pragma once

#include "output/OwnOutput.h"
#include "render/RenderOptions.h"

namespace fovix_host {

// Prints the name of each file it has written to out. A stop signal ends it early, with complete files.
// Throws UsageError, std::runtime_error with a message for the user, and ReaderGone.
void render(const RenderOptions& options, OwnOutput& out);

}  // namespace fovix_host
