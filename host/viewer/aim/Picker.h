// Finds the points of the picture that are shown at points of the surface: has the view draw a map of the
// picture in its place, and reads the colours there. What the window shows does not change.
#pragma once

#include <optional>
#include <vector>

#include "viewer/aim/PositionMap.h"
#include "viewer/playback/FrameRelay.h"
#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

struct PickedSpots {
    FrameRelay::Size picture;
    std::vector<FrameSpot> spots;  // of those points where the picture is
};

// Needs the GL context current and a black background; a frame is drawn and not presented. Empty
// before the first picture.
PickedSpots pickSpots(VRHANDLE view, FrameRelay& pictures, const SurfaceScale& scale,
                      const std::vector<SurfacePosition>& points);

}  // namespace fovix_host
