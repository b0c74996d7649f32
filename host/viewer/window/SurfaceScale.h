// Relates window units to surface pixels, which differ on high-density displays.
#pragma once

#include <algorithm>

namespace fovix_host {

// Surface pixels from the top left.
struct SurfacePosition {
    float x = 0, y = 0;
};

struct SurfaceScale {
    int width = 1, height = 1;          // for Fovix_Init(); also the unit of all positions
    int ppiZoom = 1;                    // for Fovix_SetPPIZoom(): surface pixels per unit
    double xPointer = 1, yPointer = 1;  // from window units to positions

    int pixelWidth() const { return width * ppiZoom; }
    int pixelHeight() const { return height * ppiZoom; }

    bool operator==(const SurfaceScale&) const = default;
};

// A whole number of pixels per window unit becomes the library's PPI zoom; otherwise, positions are in
// pixels.
inline SurfaceScale scaleOf(int windowWidth, int windowHeight, int pixelWidth, int pixelHeight) {
    const int w = std::max(windowWidth, 1), h = std::max(windowHeight, 1);
    const int pw = std::max(pixelWidth, 1), ph = std::max(pixelHeight, 1);
    if (pw % w == 0 && ph % h == 0 && pw / w == ph / h) return {w, h, pw / w, 1, 1};
    return {pw, ph, 1, static_cast<double>(pw) / w, static_cast<double>(ph) / h};
}

}  // namespace fovix_host
