// What fovix-render does with its options: reads pictures, has the library draw them, writes the frames.
#pragma once

#include "output/OwnOutput.h"
#include "render/RenderOptions.h"

namespace fovix_host {

// Names every file it has written on out. A stop signal ends it early, with whole files. Throws UsageError,
// std::runtime_error with a sentence for the user, and ReaderGone.
void render(const RenderOptions& options, OwnOutput& out);

}  // namespace fovix_host
