// Plays one input on a thread of its own: opens it, decodes, and hands each picture over when it is due.
// Nothing here waits for decoding: every call returns at once, from whichever thread.
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
    ~Player();  // ends the thread, whatever it waits for
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    void pause(bool paused);
    // Shows the next picture; pauses where it is not paused already.
    void step();

    // False where the input cannot be sought (not open yet, the sample, a still, a live input); times beyond
    // the ends become the ends. While paused the picture there is shown.
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
