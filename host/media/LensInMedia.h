// Looks for the lens circle in a picture or the first minute of a video.
#pragma once

#include <optional>
#include <string>

#include "circle/LensFinder.h"
#include "media/MediaReader.h"

namespace fovix_host {

// Nothing where no circle can be seen. Throws std::runtime_error as MediaReader does, and when interrupted.
std::optional<FoundLens> findLens(const std::string& input, const MediaReader::Interrupted& interrupted = {});

}  // namespace fovix_host
