#include "viewer/window/StepClock.h"

#include <algorithm>
#include <cmath>

namespace fovix_host {

int StepClock::due(double now) {
    const double behind = (now - _next) / kStep;
    constexpr double kEarly = 0.5 + 1e-6;  // half a step, plus rounding errors of the seconds
    if (behind < -kEarly) return 0;
    if (behind >= kMaxSteps - kEarly) {
        _next = now + kStep;
        return kMaxSteps;
    }
    const int steps = static_cast<int>(std::floor(behind + kEarly)) + 1;
    const int given = std::min(steps, kMaxSteps);
    _next += given * kStep;
    return given;
}

double StepClock::untilNext(double now) const {
    return std::max(_next - kStep / 2 - now, 0.0);
}

}  // namespace fovix_host
