// The calls that gestures make: the library's touch functions, and two that need to know the frame under a
// point. Positions are surface pixels from the top left.
#pragma once

#include <Fovix.h>

#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

class ViewCalls {
  public:
    virtual ~ViewCalls() = default;

    virtual int type() const = 0;
    virtual double zoom() const = 0;  // of Fovix_GetRotateZoom(); 1 shows the whole frame

    virtual void touchDown(SurfacePosition at) = 0;
    virtual void touchMove(SurfacePosition at) = 0;
    virtual void touchUp(SurfacePosition at) = 0;
    virtual void pinch(SurfacePosition first, SurfacePosition second) = 0;
    virtual void pinchScale(float scale) = 0;
    virtual void fling(float velocityX, float velocityY) = 0;
    virtual void autoAdjust() = 0;

    virtual void lookAt(SurfacePosition at) = 0;
    virtual void showRectangle(SurfacePosition from, SurfacePosition to) = 0;
};

}  // namespace fovix_host
