// Display type and display parameters of a handle. Any thread.
#pragma once

#include "handle/FovixContext.h"

namespace fovix {

/// Whether an index that the panorama or the 180-degree view takes lies in 0..last; prints a line when it
/// does not.
bool isInRange(const char* what, int index, int last);

}  // namespace fovix
