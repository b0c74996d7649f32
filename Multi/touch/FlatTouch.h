// Touch on a flat frame: a pinch zooms, drags and flings move the frame while it is zoomed in.
//
// The single views and two lenses in one frame share these gestures; they differ in the numbers of
// FlatTouchKind.
#pragma once

#include "touch/EasedView.h"

namespace fovix {

/// What the flat kinds differ in. Angles have the limit base + growth * zoom / 2, in degrees.
struct FlatTouchKind {
    double pitchGrowth, pitchBase;
    double yawGrowth, yawBase;
    double zoomStep;  ///< zoom per frame
    double zoomMax;   ///< largest zoom of a pinch, unless the host sets another
};

/// Up to this zoom the view returns to the whole frame after a gesture.
inline constexpr double kFlatSnapZoom = 3.0;

struct FlatTouchParams : EasedViewParams {
    explicit FlatTouchParams(const FlatTouchKind& kind) : mZoomMax(kind.zoomMax), mKind(&kind) {}

    Cell<double> mZoomMax;                    ///< largest zoom of a pinch
    Cell<double> mPinchStartDistance = -1.0;  ///< pixels between the fingers; -1: none yet
    const FlatTouchKind* mKind;
};

/// One frame's step; under the lock.
void easeFlatView(FlatTouchParams& p);

// Operations that the kinds share.
void FlatTouch_OnTouchDown(TouchController& controller, float x, float y);
void FlatTouch_OnTouchMove(TouchController& controller, float x, float y);
void FlatTouch_OnTouchPinch(TouchController& controller, float x1, float y1, float x2, float y2);
void FlatTouch_OnTouchPinchScale(TouchController& controller, float scale);
void FlatTouch_OnTouchFling(TouchController& controller, float velocityX, float velocityY);

}  // namespace fovix
