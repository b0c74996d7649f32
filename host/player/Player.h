// Plays one input on its own thread: opens it, decodes it and passes each frame on when it is due. All
// functions can be called from any thread and return at once, without waiting for the decoder.
#pragma once

#include <memory>
#include <optional>

#include "player/PlayerSettings.h"
#include "player/PlayerStatus.h"

namespace fovix_host {

class PlayerControl;
class PlayerLoop;

class Player {
  public:
    Player(PlayerInput input, const PlayerSettings& settings, PlayerCallbacks callbacks);
    ~Player();  // interrupts and joins the thread
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    void pause(bool paused);
    // Pauses and shows the next frame.
    void step();

    // Return false if the input cannot seek (not open yet, the sample, a still, a live input). Clamp the time
    // to the input; while paused, show the frame there.
    bool seekTo(double seconds);
    bool seekBy(double seconds);

    PlayerStatus status() const;
    double position() const { return status().position; }
    std::optional<double> duration() const { return status().duration; }

  private:
    std::unique_ptr<PlayerControl> _control;
    std::unique_ptr<PlayerLoop> _loop;
};

}  // namespace fovix_host
