// Frames on their way out: from a slot's copy into GL textures. GL thread only.
#pragma once

#include <vector>

#include "device/FrameSlot.h"

namespace fovix {

/// What uploads need to know of the GL context, and how the shader reads what they made.
struct TextureState {
    int prepareCount = 0;    ///< contexts prepared so far; textures of older ones are invalid
    int maxTextureSize = 0;  ///< pixels a side
    bool hasFramebufferObjects = false;
    double yTextureScaleAdjustment = 1.0, uTextureScaleAdjustment = 1.0, vTextureScaleAdjustment = 1.0;
    double aspectRatio = 0.0;
    std::vector<unsigned char> chromaU, chromaV;  ///< planes split from interleaved chroma
};

/// Makes the four texture names of a slot, each with a small black texture.
void createFrameTextures(const TextureState& state, FrameSlot& slot);

/// Under the lock. Uploads a slot's frame when it is new or force is set; returns the slot's textureUseful.
int refreshTexture(TextureState& state, FrameSlot& slot, bool force);

/// Binds the textures that hold a slot's frame; pixelFmt is the slot's format as read under the lock.
void bindFrameTextures(const FrameSlot& slot, int pixelFmt);

/// Binds all four textures of a slot: between frames the host or another handle may have bound its own.
void bindShownTextures(const FrameSlot& slot);

}  // namespace fovix
