// Steering by the tilt of the device, where SDL knows an accelerometer.
#pragma once

#include <Fovix.h>

namespace fovix_host {

// False where there is none. They stay open until SDL ends.
bool openAccelerometers();

// A reading in metres per second squared, sideways and upright.
void steerByAcceleration(VRHANDLE view, float x, float y);

}  // namespace fovix_host
