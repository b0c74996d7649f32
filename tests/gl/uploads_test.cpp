// Uploads: the bytes that reach the textures are the picture's, all of them and no others, whatever its size
// and format and whatever state the host's GL is in.
#include <gtest/gtest.h>

#include "HeadlessGl.h"
#include "gl/GlDevice.h"
#include "handle/FovixContext.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#endif

namespace fovix_test {
namespace {

/// Level 0 of one of slot 0's textures, 4 bytes per pixel in the first and 1 in the others, is of this size
/// and its byte i is expected(i).
template <class Expected>
testing::AssertionResult holds(const Stage& stage, int unit, int width, int height, Expected&& expected) {
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glBindTexture(GL_TEXTURE_2D, stage.view->frames[0].dewarperTextureName[static_cast<std::size_t>(unit)]);
    GLint actualWidth = 0, actualHeight = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &actualWidth);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &actualHeight);
    if (actualWidth != width || actualHeight != height)
        return testing::AssertionFailure()
               << "texture " << unit << ": " << actualWidth << "x" << actualHeight;
    Bytes bytes(static_cast<std::size_t>(width * height * (unit == 0 ? 4 : 1)));
    if (bytes.empty()) return testing::AssertionSuccess();
    glGetTexImage(GL_TEXTURE_2D, 0, unit == 0 ? GL_RGBA : GL_RED, GL_UNSIGNED_BYTE, bytes.data());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != expected(i))
            return testing::AssertionFailure() << "texture " << unit << ", byte " << i << ": actual "
                                               << int{bytes[i]} << ", expected " << int{expected(i)};
    }
    return testing::AssertionSuccess();
}

std::size_t pictureBytes(int pixelFmt, int width, int height) {
    const auto pixels = static_cast<std::size_t>(width * height);
    return pixelFmt == FOVIX_FORMAT_RGBA ? pixels * 4 : pixels + 2 * (pixels / 4);
}

/// The byte at place i of a picture's memory; no two neighbours alike, rows and planes all different.
std::uint8_t byteAt(std::size_t i) {
    return static_cast<std::uint8_t>(i * 31 + (i >> 8) * 7 + 3);
}

/// The textures hold the picture whose memory holds byteAt.
testing::AssertionResult holdsPicture(const Stage& stage, int pixelFmt, int width, int height) {
    if (pixelFmt == FOVIX_FORMAT_RGBA) return holds(stage, 0, width, height, byteAt);
    const std::size_t u = pictureBytes(1, width, height) / 4, quarter = u / 4;
    const bool planar = pixelFmt == FOVIX_FORMAT_YUV420P, vFirst = pixelFmt == FOVIX_FORMAT_NV21;
    const auto chroma = [&](int unit, bool second) {
        return holds(stage, unit, width / 2, height / 2, [=](std::size_t i) {
            return byteAt(planar ? u + second * quarter + i : u + second + 2 * i);
        });
    };
    testing::AssertionResult result = holds(stage, 1, width, height, byteAt);
    if (result) result = chroma(2, vFirst);
    return result ? chroma(3, !vFirst) : result;
}

TEST(Uploads, BringTheBytesOfEverySize) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 8, 8);
    const auto checkSize = [&](int pixelFmt, int width, int height) {
        const std::size_t size = pictureBytes(pixelFmt, width, height);
        Bytes bytes(size);
        for (std::size_t i = 0; i < size; ++i) bytes[i] = byteAt(i);
        stage.show(pixelFmt, bytes, width, height);
        // Neither the setter may read beyond the picture nor the upload beyond its copy.
        const fovix::FrameSlot& slot = stage.view->frames[0];
        const std::size_t behind = static_cast<std::size_t>(slot.capacity) - size;
        ASAN_POISON_MEMORY_REGION(slot.data.get() + size, behind);
        const std::string lines = printedBy(Fovix_Drawself, stage.view);
        ASAN_UNPOISON_MEMORY_REGION(slot.data.get() + size, behind);
        EXPECT_EQ(lines.find("OpenGLError"), std::string::npos);
        EXPECT_TRUE(holdsPicture(stage, pixelFmt, width, height))
            << width << "x" << height << ", code " << pixelFmt;
    };
    for (const int pixelFmt : {1, 3, 9, 10}) {
        for (int length = 1; length <= 130 && !HasFailure(); ++length) {
            for (const int other : {1, 2, 3, 5, 64, 97, 130}) {
                checkSize(pixelFmt, length, other);
                checkSize(pixelFmt, other, length);
            }
        }
    }
}

