#include "gl/FovixTextures.h"

#include <algorithm>

#include "base/Diagnostics.h"
#include "gl/GlCheck.h"

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixTextures";

constexpr int kScratchSide = 8;  ///< side of the texture that a slot starts with, pixels

FrameSlot& slotOf(FovixContext& context, int slotIndex) {
    return context.frames[static_cast<std::size_t>(slotIndex)];
}
const FrameSlot& slotOf(const FovixContext& context, int slotIndex) {
    return context.frames[static_cast<std::size_t>(slotIndex)];
}

/// Rows lie packed in memory of ours, whatever unpack state the host has left.
void setUnpackState() {
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, 0);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
    glPixelStorei(GL_UNPACK_ROW_LENGTH, 0);
    glPixelStorei(GL_UNPACK_SKIP_ROWS, 0);
    glPixelStorei(GL_UNPACK_SKIP_PIXELS, 0);
    glPixelStorei(GL_UNPACK_SWAP_BYTES, GL_FALSE);
    glCheck(kSource);
}

void bindToUnit(const FrameSlot& slot, int unit) {
    glActiveTexture(static_cast<GLenum>(GL_TEXTURE0 + unit));
    glCheck(kSource);
    glBindTexture(GL_TEXTURE_2D, slot.dewarperTextureName[static_cast<std::size_t>(unit)]);
    glCheck(kSource);
}

bool fitsHeight(const FovixContext& context, int height) {
    if (height <= context.maxTextureSize) return true;
    printLine("Height (%d) exceeds the maximum allowed texture size (%d)\n", height, context.maxTextureSize);
    return false;
}

bool fitsAsYUV(const FovixContext& context, const FrameSlot& slot) {
    if (!fitsHeight(context, slot.height)) return false;
    if (slot.width <= context.maxTextureSize) return true;
    printLine("Invalid pixel format for YUYV data.\n");
    return false;
}

/// A picture wider than a texture shows its left part.
void uploadWideRGBA(FovixContext& context, const FrameSlot& slot) {
    const int textureWidth = context.maxTextureSize;
    context.aspectRatio = textureWidth / slot.height;
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, textureWidth, slot.height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glCheck(kSource);
    const std::size_t rowBytes = static_cast<std::size_t>(slot.width) * 4;
    for (int row = 0; row < slot.height; ++row) {
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, row, textureWidth, 1, GL_RGBA, GL_UNSIGNED_BYTE,
                        slot.data.get() + static_cast<std::size_t>(row) * rowBytes);
    }
    glCheck(kSource);
}

void uploadRGBA(FovixContext& context, const FrameSlot& slot) {
    if (!fitsHeight(context, slot.height)) return;
    bindToUnit(slot, 0);
    if (slot.width > context.maxTextureSize) return uploadWideRGBA(context, slot);
    context.aspectRatio = 1.0;
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, slot.width, slot.height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 slot.data.get());
    glCheck(kSource);
}

void uploadPlane(const FrameSlot& slot, int unit, int width, int height, const unsigned char* bytes) {
    bindToUnit(slot, unit);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_LUMINANCE, width, height, 0, GL_LUMINANCE, GL_UNSIGNED_BYTE, bytes);
    glCheck(kSource);
}

void uploadPlanes(FovixContext& context, const FrameSlot& slot, const unsigned char* u,
                  const unsigned char* v) {
    context.yTextureScaleAdjustment = context.uTextureScaleAdjustment = context.vTextureScaleAdjustment = 1.0;
    context.aspectRatio = 1.0;
    uploadPlane(slot, 1, slot.width, slot.height, slot.data.get());
    uploadPlane(slot, 2, slot.width / 2, slot.height / 2, u);
    uploadPlane(slot, 3, slot.width / 2, slot.height / 2, v);
}

void uploadYUV420P(FovixContext& context, const FrameSlot& slot) {
    if (!fitsAsYUV(context, slot)) return;
    const int pixels = slot.width * slot.height;
    const unsigned char* u = slot.data.get() + pixels;
    uploadPlanes(context, slot, u, u + pixels / 4);
}

/// Splits interleaved chroma pairs into two planes; plain loops that the compiler turns into vector code.
void splitPairs(const unsigned char* __restrict pairs, unsigned char* __restrict first,
                unsigned char* __restrict second, std::size_t count) {
    for (std::size_t j = 0; j < count; ++j) {
        first[j] = pairs[2 * j];
        second[j] = pairs[2 * j + 1];
    }
}

