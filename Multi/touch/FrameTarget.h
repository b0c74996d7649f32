// A point of the frame that a host wants to see.
#pragma once

namespace fovix {

/// The centre of a frame and the offset of a point from it; frame pixels, y downwards.
struct FrameTarget {
    double cx, cy;
    double dx, dy;
};

/// Prints point, centre and offset.
FrameTarget locateTarget(int targetX, int targetY, int width, int height);

/// The pixel halfway between two others; their sum may exceed an int.
int middleOf(int from, int to);

}  // namespace fovix
