#include "viewer/pointer/Velocity.h"

#include <algorithm>

namespace fovix_host {
namespace {

constexpr double kWindow = 0.1;     // seconds
constexpr double kShortest = 0.01;  // of a flick: less would divide by next to nothing
constexpr double kRest = 0.06;      // a finger that moves reports more often

}  // namespace

void Velocity::start(SurfacePosition at, double seconds) {
    _samples = {{at, seconds}};
}

void Velocity::move(SurfacePosition at, double seconds) {
    _samples.push_back({at, seconds});
    // The newest sample from before the window is where the movement within it starts.
    while (_samples.size() > 2 && _samples[1].seconds < seconds - kWindow) _samples.pop_front();
}

PixelsPerSecond Velocity::at(double seconds) const {
    if (_samples.size() < 2 || seconds - _samples.back().seconds > kRest) return {};
    const Sample& last = _samples.back();
    const auto first = std::find_if(_samples.begin(), _samples.end(), [&](const Sample& sample) {
        return sample.seconds >= seconds - kWindow;
    });
    const Sample& from = &*first == &last ? *(_samples.end() - 2) : *first;
    const double time = std::max(last.seconds - from.seconds, kShortest);
    return {static_cast<float>((last.at.x - from.at.x) / time),
            static_cast<float>((last.at.y - from.at.y) / time)};
}

}  // namespace fovix_host
