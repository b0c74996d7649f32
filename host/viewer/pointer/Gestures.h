// Turns what a mouse, a trackpad or fingers do into the calls that steer the view: drags and flings, pinches,
// the wheel, double clicks and the rectangle of a drag with Shift. Knows no window system and no GL.
#pragma once

#include <optional>
#include <vector>

#include "viewer/pointer/Velocity.h"
#include "viewer/pointer/ViewCalls.h"
#include "viewer/window/PointerEvent.h"

namespace fovix_host {

class Gestures {
  public:
    struct Band {
        SurfacePosition from, to;
    };

    explicit Gestures(ViewCalls& view) : _view(view) {}

    void handle(const PointerEvent& event);

    // Ends a turn of the wheel some time after its last notch; call it before each frame.
    void tick(double seconds);
    bool isWheelTurning() const { return _wheel.has_value(); }

    // Whether moves of the mouse mean anything.
    bool isDown() const { return _dragging || _band; }

    // The rectangle that is being drawn, as far as it is drawn.
    const std::optional<Band>& band() const { return _band; }

    // After this the pointer's and the fingers' next events begin anew, as after a change of type.
    void forget();

  private:
    struct Wheel {
        SurfacePosition at;
        float scale;
        double lastNotch;
    };
    struct Finger {
        std::int64_t id;
        SurfacePosition at;
    };
    struct Tap {
        SurfacePosition at;
        double seconds;
    };

    void press(const PointerEvent& event);
    void startDrag(const PointerEvent& event);
    void drag(const PointerEvent& event);
    void endDrag(const PointerEvent& event, bool mayFling);
    void release(const PointerEvent& event);
    void cancel(const PointerEvent& event);
    void zoomBy(const PointerEvent& event, double ratio);
    void showZoom();
    void endWheel();
    void fingerDown(const PointerEvent& event);
    void fingerMove(const PointerEvent& event);
    void fingerUp(const PointerEvent& event);
    bool isSecondTap(const PointerEvent& event) const;
    void settle();

    ViewCalls& _view;
    Velocity _velocity;
    std::optional<Band> _band;
    std::optional<Wheel> _wheel;
    std::vector<Finger> _fingers;  // in the order in which they came; two of them count
    std::optional<Tap> _tap;       // the last one that may become the first of two
    SurfacePosition _downAt;
    bool _dragging = false;
    bool _pinched = false;  // since the first of the fingers came
};

// How many times as close one notch of the wheel brings a view of this type.
float zoomOfNotch(int type);

}  // namespace fovix_host
