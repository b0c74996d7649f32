// Shared state of the callers and the player's thread: requests go one way, the status the other. One mutex,
// held for a few lines at a time and never during a callback.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>

#include "media/FramePacker.h"
#include "player/PlayerClock.h"
#include "player/PlayerStatus.h"

namespace fovix_host {

class PlayerControl {
  public:
    PlayerControl(double clockSpeed, bool paused) : _clock(clockSpeed), _paused(paused) {}

    double now() const { return _clock.now(); }

    // For callers; see Player.
    void pause(bool paused);
    void step();
    bool seekTo(double seconds);
    bool seekBy(double seconds);
    PlayerStatus status() const;
    void end();

    // For the player's thread.
    struct Requests {
        bool paused = false;
        bool step = false;
        std::optional<double> seek;  // the latest
    };
    bool isEnding() const;
    Requests takeRequests();
    // Returns true if a request arrived in time.
    bool wait(double seconds);
    // Interrupted only by shutdown.
    void sleep(double seconds);
    void update(const std::function<void(PlayerStatus&)>& change);
    void countShown(const PackedFrame& frame, double position);

  private:
    bool seekLocked(double seconds);
    void wake();

    const PlayerClock _clock;
    mutable std::mutex _mutex;
    // The mutex guards all of the following.
    std::condition_variable _woken;
    PlayerStatus _status;
    bool _paused;
    bool _step = false;
    bool _ending = false;
    bool _requested = false;
    std::optional<double> _seek;
    mutable std::deque<double> _shownAt;  // times within the last second
};

}  // namespace fovix_host
