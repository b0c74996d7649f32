// Where a panorama has to look so that a point of the picture comes to the middle of its screen.
#pragma once

#include "circle/LensCircle.h"
#include "viewer/aim/PositionMap.h"
#include "viewer/playback/FrameRelay.h"

namespace fovix_host {

class PanoramaAim {
  public:
    PanoramaAim(const LensCircle& lens, FrameRelay::Size picture);

    // Under a ceiling: what Fovix_DisplayTarget() has to be told at this zoom to look there. By itself it
    // tilts in proportion to the distance from the middle of the picture, whatever the lens.
    FrameSpot ceilingTarget(const FrameSpot& spot, double zoom) const;

    // The zoom at which so many pixels of the picture and a little more are seen from edge to edge, where
    // there is one.
    double zoomFor(double pixels, bool onCeiling) const;

    struct PanTilt {
        double pan, tilt;
    };
    // On a wall, where both count from 90 degrees, straight ahead.
    PanTilt onWall(const FrameSpot& spot, bool inverted) const;

  private:
    struct Polar {
        double x, y;   // from the middle of the lens outwards, of length 1
        double angle;  // from the lens's axis, in degrees
    };
    Polar polarOf(const FrameSpot& spot) const;

    FrameRelay::Size _picture;
    double _x, _y, _radius;
};

}  // namespace fovix_host
