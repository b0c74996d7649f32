#include "viewer/pointer/Velocity.h"

#include <algorithm>

namespace fovix_host {
namespace {

// Seconds.
constexpr double kWindow = 0.1;
constexpr double kMinTime = 0.01;  // avoids dividing by almost 0
constexpr double kRest = 0.06;     // moving fingers report more often

}  // namespace

void Velocity::start(SurfacePosition at, double seconds) {
    _samples = {{at, seconds}};
}

void Velocity::move(SurfacePosition at, double seconds) {
    _samples.push_back({at, seconds});
    // Keep the newest sample before the window: the movement within the window starts there.
    while (_samples.size() > 2 && _samples[1].seconds < seconds - kWindow) _samples.pop_front();
}

PixelsPerSecond Velocity::at(double seconds) const {
    if (_samples.size() < 2 || seconds - _samples.back().seconds > kRest) return {};
    const Sample& last = _samples.back();
    const auto first = std::find_if(_samples.begin(), _samples.end(), [&](const Sample& sample) {
        return sample.seconds >= seconds - kWindow;
    });
    const Sample& from = &*first == &last ? *(_samples.end() - 2) : *first;
    const double time = std::max(last.seconds - from.seconds, kMinTime);
    return {static_cast<float>((last.at.x - from.at.x) / time),
            static_cast<float>((last.at.y - from.at.y) / time)};
}

}  // namespace fovix_host
