// A point of the fisheye picture that a host wants to see.
#pragma once

namespace fovix {

/// The centre of a picture and the offset of a point from it; picture pixels, y downwards.
struct PictureTarget {
    double cx, cy;
    double dx, dy;
};

/// Prints point, centre and offset.
PictureTarget locateTarget(int targetX, int targetY, int width, int height);

/// The pixel halfway between two others; their sum may exceed an int.
int middleOf(int from, int to);

}  // namespace fovix
