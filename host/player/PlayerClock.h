// The clock of a player: steady, and faster than real time in tests.
#pragma once

#include <chrono>

namespace fovix_host {

class PlayerClock {
  public:
    using Real = std::chrono::duration<double>;

    explicit PlayerClock(double speed) : _speed(speed) {}

    double now() const { return Real(std::chrono::steady_clock::now() - _start).count() * _speed; }
    // Real duration of a number of seconds of this clock.
    Real real(double seconds) const { return Real(seconds / _speed); }

  private:
    std::chrono::steady_clock::time_point _start = std::chrono::steady_clock::now();
    double _speed;
};

}  // namespace fovix_host
