// The screens of the 360-degree panorama: where they are on the surface, which one is under a point, and how
// an unrolled strip scrolls through its screen. Sizes may be arbitrary; rounding leaves a margin at the edge.
#pragma once

#include <array>

#include "base/Surface.h"
#include "view/Views360VR.h"

namespace fovix {

/// Rectangles of the screens, by index. With a count of 0 screen 0 fills the surface.
struct Layout360VR {
    std::array<SurfaceRect, kPanoramaScreens> screens;
    int count = 0;
};

/// The screens of a shape on a surface of width × height pixels.
Layout360VR layout360VR(int shape, int width, int height);

/// Bottom third of the surface: the overview strip under the two screens of FOVIX_SHAPE_TWO_AND_STRIP.
SurfaceRect overviewStripRect(int width, int height);

/// The screen under a point, in pixels from the surface's top left.
int screenAt360VR(int mount, int shape, int width, int height, int x, int y);

/// One step of a strip through its screen.
struct StripScroll {
    int pan;         ///< the view's new pan, hundredths of a radian
    bool showsSeam;  ///< the strip ends within the screen and continues a turn farther on
};

/// Centres a strip's pan in a screen of the given size (height above 0). Screen 1 looks half a turn farther
/// on.
StripScroll scrollStrip(double pan, int screen, int width, int height);

}  // namespace fovix
