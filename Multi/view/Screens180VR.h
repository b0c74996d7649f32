// The screens of the 180-degree view: where they are on the surface, which one is under a point, and the
// matrix through which each looks at the mesh.
#pragma once

#include <array>

#include "base/Mat4.h"
#include "base/Surface.h"
#include "view/RotateZoomView.h"

namespace fovix {

struct Screen180VR {
    SurfaceRect viewport;
    int width, height;  ///< size whose proportions the projection uses
};

struct Layout180VR {
    int count;  ///< 1: the screen fills the viewport that is set already
    std::array<Screen180VR, 4> screens;
};

/// The screens of a shape on a surface of width × height pixels, of any value.
Layout180VR layout180VR(int shape, int width, int height);

/// The screen under a point, in pixels from the surface's top left.
int screenAt180VR(int shape, int width, int height, int x, int y);

/// What the matrices of all screens share.
struct Scene180VR {
    int drawMode = 0;                             ///< decides how a view's angles move the mesh
    double meshExtent = 0.0;                      ///< radius of the curved screen, model units
    double lensOffsetX = 0.0, lensOffsetY = 0.0;  ///< moves the lens's centre to the middle, model units
    double rotation = 0.0;                        ///< extra roll, degrees; none when negative
};

/// Model-view-projection matrix of a screen of width × height pixels.
Mat4 screenMatrix180VR(const RotateZoomView& view, const Scene180VR& scene, int width, int height);

}  // namespace fovix
