// What fovix-render does with its options: reads pictures, has the library draw them, writes PNG files.
#pragma once

#include "Options.h"
#include "OwnOutput.h"

namespace fovix_host {

// Names every file it has written on out. Throws std::runtime_error with a sentence for the user.
void render(const Options& options, OwnOutput& out);

}  // namespace fovix_host
