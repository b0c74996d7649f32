// Where a touch on the overview of a multi-view layout aims the selected view: pure arithmetic.
#pragma once

namespace fovix {

struct AimedView {
    double pan, tilt;  ///< degrees
};

/// Touch (surface pixels from the top left) on the large overview in the upper left two thirds of the
/// surface: the direction from its middle gives the pan, the distance the tilt (0 to 90).
AimedView aimOnOverview(float x, float y, int backingWidth, int backingHeight);

/// Touch on the panorama strip in the bottom third: across gives the pan, upwards the tilt, within what the
/// view's zoom (field of view in degrees) leaves.
AimedView aimOnStrip(float x, float y, double zoom, int backingWidth, int backingHeight);

}  // namespace fovix
