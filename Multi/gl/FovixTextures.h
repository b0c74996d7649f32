// Pictures on their way out: from a frame slot's copy into GL textures. GL thread only.
#pragma once

#include "handle/FovixContext.h"

namespace fovix {

/// Makes the four texture names of a slot, each with a small black texture.
void createFrameTextures(FovixContext& context, int slotIndex);

/// Under the lock. Uploads a slot's picture when it is new or force is set; gives the slot's textureUseful.
int refreshTexture(FovixContext& context, int slotIndex, bool force);

/// Binds the textures that hold a slot's picture; pixelFmt is the slot's format as read under the lock.
void bindFrameTextures(const FovixContext& context, int slotIndex, int pixelFmt);

/// Binds all four textures of a slot: between frames the host or another handle may have bound its own.
void bindShownTextures(const FovixContext& context, int slotIndex);

}  // namespace fovix
