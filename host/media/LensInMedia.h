// Searches for the lens circle in an image or in the first minute of a video.
#pragma once

#include <optional>
#include <string>

#include "circle/LensFinder.h"
#include "media/MediaReader.h"

namespace fovix_host {

// Returns nullopt if no circle is visible. Throws std::runtime_error like MediaReader, and when interrupted.
std::optional<FoundLens> findLens(const std::string& input, const MediaReader::Interrupted& interrupted = {});

}  // namespace fovix_host