/// The state of a host that uploads and draws in its own ways.
void imposeHostileState() {
    GLuint buffers[2] = {}, array = 0, texture = 0;
    glGenBuffers(2, buffers);
    glGenVertexArrays(1, &array);
    glGenTextures(1, &texture);
    glBindVertexArray(array);
    glBindBuffer(GL_ARRAY_BUFFER, buffers[0]);
    glBufferData(GL_ARRAY_BUFFER, 64, nullptr, GL_STATIC_DRAW);
    glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffers[1]);
    glBufferData(GL_PIXEL_UNPACK_BUFFER, 64, nullptr, GL_STATIC_DRAW);
    for (const GLenum name : {GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS,
                              GL_UNPACK_SWAP_BYTES, GL_UNPACK_ALIGNMENT})
        glPixelStorei(name, 8);
    glUseProgram(0);
    for (const GLenum unit : {GL_TEXTURE0, GL_TEXTURE1, GL_TEXTURE2, GL_TEXTURE3, GL_TEXTURE7}) {
        glActiveTexture(unit);
        glBindTexture(GL_TEXTURE_2D, texture);
    }
    glDisable(GL_DEPTH_TEST);
    glBlendFunc(GL_ONE, GL_ONE);
    glClearColor(1, 1, 1, 1);
    glViewport(3, 3, 2, 2);
}

TEST(HostileHost, FramesAreRightWhateverTheHostLeft) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 61, 47);
    const Image rgba = Image::chequered(61, 47);
    const auto drawsLike = [&](const Image& expected) {
        imposeHostileState();
        return looksLike(stage.draw(), expected);
    };
    std::vector<Image> ofPlanes;
    for (const int pixelFmt : {FOVIX_FORMAT_YUV420P, FOVIX_FORMAT_NV12}) {
        stage.show(rgba, pixelFmt);
        ofPlanes.push_back(stage.draw());
    }
    stage.show(rgba);
    EXPECT_TRUE(drawsLike(rgba));
    EXPECT_TRUE(drawsLike(rgba)) << "a frame without a new picture";
    for (const int pixelFmt : {FOVIX_FORMAT_YUV420P, FOVIX_FORMAT_NV12}) {
        stage.show(rgba, pixelFmt);
        EXPECT_TRUE(drawsLike(ofPlanes[pixelFmt == FOVIX_FORMAT_NV12])) << "code " << pixelFmt;
        EXPECT_EQ(stage.lines, "");
    }
    imposeHostileState();
    printedBy(Fovix_Prepare, stage.view);
    stage.show(rgba);
    EXPECT_TRUE(drawsLike(rgba)) << "prepared in the host's state";
}

testing::AssertionResult holdsImage(const Stage& stage, const Image& image) {
    return holds(stage, 0, image.width, image.height, [&](std::size_t i) { return image.bytes[i]; });
}

fovix::TextureState& texturesOf(const View& view) {
    return fovix::paramsOf<fovix::GlParams>(*view->device).textures;
}

TEST(TextureLimit, WideRgbaPicturesShowTheirLeftPart) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 260, 40);
    texturesOf(stage.view).maxTextureSize = 64;
    // Every column is as red as the last one and 4 levels more, or 200.
    const auto column = [](double x) {
        return rgb(static_cast<unsigned>(std::min(4 * x, 200.0) + 0.5) << 16);
    };
    const Image fitting = Image::chequered(64, 64);
    stage.show(Image::of(130, 20, [&](int x, int) { return column(x); }));
    const Image shown = stage.draw();
    EXPECT_TRUE(holdsImage(stage, Image::of(64, 20, [&](int x, int) { return column(x); })));
    // 64 / 20 in whole numbers times as wide: the texture's middle third fills the picture's place.
    EXPECT_TRUE(looksLike(shown, Image::of(260, 40, [&](int x, int) {
                              return column(((x + 0.5) / 260 - 0.5) * 64 / 3 + 31.5);
                          })));
    stage.show(fitting);
    stage.draw();
    EXPECT_EQ(texturesOf(stage.view).aspectRatio, 1.0);
    EXPECT_TRUE(holdsImage(stage, fitting));
}

TEST(TextureLimit, WhatCannotBeUploadedIsReportedAndTheTextureStays) {
    const std::string tooTall = "Height (65) exceeds the maximum allowed texture size (64)\n";
    const std::string tooWide = "Invalid pixel format for YUYV data.\n";
    const struct {
        int pixelFmt, width, height;
    } cases[] = {{1, 10, 65}, {3, 65, 65}, {9, 10, 65}, {3, 65, 10}, {10, 65, 10}};
    for (const auto& [pixelFmt, width, height] : cases) {
        SCOPED_TRACE(testing::Message() << "code " << pixelFmt << ", " << width << "x" << height);
        Stage stage(FOVIX_TYPE_ORIGINAL, 32, 32);
        texturesOf(stage.view).maxTextureSize = 64;
        stage.show(Image::chequered(32, 32));
        stage.draw();
        stage.show(pixelFmt, Bytes(pictureBytes(pixelFmt, width, height), 200), width, height);
        stage.draw();
        EXPECT_NE(stage.lines.find(height > 64 ? tooTall : tooWide), std::string::npos) << stage.lines;
        EXPECT_TRUE(holdsImage(stage, Image::chequered(32, 32)));
        stage.draw();
        EXPECT_EQ(stage.lines, "") << "a picture is tried once";
    }
}

}  // namespace
}  // namespace fovix_test
