#include "touch/DeviceTurn.h"

#include <algorithm>
#include <cmath>

namespace fovix {

namespace {

/// Degrees between two events: smaller turns are noise of the sensor, larger ones jumps of its zero point.
constexpr double kSmallestTurn = 0.6, kLargestTurn = 20.0;

float withoutNoise(float turn) {
    return std::abs(turn) > kSmallestTurn ? turn : 0.0f;
}

}  // namespace

std::optional<DeviceTurn> turnOfDevice(DeviceOrientation& last, float a, float b, float c) {
    const float da = a - last.mLastOrientationA.exchange(a);
    const float db = b - last.mLastOrientationB.exchange(b);
    const float dc = c - last.mLastOrientationC.exchange(c);
    if (std::max({std::abs(da), std::abs(db), std::abs(dc)}) > kLargestTurn) return std::nullopt;
    return DeviceTurn{.tilt = withoutNoise(da), .pan = withoutNoise(dc)};
}

}  // namespace fovix
