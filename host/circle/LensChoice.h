// Chooses the lens circle of a view: the given one, the one stored for the camera, or the one found in its
// frames. Reports the choice and saves it if requested.
#pragma once

#include <optional>
#include <string>

#include "circle/LensFinder.h"

namespace fovix_host {

struct LensRequest {
    std::optional<LensCircle> given;
    std::string camera;  // name to load and save under; empty without
};

struct LensChoice {
    std::optional<LensCircle> lens;  // nullopt: the library's centred circle
    std::string message;             // for the user; may be empty
};

// The choice without a search; nullopt if frames must be searched. Throws std::runtime_error if the camera's
// file cannot be read or written.
std::optional<LensChoice> lensWithoutSearch(const LensRequest& request);

// The choice after a search. Throws like lensWithoutSearch().
LensChoice lensAfterSearch(const LensRequest& request, const std::optional<FoundLens>& found);

// Returns a warning if the circle's image and frames of this size have different aspect ratios, in which case
// the circle would be distorted; else an empty string.
std::string misfitOf(const LensCircle& lens, int width, int height);

}  // namespace fovix_host
