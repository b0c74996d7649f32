// What a mouse, a trackpad or fingers did, in surface pixels and seconds, whichever window system told it.
#pragma once

#include <cstdint>

#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

struct PointerEvent {
    enum class Kind {
        kPress,       // the left button
        kMove,        // the mouse, with or without the button
        kRelease,     //
        kCancel,      // the window lost the pointer
        kWheel,       // amount: notches, away from the user is positive
        kZoom,        // amount: ratio of one step of a trackpad's pinch
        kFingerDown,  // on a touch screen
        kFingerMove,  //
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
