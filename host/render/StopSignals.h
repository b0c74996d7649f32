// SIGINT, SIGTERM and SIGHUP end the work after the frame in progress, so that its file can be finished. A
// second one ends the program at once.
#pragma once

#include <string>

namespace fovix_host {

// Signals that are ignored, as SIGHUP under nohup, stay so.
void catchStopSignals();

// The one that came, or 0.
int stopSignal();

// "stopped by SIGINT"
std::string stopText();

}  // namespace fovix_host
