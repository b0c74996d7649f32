// File names for screenshots: from the current time, and never those of existing files.
#pragma once

#include <ctime>
#include <string>

namespace fovix_host {

// "FOLDER/fovix-2026-11-23-004512.png"; if that exists, with -2 and so on before the ending.
std::string screenshotName(const std::string& folder, const std::tm& time);

// For the current time, in the current folder or, if that is not writable, in the user's home.
std::string screenshotName();

}  // namespace fovix_host
