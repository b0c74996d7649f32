// Translates events of mouse, trackpad and fingers into calls that steer the view: drags and flings, pinches,
// the wheel, double clicks and rectangles (drags with Shift). Independent of the window system and of GL.
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

    // Ends a zoom with the wheel some time after the last notch. Call it before each rendered frame.
    void tick(double seconds);
    bool isWheelTurning() const { return _wheel.has_value(); }

    // Returns true if mouse moves are part of a gesture.
    bool isDown() const { return _dragging || _band; }

    // The rectangle that is being drawn.
    const std::optional<Band>& band() const { return _band; }

    // Forgets all gestures in progress, as needed after a change of type.
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
    std::vector<Finger>::iterator fingerOf(const PointerEvent& event);
    bool isSecondTap(const PointerEvent& event) const;
    void settle();

    ViewCalls& _view;
    Velocity _velocity;
    std::optional<Band> _band;
    std::optional<Wheel> _wheel;
    std::vector<Finger> _fingers;  // in order of touching; the first two count
    std::optional<Tap> _tap;       // a possible first half of a double tap
    SurfacePosition _downAt;
    bool _dragging = false;
    bool _pinched = false;  // since the first finger touched
};

// Zoom factor of one notch of the wheel for a display type.
float zoomOfNotch(int type);

}  // namespace fovix_host
