// What the viewer's threads and the player's thread have in common: wishes go one way, the status the other.
// One mutex, held for a few lines at a time and never during a callback.
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

    // The viewer's side; see Player.
    void pause(bool paused);
    void step();
    bool seekTo(double seconds);
    bool seekBy(double seconds);
    PlayerStatus status() const;
    void end();

    // The player's side.
    struct Wishes {
        bool paused = false;
        bool step = false;
        std::optional<double> seek;  // the last one of those that came since
    };
    bool isEnding() const;
    Wishes takeWishes();
    // True when a wish came before the time was over.
    bool wait(double seconds);
    // Only the end cuts this short.
    void sleep(double seconds);
    void update(const std::function<void(PlayerStatus&)>& change);
    void countShown(const PackedFrame& picture, double position);

  private:
    bool seekLocked(double seconds);
    void wake();

    const PlayerClock _clock;
    mutable std::mutex _mutex;
    // All of these are touched under the mutex only.
    std::condition_variable _woken;
    PlayerStatus _status;
    bool _paused;
    bool _step = false;
    bool _ending = false;
    bool _wished = false;
    std::optional<double> _seek;
    mutable std::deque<double> _shownAt;  // within the last second
};

}  // namespace fovix_host
