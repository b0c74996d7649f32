#include "handle/FrameInput.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

#include "base/Diagnostics.h"
#include "base/ProcessLock.h"
#include "handle/FovixHandle.h"

namespace fovix {

namespace {

constexpr unsigned char kBlackLuma = 0, kNeutralChroma = 128;

/// Bytes that a frame may have beyond four per pixel, the most that a format needs: decoders round sizes up.
constexpr int kSpareBytes = 1024;

/// Bytes of a slot's buffer for a frame of any format. The sum needs more than 32 bits for frames that are
/// rejected.
std::int64_t bufferBytes(int width, int height) {
    return std::int64_t{width} * height * 4 + kSpareBytes;
}

bool isFrame(const unsigned char* data, int size, int width, int height) {
    return data && size >= 0 && width > 0 && height > 0 &&
           std::int64_t{width} * height <= std::numeric_limits<int>::max() / 4 &&
           bufferBytes(width, height) <= std::numeric_limits<int>::max();
}

/// Makes the slot's buffer large enough and clears the description of its frame.
void ensureFrameBuffer(FrameSlot& slot, int width, int height) {
    const int need = static_cast<int>(bufferBytes(width, height));
    if (!slot.data || need > slot.capacity) {
        slot.data.reset();
        slot.data.reset(static_cast<unsigned char*>(std::malloc(static_cast<std::size_t>(need))));
        slot.capacity = need;
    }
    slot.pixelFmt = 0;
    slot.width = 0;
    slot.height = 0;
    slot.hasNewData = 0;
}

/// Pads a short frame with black so that stale bytes are never uploaded.
void completeWithBlack(unsigned char* data, int size, int pixelFmt, int width, int height) {
    const int pixels = width * height;
    const int lumaEnd = pixelFmt == FOVIX_FORMAT_RGBA ? pixels * 4 : pixels;
    const int end = pixelFmt == FOVIX_FORMAT_RGBA ? lumaEnd : pixels + 2 * (pixels / 4);
    if (size < lumaEnd) std::memset(data + size, kBlackLuma, static_cast<std::size_t>(lumaEnd - size));
    const int chromaFrom = std::max(size, lumaEnd);
    if (chromaFrom < end)
        std::memset(data + chromaFrom, kNeutralChroma, static_cast<std::size_t>(end - chromaFrom));
}

void copyFrame(FrameSlot& slot, int pixelFmt, int isYUV, const unsigned char* data, int size, int width,
               int height) {
    if (!slot.data) {
        printLine("Texture Buffer is Empty!\n");
        return;
    }
    if (size > slot.capacity) {
        printLine("Texture Buffer is too small[%d < %d]!\n", slot.capacity, size);
        return;
    }
    std::memcpy(slot.data.get(), data, static_cast<std::size_t>(size));
    completeWithBlack(slot.data.get(), size, pixelFmt, width, height);
    slot.pixelFmt = pixelFmt;
    slot.width = width;
    slot.isYUV = isYUV;
    slot.height = height;
    slot.hasNewData = 1;
}

/// A new size of slot 0 moves the lens circle.
void followFrameSize(FovixContext& context, int width, int height) {
    const LockSection section;
    FishEyeConfig& fishEye = context.fishEye;
    if (fishEye.TextureWidth == width && fishEye.TextureHeight == height) return;
    fishEye.TextureWidth = width;
    fishEye.TextureHeight = height;
    RefreshConfig(fishEye);
}

}  // namespace

bool isPixelFormat(int pixelFmt) {
    return pixelFmt == FOVIX_FORMAT_RGBA || pixelFmt == FOVIX_FORMAT_YUV420P ||
           pixelFmt == FOVIX_FORMAT_NV12 || pixelFmt == FOVIX_FORMAT_NV21;
}

void submitFrame(FovixContext& context, int slotIndex, int pixelFmt, const unsigned char* data, int size,
                 int width, int height) {
    if (!isFrame(data, size, width, height)) {
        printLine("Texture Parameter Error! data = %p, size = %d, width = %d, height = %d\n",
                  static_cast<const void*>(data), size, width, height);
        return;
    }
    FrameSlot& slot = context.frames[static_cast<std::size_t>(slotIndex)];
    {
        const LockSection section;
        ensureFrameBuffer(slot, width, height);
    }
    // The lock is free in between: a waiting frame is drawn before the copy, not after it.
    {
        const LockSection section;
        const int isYUV = pixelFmt != FOVIX_FORMAT_RGBA ? 1 : 0;
        context.usingYUV = isYUV;
        // Meanwhile another thread may have submitted a smaller frame, or the context may have been prepared
        // again.
        if (bufferBytes(width, height) > slot.capacity || !slot.data) ensureFrameBuffer(slot, width, height);
        copyFrame(slot, pixelFmt, isYUV, data, size, width, height);
    }
    if (slotIndex == 0) followFrameSize(context, width, height);
}

void forgetFrame(FrameSlot& slot) {
    slot.data.reset();
    slot.width = 0;
    slot.height = 0;
    slot.isYUV = 0;
    slot.hasNewData = 0;
    slot.textureUseful = 0;
}

}  // namespace fovix
