#include "viewer/window/StepClock.h"

#include <algorithm>
#include <cmath>

namespace fovix_host {

int StepClock::due(double now) {
    const double behind = (now - _next) / step;
    constexpr double early = 0.5 + 1e-6;  // and what seconds lose to rounding
    if (behind < -early) return 0;
    if (behind >= most - early) {
        _next = now + step;
        return most;
    }
    const int steps = static_cast<int>(std::floor(behind + early)) + 1;
    const int given = std::min(steps, most);
    _next += given * step;
    return given;
}

double StepClock::untilNext(double now) const {
    return std::max(_next - step / 2 - now, 0.0);
}

}  // namespace fovix_host
