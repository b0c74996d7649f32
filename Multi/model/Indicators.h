// Flat-colour outlines and indicators over the finished frame: which screen is selected and where it looks.
//
// GL thread, at the end of a frame, without the lock.
#pragma once

#include "model/FovixModel.h"

namespace fovix {

/// What indicators are drawn on.
struct Canvas {
    Device& device;
    SurfaceRect surface;
    int backingWidth, backingHeight;  ///< size that the model works with, pixels
};

/// The outline of the panorama's selected screen, and in layouts with an overview where that screen looks.
void drawSelectedScreen(const Canvas& canvas, FovixModel& model);

/// The outline of the inset and in it the part that the main view shows; markerShift is the controller's
/// vertical shift of that part. Nothing where no inset is drawn.
void drawInsetOutlines(const Canvas& canvas, FovixModel& model, double markerShift);

}  // namespace fovix
