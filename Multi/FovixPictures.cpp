#include "FovixPictures.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

#include "base/Diagnostics.h"
#include "handle/FovixHandle.h"

namespace fovix {

namespace {

constexpr unsigned char kBlackLuma = 0, kNeutralChroma = 128;

/// Bytes of a slot's buffer for a picture of any format; the sum needs more than 32 bits for what is refused.
std::int64_t bufferBytes(int width, int height) {
    return std::int64_t{width} * height * 4 + 1024;
}

bool isPicture(const unsigned char* data, int size, int width, int height) {
    return data && size >= 0 && width > 0 && height > 0 &&
           std::int64_t{width} * height <= std::numeric_limits<int>::max() / 4 &&
           bufferBytes(width, height) <= std::numeric_limits<int>::max();
}

/// Makes the slot's buffer large enough and clears the description of its picture.
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

/// What a short picture leaves open becomes black, so that no stale byte reaches a texture.
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

}  // namespace

bool isPixelFormat(int pixelFmt) {
    return pixelFmt == FOVIX_FORMAT_RGBA || pixelFmt == FOVIX_FORMAT_YUV420P ||
           pixelFmt == FOVIX_FORMAT_NV12 || pixelFmt == FOVIX_FORMAT_NV21;
}

void setPicture(FovixContext& context, int slotIndex, int pixelFmt, const unsigned char* data, int size,
                int width, int height) {
    if (!isPicture(data, size, width, height)) {
        printLine("Texture Parameter Error! data = %p, size = %d, width = %d, height = %d\n",
                  static_cast<const void*>(data), size, width, height);
        return;
    }
    FrameSlot& slot = context.frames[static_cast<std::size_t>(slotIndex)];
    {
        const LockSection section(context.lock);
        ensureFrameBuffer(slot, width, height);
    }
    {
        const LockSection section(context.lock);
        const int isYUV = pixelFmt != FOVIX_FORMAT_RGBA ? 1 : 0;
        context.usingYUV = isYUV;
        // Another thread may have handed a smaller picture in, or the context been prepared anew, between the
        // holds.
        if (bufferBytes(width, height) > slot.capacity || !slot.data) ensureFrameBuffer(slot, width, height);
        copyFrame(slot, pixelFmt, isYUV, data, size, width, height);
    }
    if (slotIndex == 0) followPictureSize(context, width, height);
}

void followPictureSize(FovixContext& context, int width, int height) {
    const LockSection section(context.lock);
    FishEyeConfig& fishEye = context.fishEye;
    if (fishEye.TextureWidth == width && fishEye.TextureHeight == height) return;
    fishEye.TextureWidth = width;
    fishEye.TextureHeight = height;
    RefreshConfig(fishEye);
}

void forgetPicture(FrameSlot& slot) {
    slot.data.reset();
    slot.width = 0;
    slot.height = 0;
    slot.isYUV = 0;
    slot.hasNewData = 0;
    slot.textureUseful = 0;
}

}  // namespace fovix

using fovix::setPicture;
using fovix::withContext;

void Fovix_SetRGBTexture(VRHANDLE handle, const unsigned char* data, int size, int width, int height) {
    withContext(handle, [&](FovixContext& context) {
        setPicture(context, 0, FOVIX_FORMAT_RGBA, data, size, width, height);
    });
}

void Fovix_SetYUV420PTexture(VRHANDLE handle, const unsigned char* data, int size, int width, int height) {
    withContext(handle, [&](FovixContext& context) {
        setPicture(context, 0, FOVIX_FORMAT_YUV420P, data, size, width, height);
    });
}

void Fovix_SetTexture(VRHANDLE handle, int pixelFmt, const unsigned char* data, int size, int width,
                      int height) {
    withContext(handle, [&](FovixContext& context) {
        if (fovix::isPixelFormat(pixelFmt)) setPicture(context, 0, pixelFmt, data, size, width, height);
    });
}
