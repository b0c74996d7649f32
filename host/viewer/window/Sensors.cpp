#include "viewer/window/Sensors.h"

#include <SDL.h>

#include <cmath>

namespace fovix_host {
namespace {

constexpr float kGravity = SDL_STANDARD_GRAVITY;
constexpr float kDeadZone = 0.08f;   // share of gravity; hands are never still
constexpr float kTurnFactor = 0.3f;  // the panorama keeps turning with each reading
constexpr float kLookFactor = 2.5f;  // the 180-degree view looks in the direction of the tilt

float share(float reading) {
    const float part = reading / kGravity;
    return std::isfinite(part) && std::abs(part) > kDeadZone ? part : 0.0f;
}

}  // namespace

bool openAccelerometers() {
    if (SDL_InitSubSystem(SDL_INIT_SENSOR) != 0) return false;
    bool found = false;
    for (int i = 0; i < SDL_NumSensors(); ++i)
        if (SDL_SensorGetDeviceType(i) == SDL_SENSOR_ACCEL && SDL_SensorOpen(i)) found = true;
    return found;
}

void steerByAcceleration(VRHANDLE view, float x, float y) {
    const float factor = Fovix_GetType(view) == FOVIX_TYPE_360VR ? kTurnFactor : kLookFactor;
    Fovix_OnAccelerometer(view, share(x) * factor, share(y) * factor);
}

}  // namespace fovix_host
