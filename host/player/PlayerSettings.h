// Input, settings and callbacks of a player.
#pragma once

#include <climits>
#include <functional>
#include <memory>
#include <string>
#include <variant>

#include "media/FramePacker.h"
#include "media/FrameSource.h"

namespace fovix_host {

// An input as for MediaReader, or a frame source.
using PlayerInput = std::variant<std::string, std::unique_ptr<FrameSource>>;

struct PlayerSettings {
    PackedFormats formats = PackedFormats::kAll;
    int maxSide = INT_MAX;  // frames with a longer side are scaled down
    bool loop = false;
    bool paused = false;  // pause at the first frame
    double start = 0;     // start position in seconds, for inputs that can seek
    double stall = 10;    // seconds without a frame after which a stream counts as lost
    double speed = 1;     // of the clock: tests play a hundred times as fast
};

// Called on the player's thread, never after the player is destroyed; they must not destroy it.
struct PlayerCallbacks {
    // The frame is valid during the call. An exception ends playing with kFailed.
    std::function<void(const PackedFrame&)> show;
    // A message for the user: a stream is lost or back, an input cannot be played. May be empty; must not
    // throw.
    std::function<void(const std::string&)> message;
};

}  // namespace fovix_host
