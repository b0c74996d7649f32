// How far a device turned since its last orientation event, for the views that follow it.
#pragma once

#include <optional>

#include "base/Cell.h"

namespace fovix {

/// The angles of the last event, degrees.
struct DeviceOrientation {
    Cell<float> mLastOrientationA = 0.0f, mLastOrientationB = 0.0f, mLastOrientationC = 0.0f;
};

/// Degrees; 0 where the device turned too little to count.
struct DeviceTurn {
    float tilt = 0.0f, pan = 0.0f;
};

/// Stores the angles of an event. Returns the turn since the last one; nothing after a jump.
std::optional<DeviceTurn> turnOfDevice(DeviceOrientation& last, float a, float b, float c);

}  // namespace fovix
