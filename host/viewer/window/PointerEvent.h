// What a mouse, a trackpad or fingers did, in surface pixels and seconds, whichever window system told it.
#pragma once

#include <cstdint>

#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

struct PointerEvent {
    enum class Kind {
        press,       // the left button
        move,        // the mouse, with or without the button
        release,     //
        cancel,      // the window lost the pointer
        wheel,       // amount: notches, away from the user is positive
        zoom,        // amount: ratio of one step of a trackpad's pinch
        fingerDown,  // on a touch screen
        fingerMove,  //
        fingerUp
    };
    Kind kind = Kind::move;
    SurfacePosition at;
    double seconds = 0;
    float amount = 0;
    int clicks = 1;
    bool shift = false;
    std::int64_t finger = 0;
};

}  // namespace fovix_host
