// An event of a mouse, a trackpad or a touch screen, in surface pixels and seconds, independent of the window
// system.
#pragma once

#include <cstdint>

#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

struct PointerEvent {
    enum class Kind {
        kPress,  // of the left button
        kMove,   // of the mouse, with or without the button
        kRelease,
        kCancel,      // the window lost the pointer
        kWheel,       // amount: notches; positive away from the user
        kZoom,        // amount: ratio of one step of a trackpad pinch
        kFingerDown,  // on a touch screen
        kFingerMove,
        kFingerUp
    };
    Kind kind = Kind::kMove;
    SurfacePosition at;
    double seconds = 0;
    float amount = 0;
    int clicks = 1;
    bool shift = false;
    std::int64_t finger = 0;
};

}  // namespace fovix_host
