// Position of the lens circle within the camera's full-size image, in the order of Fovix_SetFecParams().
#pragma once

namespace fovix_host {

struct LensCircle {
    int xCenter = 0;
    int yCenter = 0;
    int radius = 0;
    int imageWidth = 0;
    int imageHeight = 0;
};

}  // namespace fovix_host
