// Which lens circle a view shows: the one given, the one kept for the camera, or the one found in its
// pictures. Says which in a line for the user, and keeps what is to be kept.
#pragma once

#include <optional>
#include <string>

#include "circle/LensFinder.h"

namespace fovix_host {

struct LensRequest {
    std::optional<LensCircle> given;
    std::string camera;  // its name; empty without
};

struct LensChoice {
    std::optional<LensCircle> lens;  // nothing: the library's own, in the middle of the picture
    std::string remark;              // may be empty
};

// Without looking at pictures; nothing where they must be looked at. Throws std::runtime_error where the
// camera's file cannot be read or written.
std::optional<LensChoice> lensAtHand(const LensRequest& request);

// After looking at them. Throws as above.
LensChoice lensAfterSearch(const LensRequest& request, const std::optional<FoundLens>& found);

// What is wrong with this circle for pictures of that size; empty where nothing is. The circle of an image of
// other proportions is no circle in them.
std::string misfitOf(const LensCircle& lens, int width, int height);

}  // namespace fovix_host
