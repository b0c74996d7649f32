// Reads back the current GL surface.
#pragma once

#include "image/RgbaImage.h"

namespace fovix_host {

// GL thread. The first row of the image is the top one.
RgbaImage readSurface(int width, int height);

}  // namespace fovix_host
