// Frames on their way in: the copy of what the host submits, one per frame slot. Any thread.
#pragma once

#include "handle/FovixContext.h"

namespace fovix {

/// Returns whether the library knows a pixel format.
bool isPixelFormat(int pixelFmt);

/// Copies a frame into a slot and marks it new; a new size in slot 0 refreshes the lens circle. Rejects with
/// a line, and changes nothing, for null data, a negative size, no pixels, or more bytes than 31 bits count.
void submitFrame(FovixContext& context, int slotIndex, int pixelFmt, const unsigned char* data, int size,
                 int width, int height);

/// Under the lock. Drops a slot's frame; its textures count as empty.
void forgetFrame(FrameSlot& slot);

}  // namespace fovix
