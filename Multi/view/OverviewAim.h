// Where a touch on the overview of a layout with several screens aims the selected view: arithmetic alone.
#pragma once

namespace fovix {

/// Tilt for the point half-way from the overview's middle to its edge, degrees.
inline constexpr double kOverviewTilt = 60.0;

struct AimedView {
    double pan, tilt;  ///< degrees
};

/// For a touch (surface pixels from the top left) on the large overview in the upper left two thirds of the
/// surface: the direction from its middle sets the pan, the distance the tilt (0 to 90).
AimedView aimOnOverview(float x, float y, int backingWidth, int backingHeight);

/// For a touch on the panorama strip in the bottom third: the position across sets the pan, the height above
/// the bottom edge the tilt, over a range that shrinks as the zoom (field of view in degrees) grows.
AimedView aimOnStrip(float x, float y, double zoom, int backingWidth, int backingHeight);

}  // namespace fovix
