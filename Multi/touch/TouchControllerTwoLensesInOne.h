// Touch for two lenses in one frame: zooming in far enough changes to the other lens and recentres the pan.
#pragma once

#include "touch/FlatTouch.h"

namespace fovix {

struct TwoLensesTouchParams : FlatTouchParams {
    TwoLensesTouchParams();

    Cell<double> mPrevZoom = 1.0;  ///< mZoom of the previous frame
    Cell<double> mZoomDiv = 3.0;   ///< zoom at which the model changes from one lens to the other
    Cell<double> mZoomMin = 1.0;   ///< kept for the host; gestures ignore it
};

/// True if the model changes the lens between the zooms of two frames.
bool crossesLensThreshold(double previousZoom, double zoom, double zoomDiv);

ControllerPtr TouchControllerTwoLensesInOne_Create(OwnerPtr owner, int screenIndex);

}  // namespace fovix
