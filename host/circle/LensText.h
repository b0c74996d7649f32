// Lens circles as text: CX,CY,RADIUS,W,H.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "circle/LensCircle.h"

namespace fovix_host {

// What lensIn() accepts, for error messages.
constexpr std::string_view kExpectedLens =
    "five whole numbers above 0, separated by commas (centre x, centre y and radius of the lens circle, "
    "width "
    "and height of the image they refer to)";

std::optional<LensCircle> lensIn(std::string_view text);
std::string textOf(const LensCircle& lens);

}  // namespace fovix_host
