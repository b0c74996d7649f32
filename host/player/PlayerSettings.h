// What a player plays, how, and whom it calls.
#pragma once

#include <climits>
#include <functional>
#include <memory>
#include <string>
#include <variant>

#include "media/FramePacker.h"
#include "media/FrameSource.h"

namespace fovix_host {

// An input as MediaReader takes it, or a source, whose pictures are shown at 25 a second.
using PlayerInput = std::variant<std::string, std::unique_ptr<FrameSource>>;

struct PlayerSettings {
    PackedFormats formats = PackedFormats::kAll;
    int maxSide = INT_MAX;  // pictures with a longer side are scaled down
    bool loop = false;
    bool paused = false;  // from the first picture on
    double start = 0;     // seconds into the input, where it can be sought
    double stall = 10;    // seconds without a picture after which a stream counts as lost
    double speed = 1;     // of the clock: tests play a hundred times as fast
};

// Called on the player's thread, never after the player is destroyed; they may not destroy it.
struct PlayerCallbacks {
    // The picture is valid during the call. What this throws ends the playing: failed.
    std::function<void(const PackedFrame&)> show;
    // A sentence for the user: a stream is lost or back, an input cannot be played. May be empty; may not
    // throw.
    std::function<void(const std::string&)> message;
};

}  // namespace fovix_host
