// The drawing surface: rectangles in the host's pixels, multiplied by the process-wide ppiZoom on their way
// to the device.
#pragma once

#include <cstdint>

#include "base/Cell.h"
#include "base/Numbers.h"

namespace fovix {

/// Factor of every viewport that the library sets, at least 1; shared by all handles.
inline Cell<int>& ppiZoom() {
    static Cell<int> zoom = 1;
    return zoom;
}

/// A rectangle of the surface in the host's pixels; the origin is at the bottom left.
struct SurfaceRect {
    int x, y, width, height;
};

/// A rectangle in the pixels of the device; the origin is at the bottom left.
struct DeviceRect {
    int x, y, width, height;
};

/// A length in the host's pixels as the device counts it.
inline int scaledToPpi(int length) {
    return saturateToInt(std::int64_t{length} * ppiZoom());
}

inline DeviceRect scaledToPpi(const SurfaceRect& rect) {
    return {scaledToPpi(rect.x), scaledToPpi(rect.y), scaledToPpi(rect.width), scaledToPpi(rect.height)};
}

}  // namespace fovix
