// The text of a progress bar.
#pragma once

#include <string>

namespace fovix_host {

// Fits into the given columns. totalFrames is 0 if unknown.
std::string progressLine(int frames, int totalFrames, double secondsSoFar, int columns);

}  // namespace fovix_host
