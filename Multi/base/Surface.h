// The drawing surface: rectangles in pixels, multiplied by the process-wide ppiZoom on their way to GL.
#pragma once

#include <algorithm>
#include <cstdint>

#include "base/Cell.h"
#include "base/Numbers.h"

namespace fovix {

/// Factor of every viewport that the library sets, at least 1; shared by all handles.
Cell<int>& ppiZoom();

/// A rectangle of the surface in host pixels, the origin at the bottom left as in GL.
struct SurfaceRect {
    int x, y, width, height;
};

/// A rectangle in GL's pixels.
struct GlRect {
    int x, y, width, height;
};

/// A length in host pixels as GL sees it.
inline int scaledToPpi(int length) {
    return saturateToInt(std::int64_t{length} * ppiZoom());
}

/// GL thread. glViewport with the rectangle times ppiZoom.
void setViewport(const SurfaceRect& rect);

}  // namespace fovix
