// Touch for two lenses in one picture: zooming in far enough changes to the other lens, and the pan starts
// over.
#pragma once

#include "touch/FlatTouch.h"

namespace fovix {

struct TwoLensesTouchParams : FlatTouchParams {
    TwoLensesTouchParams();

    Cell<double> mPrevZoom = 1.0;  ///< mZoom of the last frame
    Cell<double> mZoomDiv = 3.0;   ///< zoom at which the model changes from one lens to the other
    Cell<double> mZoomMin = 1.0;   ///< kept for the host, no gesture asks for it
};

/// Whether the model changes the lens on the way from one frame's zoom to the next one's. Zooming in does it
/// half a unit early, so that the pan has settled when the other picture comes.
bool crossesLensThreshold(double previousZoom, double zoom, double zoomDiv);

ControllerPtr TouchControllerTwoLensesInOne_Create(OwnerPtr owner, int screenIndex);

}  // namespace fovix
