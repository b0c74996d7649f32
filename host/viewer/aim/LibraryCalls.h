// Implements the calls of gestures with libfovix.
#pragma once

#include <functional>
#include <string>

#include "viewer/aim/Picker.h"
#include "viewer/pointer/ViewCalls.h"
#include "viewer/state/ShownView.h"
#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

class LibraryCalls final : public ViewCalls {
  public:
    // say() shows a message in the window. The scale follows the window.
    LibraryCalls(VRHANDLE view, std::function<FrameRelay&()> frames, const ShownView& shown,
                 const SurfaceScale& scale, std::function<void(const std::string&)> say)
        : _view(view), _frames(std::move(frames)), _shown(shown), _scale(scale), _say(std::move(say)) {}

    int type() const override { return Fovix_GetType(_view); }
    double zoom() const override;

    void touchDown(SurfacePosition at) override { Fovix_OnTouchDown(_view, at.x, at.y); }
    void touchMove(SurfacePosition at) override { Fovix_OnTouchMove(_view, at.x, at.y); }
    void touchUp(SurfacePosition at) override { Fovix_OnTouchUp(_view, at.x, at.y); }
    void pinch(SurfacePosition a, SurfacePosition b) override {
        Fovix_OnTouchPinch(_view, a.x, a.y, b.x, b.y);
    }
    void pinchScale(float scale) override { Fovix_OnTouchPinchScale(_view, scale); }
    void fling(float x, float y) override { Fovix_OnTouchFling(_view, x, y); }
    void autoAdjust() override { Fovix_AutoAdjust(_view); }

    void lookAt(SurfacePosition at) override;
    void showRectangle(SurfacePosition from, SurfacePosition to) override;

  private:
    PickedSpots pick(const std::vector<SurfacePosition>& points) const;
    void lookAtTarget(SurfacePosition at);
    void lookAround(const FrameSpot& spot, FrameRelay::Size frame, double extent);
    void spread(double ratio);
    void turnBy(double pan, double tilt, double zoom);
    void magnifyInset(SurfacePosition at);
    void magnifyFlat(SurfacePosition at);

    VRHANDLE _view;
    std::function<FrameRelay&()> _frames;
    const ShownView& _shown;
    const SurfaceScale& _scale;
    std::function<void(const std::string&)> _say;
};

}  // namespace fovix_host
