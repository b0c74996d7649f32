// Names of screenshots: after the time, and never those of files that exist.
#pragma once

#include <ctime>
#include <string>

namespace fovix_host {

// "FOLDER/fovix-2026-11-23-004512.png", with -2 and so on before the ending where that exists.
std::string screenshotName(const std::string& folder, const std::tm& time);

// For now, in the current folder, or in the user's home where nothing can be written there.
std::string screenshotName();

}  // namespace fovix_host
