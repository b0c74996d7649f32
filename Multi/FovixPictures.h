// Pictures on their way in: the copy of what a host hands over, per frame slot. Any thread.
#pragma once

#include "handle/FovixContext.h"

namespace fovix {

/// The formats that the library takes; other codes are refused.
bool isPixelFormat(int pixelFmt);

/// Copies a picture into a frame slot and marks it new; a new size in slot 0 refreshes the lens circle.
/// Refuses, with one line and no change, what cannot be a picture: null data, negative size, no pixels, more
/// than 31 bits of bytes.
void setPicture(FovixContext& context, int slotIndex, int pixelFmt, const unsigned char* data, int size,
                int width, int height);

/// Stores the size of the picture in slot 0 and works the lens circle out again when it is another one.
void followPictureSize(FovixContext& context, int width, int height);

/// Under the lock. Drops a slot's picture and says that its textures hold none.
void forgetPicture(FrameSlot& slot);

}  // namespace fovix
