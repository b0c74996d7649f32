#include "base/Easing.h"

#include <algorithm>
#include <cmath>

#include "base/Animators.h"

namespace fovix {

namespace {

// A step is a fifth of the distance, before the speed of a finger doubles it or a glide divides it by three.
constexpr double kDistancePart = 5.0, kGlidePart = 3.0;
constexpr double kFarAway = 50.0;   ///< degrees; beyond this distance the step no longer grows
constexpr double kLongest = 10.0;   ///< degrees per frame
constexpr double kShortest = 0.1f;  ///< degrees per frame, so that the view arrives
constexpr double kStepBelowOne = 0.0375;

double moveTowards(double current, double target, double step) {
    return current < target ? std::min(current + step, target) : std::max(current - step, target);
}

}  // namespace

double easeStep(double current, double target, bool gliding) {
    const double distance = std::abs(target - current);
    double step = distance > kFarAway ? kLongest : distance / kDistancePart;
    step = gliding ? step / kGlidePart : step * kSpeedFactor;
    return moveTowards(current, target, std::clamp(step, kShortest, kLongest));
}

double easeZoom(double current, double target, double zoomStep) {
    return moveTowards(current, target, target >= 1.0 ? zoomStep : kStepBelowOne);
}

}  // namespace fovix
