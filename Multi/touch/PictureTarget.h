// A point of the fisheye picture that a host wants to see, as the controllers of the panoramas take it.
#pragma once

namespace fovix {

/// The middle of a picture and where a point lies from there; picture pixels, y downwards.
struct PictureTarget {
    double cx, cy;
    double dx, dy;
};

/// Prints point, middle and offset.
PictureTarget locateTarget(int targetX, int targetY, int width, int height);

/// The pixel halfway between two others, whatever their sum is.
int middleOf(int from, int to);

}  // namespace fovix
