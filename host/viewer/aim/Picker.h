// Finds the spots of the frame that are visible at points of the surface: the view renders a position map in
// place of the frame, and the colours at the points are read back. The window does not change.
#pragma once

#include <vector>

#include "viewer/aim/PositionMap.h"
#include "viewer/playback/FrameRelay.h"
#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

struct PickedSpots {
    FrameRelay::Size frame;
    std::vector<FrameSpot> spots;  // only of points where the frame is visible
};

// Requires a current GL context and a black background. Renders a frame without presenting it. Empty before
// the first frame of the input.
PickedSpots pickSpots(VRHANDLE view, FrameRelay& frames, const SurfaceScale& scale,
                      const std::vector<SurfacePosition>& points);

}  // namespace fovix_host
