// The GL device: draws into the framebuffer that the host has bound in its compatibility context.
#pragma once

#include "device/Device.h"
#include "gl/Programs.h"
#include "gl/Textures.h"
#include "gl/VertexBinding.h"

namespace fovix {

/// Everything made in the context of the last prepare.
struct GlParams : DeviceParams {
    Programs programs;
    TextureState textures;
    VertexBinding vertices;
};

/// Makes no GL call: the first is its prepare() or setViewport().
DevicePtr GlDevice_Create();

}  // namespace fovix
