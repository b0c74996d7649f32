#include "gl/Textures.h"

#include <GL/glew.h>

#include <array>
#include <utility>

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "gl/GlCheck.h"

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixTextures";

constexpr int kScratchSide = 8;  ///< side of the texture that a slot starts with, pixels

/// Bytes beyond each split chroma plane, so that vector code may write whole vectors.
constexpr std::size_t kChromaPadding = 16;

/// Our rows are tightly packed; resets the unpack state that the host may have left.
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

bool fitsHeight(const TextureState& state, int height) {
    if (height <= state.maxTextureSize) return true;
    printLine("Height (%d) exceeds the maximum allowed texture size (%d)\n", height, state.maxTextureSize);
    return false;
}

bool fitsAsYUV(const TextureState& state, const FrameSlot& slot) {
    if (!fitsHeight(state, slot.height)) return false;
    if (slot.width <= state.maxTextureSize) return true;
    printLine("Invalid pixel format for YUYV data.\n");
    return false;
}

/// A frame wider than a texture is cropped on the right.
void uploadWideRGBA(TextureState& state, const FrameSlot& slot) {
    const int textureWidth = state.maxTextureSize;
    state.aspectRatio = textureWidth / slot.height;
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, textureWidth, slot.height, 0, GL_RGBA, GL_UNSIGNED_BYTE, nullptr);
    glCheck(kSource);
    const std::size_t rowBytes = static_cast<std::size_t>(slot.width) * 4;
    for (int row = 0; row < slot.height; ++row) {
        glTexSubImage2D(GL_TEXTURE_2D, 0, 0, row, textureWidth, 1, GL_RGBA, GL_UNSIGNED_BYTE,
                        slot.data.get() + static_cast<std::size_t>(row) * rowBytes);
    }
    glCheck(kSource);
}

void uploadRGBA(TextureState& state, const FrameSlot& slot) {
    if (!fitsHeight(state, slot.height)) return;
    bindToUnit(slot, 0);
    if (slot.width > state.maxTextureSize) return uploadWideRGBA(state, slot);
    state.aspectRatio = 1.0;
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, slot.width, slot.height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 slot.data.get());
    glCheck(kSource);
}

void uploadPlane(const FrameSlot& slot, int unit, int width, int height, const unsigned char* bytes) {
    bindToUnit(slot, unit);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_LUMINANCE, width, height, 0, GL_LUMINANCE, GL_UNSIGNED_BYTE, bytes);
    glCheck(kSource);
}

void uploadPlanes(TextureState& state, const FrameSlot& slot, const unsigned char* u,
                  const unsigned char* v) {
    state.yTextureScaleAdjustment = state.uTextureScaleAdjustment = state.vTextureScaleAdjustment = 1.0;
    state.aspectRatio = 1.0;
    uploadPlane(slot, 1, slot.width, slot.height, slot.data.get());
    uploadPlane(slot, 2, slot.width / 2, slot.height / 2, u);
    uploadPlane(slot, 3, slot.width / 2, slot.height / 2, v);
}

void uploadYUV420P(TextureState& state, const FrameSlot& slot) {
    if (!fitsAsYUV(state, slot)) return;
    const int pixels = slot.width * slot.height;
    const unsigned char* u = slot.data.get() + pixels;
    uploadPlanes(state, slot, u, u + pixels / 4);
}

/// Splits interleaved chroma pairs into two planes; plain loops that the compiler turns into vector code.
void splitPairs(const unsigned char* __restrict pairs, unsigned char* __restrict first,
                unsigned char* __restrict second, std::size_t count) {
    for (std::size_t j = 0; j < count; ++j) {
        first[j] = pairs[2 * j];
        second[j] = pairs[2 * j + 1];
    }
}

void uploadSemiPlanar(TextureState& state, const FrameSlot& slot, bool uFirst) {
    if (!fitsAsYUV(state, slot)) return;
    const auto pixels = static_cast<std::size_t>(slot.width) * static_cast<std::size_t>(slot.height);
    const std::size_t pairs = pixels / 4, bytes = pairs + kChromaPadding;
    if (state.chromaU.size() < bytes) state.chromaU.resize(bytes);
    if (state.chromaV.size() < bytes) state.chromaV.resize(bytes);
    unsigned char* u = state.chromaU.data();
    unsigned char* v = state.chromaV.data();
    splitPairs(slot.data.get() + pixels, uFirst ? u : v, uFirst ? v : u, pairs);
    uploadPlanes(state, slot, u, v);
}

/// Uploads by format; false for a format that has no textures.
bool uploadPicture(TextureState& state, const FrameSlot& slot) {
    switch (slot.pixelFmt) {
        case FOVIX_FORMAT_YUV420P:
            uploadYUV420P(state, slot);
            return true;
        case FOVIX_FORMAT_NV12:
            uploadSemiPlanar(state, slot, true);
            return true;
        case FOVIX_FORMAT_NV21:
            uploadSemiPlanar(state, slot, false);
            return true;
        case FOVIX_FORMAT_RGBA:
            uploadRGBA(state, slot);
            return true;
        default:
            printLine("not support texture. fixelFmt = %d\n", slot.pixelFmt);
            return false;
    }
}

/// Texture names from a previous GL context are invalid.
bool hasTextures(const TextureState& state, const FrameSlot& slot) {
    return slot.dewarperTextureName[0] != kNoTexture && slot.texturesMadeFor == state.prepareCount;
}

}  // namespace

void createFrameTextures(const TextureState& state, FrameSlot& slot) {
    static constexpr unsigned char kBlack[kScratchSide * kScratchSide * 4] = {};
    glGenTextures(4, slot.dewarperTextureName.data());
    glCheck(kSource);
    slot.texturesMadeFor = state.prepareCount;
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
        const GLenum status =
            state.hasFramebufferObjects ? glCheckFramebufferStatus(GL_FRAMEBUFFER) : GL_FRAMEBUFFER_COMPLETE;
        if (status != GL_FRAMEBUFFER_COMPLETE) {
            printLine("Failed to set up texture object %d  with error %d\n", unit, static_cast<int>(status));
            continue;
        }
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, kScratchSide, kScratchSide, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                     kBlack);
    }
}

int refreshTexture(TextureState& state, FrameSlot& slot, bool force) {
    if (!slot.hasNewData && !force) return slot.textureUseful;
    if (!hasTextures(state, slot)) createFrameTextures(state, slot);
    if (!slot.data) {
        printLine("refreshTexture no data\n");
    } else {
        setUnpackState();
        if (uploadPicture(state, slot)) {
            slot.uploadedFmt = slot.pixelFmt;
            slot.textureUseful = 1;
        }
    }
    slot.hasNewData = 0;
    return slot.textureUseful;
}

void bindFrameTextures(const FrameSlot& slot, int pixelFmt) {
    if (pixelFmt != FOVIX_FORMAT_RGBA && pixelFmt != FOVIX_FORMAT_YUV420P && pixelFmt != FOVIX_FORMAT_NV12 &&
        pixelFmt != FOVIX_FORMAT_NV21) {
        printLine("not support texture. fixelFmt = %d\n", pixelFmt);
    }
    // A frame that is being replaced has no format for a moment; its textures still hold the previous one.
    if (slot.uploadedFmt == FOVIX_FORMAT_RGBA) return bindToUnit(slot, 0);
    for (int unit = 1; unit < 4; ++unit) bindToUnit(slot, unit);
}

void bindShownTextures(const FrameSlot& slot) {
    for (int unit = 0; unit < 4; ++unit) bindToUnit(slot, unit);
}

}  // namespace fovix
