// Reads what GL has drawn on the surface that is current.
#pragma once

#include "image/RgbaImage.h"

namespace fovix_host {

// GL thread. The first row is the top one.
RgbaImage readSurface(int width, int height);

}  // namespace fovix_host
