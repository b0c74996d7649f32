// Steering by tilting the device, if SDL supports its accelerometer.
#pragma once

#include <Fovix.h>

namespace fovix_host {

// Returns false if there is none. The sensors stay open until SDL quits.
bool openAccelerometers();

// A reading in metres per second squared, sideways and upright.
void steerByAcceleration(VRHANDLE view, float x, float y);

}  // namespace fovix_host
