// What a player is doing, as of one moment.
#pragma once

#include <optional>
#include <string>

namespace fovix_host {

enum class PlayerState {
    kOpening,
    kPlaying,
    kPaused,
    kStill,         // the one picture is shown
    kEnded,         // the last picture is shown; a seek goes on from there
    kReconnecting,  // waits before it opens the stream again
    kFailed         // for good; the message says why
};

struct PlayerStatus {
    PlayerState state = PlayerState::kOpening;
    int width = 0, height = 0;       // of the picture shown last
    double position = 0;             // of the picture shown last, or sought, in seconds
    std::optional<double> duration;  // in seconds; nothing for the sample, a still or a live input
    bool seekable = false;
    // Pictures. Those dropped came too late to be worth showing.
    long decoded = 0, shown = 0, dropped = 0;
    double framesPerSecond = 0;  // shown, over the last second
    std::string message;         // the last one
};

}  // namespace fovix_host