void uploadSemiPlanar(FovixContext& context, const FrameSlot& slot, bool uFirst) {
    if (!fitsAsYUV(context, slot)) return;
    const auto pixels = static_cast<std::size_t>(slot.width) * static_cast<std::size_t>(slot.height);
    const std::size_t pairs = pixels / 4, bytes = pairs + 16;
    if (context.chromaU.size() < bytes) context.chromaU.resize(bytes);
    if (context.chromaV.size() < bytes) context.chromaV.resize(bytes);
    unsigned char* u = context.chromaU.data();
    unsigned char* v = context.chromaV.data();
    splitPairs(slot.data.get() + pixels, uFirst ? u : v, uFirst ? v : u, pairs);
    uploadPlanes(context, slot, u, v);
}

/// Uploads by format; false for a format that has no textures.
bool uploadPicture(FovixContext& context, const FrameSlot& slot) {
    switch (slot.pixelFmt) {
        case FOVIX_FORMAT_YUV420P:
            uploadYUV420P(context, slot);
            return true;
        case FOVIX_FORMAT_NV12:
            uploadSemiPlanar(context, slot, true);
            return true;
        case FOVIX_FORMAT_NV21:
            uploadSemiPlanar(context, slot, false);
            return true;
        case FOVIX_FORMAT_RGBA:
            uploadRGBA(context, slot);
            return true;
        default:
            printLine("not support texture. fixelFmt = %d\n", slot.pixelFmt);
            return false;
    }
}

/// Names of an earlier GL context may be nobody's or the host's own by now.
bool hasTextures(const FovixContext& context, const FrameSlot& slot) {
    return slot.dewarperTextureName[0] != kNoTexture && slot.texturesMadeFor == context.prepareCount;
}

}  // namespace

void createFrameTextures(FovixContext& context, int slotIndex) {
    static constexpr unsigned char kBlack[kScratchSide * kScratchSide * 4] = {};
    FrameSlot& slot = slotOf(context, slotIndex);
    glGenTextures(4, slot.dewarperTextureName.data());
    glCheck(kSource);
    slot.texturesMadeFor = context.prepareCount;
    setUnpackState();
    for (int unit = 0; unit < 4; ++unit) {
        bindToUnit(slot, unit);
        const std::array<std::pair<GLenum, GLint>, 4> parameters = {{{GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE},
                                                                     {GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE},
                                                                     {GL_TEXTURE_MAG_FILTER, GL_LINEAR},
                                                                     {GL_TEXTURE_MIN_FILTER, GL_LINEAR}}};
        for (const auto& [name, value] : parameters) {
            glTexParameteri(GL_TEXTURE_2D, name, value);
            glCheck(kSource);
        }
        const GLenum status = context.hasFramebufferObjects ? glCheckFramebufferStatus(GL_FRAMEBUFFER)
                                                            : GL_FRAMEBUFFER_COMPLETE;
        if (status != GL_FRAMEBUFFER_COMPLETE) {
            printLine("Failed to set up texture object %d  with error %d\n", unit, static_cast<int>(status));
            continue;
        }
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, kScratchSide, kScratchSide, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                     kBlack);
    }
}

int refreshTexture(FovixContext& context, int slotIndex, bool force) {
    FrameSlot& slot = slotOf(context, slotIndex);
    if (!slot.hasNewData && !force) return slot.textureUseful;
    if (!hasTextures(context, slot)) createFrameTextures(context, slotIndex);
    if (!slot.data) {
        printLine("refreshTexture no data\n");
    } else {
        setUnpackState();
        if (uploadPicture(context, slot)) {
            slot.uploadedFmt = slot.pixelFmt;
            slot.textureUseful = 1;
        }
    }
    slot.hasNewData = 0;
    return slot.textureUseful;
}

void bindFrameTextures(const FovixContext& context, int slotIndex, int pixelFmt) {
    const FrameSlot& slot = slotOf(context, slotIndex);
    if (pixelFmt != FOVIX_FORMAT_RGBA && pixelFmt != FOVIX_FORMAT_YUV420P && pixelFmt != FOVIX_FORMAT_NV12 &&
        pixelFmt != FOVIX_FORMAT_NV21) {
        printLine("not support texture. fixelFmt = %d\n", pixelFmt);
    }
    // A picture that is being replaced has no format for a moment: its textures still hold the last one.
    if (slot.uploadedFmt == FOVIX_FORMAT_RGBA) return bindToUnit(slot, 0);
    for (int unit = 1; unit < 4; ++unit) bindToUnit(slot, unit);
}

void bindShownTextures(const FovixContext& context, int slotIndex) {
    const FrameSlot& slot = slotOf(context, slotIndex);
    for (int unit = 0; unit < 4; ++unit) bindToUnit(slot, unit);
}

}  // namespace fovix
