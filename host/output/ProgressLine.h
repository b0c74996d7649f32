// The text of a progress bar.
#pragma once

#include <string>

namespace fovix_host {

// One line of at most this many columns; the number of frames in all is 0 where it is not known.
std::string progressLine(int frames, int ofFrames, double secondsSoFar, int columns);

}  // namespace fovix_host
