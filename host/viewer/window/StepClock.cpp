#include "viewer/window/StepClock.h"

#include <algorithm>
#include <cmath>

namespace fovix_host {

int StepClock::due(double now) {
    const double behind = (now - _next) / kStep;
    constexpr double kEarly = 0.5 + 1e-6;  // and what seconds lose to rounding
    if (behind < -kEarly) return 0;
    if (behind >= kMost - kEarly) {
        _next = now + kStep;
        return kMost;
    }
    const int steps = static_cast<int>(std::floor(behind + kEarly)) + 1;
    const int given = std::min(steps, kMost);
    _next += given * kStep;
    return given;
}

double StepClock::untilNext(double now) const {
    return std::max(_next - kStep / 2 - now, 0.0);
}

}  // namespace fovix_host
