// What a player is doing, as of one moment.
#pragma once

#include <optional>
#include <string>

namespace fovix_host {

enum class PlayerState {
    opening,
    playing,
    paused,
    still,         // the one picture is shown
    ended,         // the last picture is shown; a seek goes on from there
    reconnecting,  // waits before it opens the stream again
    failed         // for good; the message says why
};

struct PlayerStatus {
    PlayerState state = PlayerState::opening;
    int width = 0, height = 0;       // of the picture shown last
    double position = 0;             // of the picture shown last, or sought, in seconds
    std::optional<double> duration;  // in seconds; nothing for the sample, a still or a live input
    bool seekable = false;
    // Pictures. Those dropped came too late to be worth showing.
    long decoded = 0, shown = 0, dropped = 0;
    double picturesPerSecond = 0;  // shown, over the last second
    std::string message;           // the last one
};

}  // namespace fovix_host
