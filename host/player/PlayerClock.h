// The seconds by which a player paces its pictures and its waiting: steady, and faster than life for tests.
#pragma once

#include <chrono>

namespace fovix_host {

class PlayerClock {
  public:
    using Real = std::chrono::duration<double>;

    explicit PlayerClock(double speed) : _speed(speed) {}

    double now() const { return Real(std::chrono::steady_clock::now() - _start).count() * _speed; }
    // How long that many seconds of this clock take in reality.
    Real real(double seconds) const { return Real(seconds / _speed); }

  private:
    std::chrono::steady_clock::time_point _start = std::chrono::steady_clock::now();
    double _speed;
};

}  // namespace fovix_host
