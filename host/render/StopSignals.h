// SIGINT, SIGTERM and SIGHUP stop the program after the current frame, so that its file can be completed. A
// second signal kills it at once.
#pragma once

#include <string>

namespace fovix_host {

// Leaves signals alone that are ignored, such as SIGHUP under nohup.
void catchStopSignals();

// The signal received, or 0.
int stopSignal();

// "stopped by SIGINT"
std::string stopText();

}  // namespace fovix_host
