// Measures the speed of a finger when it is lifted: over the last tenth of a second, or 0 if it rested.
#pragma once

#include <deque>

#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

struct PixelsPerSecond {
    float x = 0, y = 0;
};

class Velocity {
  public:
    void start(SurfacePosition at, double seconds);
    void move(SurfacePosition at, double seconds);
    PixelsPerSecond at(double seconds) const;

  private:
    struct Sample {
        SurfacePosition at;
        double seconds;
    };
    std::deque<Sample> _samples;
};

}  // namespace fovix_host
