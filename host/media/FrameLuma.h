// The luma of decoded frames, for the lens search.
#pragma once

#include <optional>

#include "image/GreyImage.h"
#include "media/FramePacker.h"

namespace fovix_host {

// Works for every packed frame.
LumaView lumaOf(const PackedFrame& frame);

// Returns nullopt for frames without a plane of 8-bit luma, which need FramePacker first.
std::optional<LumaView> lumaOf(const AVFrame& frame);

}  // namespace fovix_host
