// The luma of decoded pictures, for the search of the lens circle.
#pragma once

#include <optional>

#include "image/GreyImage.h"
#include "media/FramePacker.h"

namespace fovix_host {

// Of any picture that goes to the library.
LumaView lumaOf(const PackedFrame& picture);

// Nothing for frames without a plane of 8-bit luma; the packer makes something of those.
std::optional<LumaView> lumaOf(const AVFrame& frame);

}  // namespace fovix_host
