// Calculates the view of a panorama that centres a point of the frame.
#pragma once

#include "circle/LensCircle.h"
#include "viewer/aim/PositionMap.h"
#include "viewer/playback/FrameRelay.h"

namespace fovix_host {

class PanoramaAim {
  public:
    PanoramaAim(const LensCircle& lens, FrameRelay::Size frame);

    // Ceiling mount: the target for Fovix_DisplayTarget() that makes it look at the spot at this zoom. That
    // function tilts in proportion to the distance from the centre of the frame, whatever the lens is.
    FrameSpot ceilingTarget(const FrameSpot& spot, double zoom) const;

    // The zoom at which this many pixels of the frame, plus a margin, fill the screen; clamped to the valid
    // range.
    double zoomFor(double pixels, bool onCeiling) const;

    struct PanTilt {
        double pan, tilt;
    };
    // Wall mounts, where straight ahead is a pan and tilt of 90 degrees.
    PanTilt onWall(const FrameSpot& spot, bool inverted) const;

  private:
    struct Polar {
        double x, y;   // unit vector from the lens centre
        double angle;  // from the optical axis, in degrees
    };
    Polar polarOf(const FrameSpot& spot) const;

    FrameRelay::Size _frame;
    double _x, _y, _radius;
};

}  // namespace fovix_host
