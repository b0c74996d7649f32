// A snapshot of what a player does.
#pragma once

#include <optional>
#include <string>

namespace fovix_host {

enum class PlayerState {
    kOpening,
    kPlaying,
    kPaused,
    kStill,         // the only frame is shown
    kEnded,         // the last frame is shown; a seek resumes playing
    kReconnecting,  // waits before it reopens the stream
    kFailed         // permanently; the message contains the reason
};

struct PlayerStatus {
    PlayerState state = PlayerState::kOpening;
    int width = 0, height = 0;       // of the last frame shown
    double position = 0;             // of the last frame shown, or of the current seek, in seconds
    std::optional<double> duration;  // in seconds; nullopt for the sample, a still or a live input
    bool seekable = false;
    // Numbers of frames; dropped ones were too late to be shown.
    long decoded = 0, shown = 0, dropped = 0;
    double framesPerSecond = 0;  // shown during the last second
    std::string message;         // the latest
};

}  // namespace fovix_host
