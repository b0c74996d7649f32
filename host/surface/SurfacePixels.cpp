#include "surface/SurfacePixels.h"

#include <GL/gl.h>

#include <algorithm>

namespace fovix_host {

RgbaImage readSurface(int width, int height) {
    RgbaImage image(width, height);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, image.pixels.data());
    // The first row of GL is the bottom one.
    const auto rowBytes = static_cast<std::ptrdiff_t>(width) * 4;
    for (int y = 0; y < height / 2; ++y)
        std::swap_ranges(image.at(0, y), image.at(0, y) + rowBytes, image.at(0, height - 1 - y));
    return image;
}

}  // namespace fovix_host
