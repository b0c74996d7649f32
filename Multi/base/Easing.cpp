#include "base/Easing.h"

#include <algorithm>
#include <cmath>

#include "base/Animators.h"

namespace fovix {

namespace {

constexpr double kFarAway = 50.0;   ///< degrees from which on the step does not grow any more
constexpr double kLongest = 10.0;   ///< degrees per frame
constexpr double kShortest = 0.1f;  ///< degrees per frame, so that the view arrives
constexpr double kStepBelowOne = 0.0375;

double moveTowards(double current, double target, double step) {
    return current < target ? std::min(current + step, target) : std::max(current - step, target);
}

}  // namespace

double easeStep(double current, double target, bool gliding) {
    const double distance = std::abs(target - current);
    double step = distance > kFarAway ? kLongest : distance / 5.0;
    step = gliding ? step / 3.0 : step * kSpeedFactor;
    return moveTowards(current, target, std::clamp(step, kShortest, kLongest));
}

double easeZoom(double current, double target, double zoomStep) {
    return moveTowards(current, target, target >= 1.0 ? zoomStep : kStepBelowOne);
}

}  // namespace fovix
