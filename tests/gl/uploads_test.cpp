// Uploads: the bytes that reach the textures are the picture's, all of them and no others, whatever its size
// and format and whatever state the host's GL is in.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <numeric>

#include "FovixContext.h"
#include "HeadlessGl.h"
#include "PlainPicture.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) ((void)(address), (void)(size))
#endif

namespace fovix_test {
namespace {

/// Level 0 of one of slot 0's textures, packed; empty when its size is not the wanted one.
std::vector<std::uint8_t> textureBytes(const FovixContext& context, int unit, int width, int height) {
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glBindTexture(GL_TEXTURE_2D, context.frames[0].dewarperTextureName[static_cast<std::size_t>(unit)]);
    GLint actualWidth = 0, actualHeight = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &actualWidth);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &actualHeight);
    if (actualWidth != width || actualHeight != height) return {};
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
                                    (unit == 0 ? 4 : 1));
    if (!bytes.empty()) {
        glGetTexImage(GL_TEXTURE_2D, 0, unit == 0 ? GL_RGBA : GL_RED, GL_UNSIGNED_BYTE, bytes.data());
    }
    return bytes;
}

std::size_t pictureBytes(int pixelFmt, int width, int height) {
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return pixelFmt == FOVIX_FORMAT_RGBA ? pixels * 4 : pixels + 2 * (pixels / 4);
}

/// The byte at place i of a picture's memory; no two neighbours alike, rows and planes all different.
std::uint8_t byteAt(std::size_t i) {
    return static_cast<std::uint8_t>((i * 31 + (i >> 8) * 7 + 3) & 0xFF);
}

/// What each texture must hold of a picture whose memory holds byteAt: place(i) of texture byte i.
testing::AssertionResult holds(const FovixContext& context, int unit, int width, int height, std::size_t from,
                               std::size_t stride) {
    const std::vector<std::uint8_t> actual = textureBytes(context, unit, width, height);
    const auto count =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * (unit == 0 ? 4 : 1);
    if (actual.size() != count)
        return testing::AssertionFailure() << "texture " << unit << " has another size";
    for (std::size_t i = 0; i < count; ++i) {
        if (actual[i] == byteAt(from + i * stride)) continue;
        return testing::AssertionFailure()
               << "texture " << unit << ", byte " << i << ": actual " << int{actual[i]} << ", expected "
               << int{byteAt(from + i * stride)};
    }
    return testing::AssertionSuccess();
}

testing::AssertionResult holdsPicture(const FovixContext& context, int pixelFmt, int width, int height) {
    if (pixelFmt == FOVIX_FORMAT_RGBA) return holds(context, 0, width, height, 0, 1);
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    const bool planar = pixelFmt == FOVIX_FORMAT_YUV420P;
    const std::size_t second = pixels + (planar ? pixels / 4 : 1), stride = planar ? 1 : 2;
    const bool uFirst = pixelFmt != FOVIX_FORMAT_NV21;
    const testing::AssertionResult planes[] = {
        holds(context, 1, width, height, 0, 1),
        holds(context, 2, width / 2, height / 2, uFirst ? pixels : second, stride),
        holds(context, 3, width / 2, height / 2, uFirst ? second : pixels, stride)};
    for (const testing::AssertionResult& plane : planes) {
        if (!plane) return plane;
    }
    return testing::AssertionSuccess();
}

/// Hands a picture in from a block of just its size and draws; what lies behind it in the library's own copy
/// is out of bounds for the upload.
void handInAndDraw(FovixContext& context, int pixelFmt, int width, int height) {
    const std::size_t size = pictureBytes(pixelFmt, width, height);
    {
        const std::unique_ptr<std::uint8_t[]> block(new std::uint8_t[size]);
        for (std::size_t i = 0; i < size; ++i) block[i] = byteAt(i);
        Fovix_SetTexture(&context, pixelFmt, block.get(), static_cast<int>(size), width, height);
    }
    const fovix::FrameSlot& slot = context.frames[0];
    ASSERT_GE(static_cast<std::size_t>(slot.capacity), size);
    ASAN_POISON_MEMORY_REGION(slot.data.get() + size, static_cast<std::size_t>(slot.capacity) - size);
    Fovix_Drawself(&context);
    ASAN_UNPOISON_MEMORY_REGION(slot.data.get() + size, static_cast<std::size_t>(slot.capacity) - size);
}

class EveryFormat : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(Uploads, EveryFormat,
                         testing::Values(FOVIX_FORMAT_RGBA, FOVIX_FORMAT_YUV420P, FOVIX_FORMAT_NV12,
                                         FOVIX_FORMAT_NV21));

TEST_P(EveryFormat, UploadsTheBytesOfEverySize) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 8, 8);
    FovixContext& context = *stage.view;
    const auto checkSize = [&](int width, int height) {
        handInAndDraw(context, GetParam(), width, height);
        ASSERT_TRUE(holdsPicture(context, GetParam(), width, height)) << width << "x" << height;
    };
    const std::string lines = printedBy([&] {
        for (int length = 1; length <= 130 && !HasFatalFailure(); ++length) {
            for (const int other : {1, 2, 3, 5, 64, 97, 130}) {
                checkSize(length, other);
                checkSize(other, length);
            }
        }
    });
    EXPECT_EQ(lines.find("OpenGLError"), std::string::npos);
}

/// The state of a host that uploads and draws in its own ways.
class HostileState {
  public:
    HostileState() {
        glGenBuffers(2, buffers_);
        glGenVertexArrays(1, &array_);
        glBindBuffer(GL_ARRAY_BUFFER, buffers_[0]);
        glBufferData(GL_ARRAY_BUFFER, 64, nullptr, GL_STATIC_DRAW);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffers_[1]);
        glBufferData(GL_PIXEL_UNPACK_BUFFER, 64, nullptr, GL_STATIC_DRAW);
        program_ = glCreateProgram();
        const GLuint shader = glCreateShader(GL_VERTEX_SHADER);
        const char* source = "#version 120\nattribute vec4 p; void main() { gl_Position = p * 0.0; }";
        glShaderSource(shader, 1, &source, nullptr);
        glCompileShader(shader);
        glAttachShader(program_, shader);
        glLinkProgram(program_);
        glGenTextures(1, &texture_);
    }

    void impose() const {
        glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
        glPixelStorei(GL_UNPACK_ROW_LENGTH, 1000);
        glPixelStorei(GL_UNPACK_SKIP_ROWS, 9);
        glPixelStorei(GL_UNPACK_SKIP_PIXELS, 11);
        glPixelStorei(GL_UNPACK_SWAP_BYTES, GL_TRUE);
        glBindVertexArray(array_);
        glBindBuffer(GL_ARRAY_BUFFER, buffers_[0]);
        glBindBuffer(GL_PIXEL_UNPACK_BUFFER, buffers_[1]);
        glUseProgram(program_);
        for (const GLenum unit : {GL_TEXTURE0, GL_TEXTURE1, GL_TEXTURE2, GL_TEXTURE3, GL_TEXTURE7}) {
            glActiveTexture(unit);
            glBindTexture(GL_TEXTURE_2D, texture_);
        }
        glDisable(GL_DEPTH_TEST);
        glBlendFunc(GL_ONE, GL_ONE);
        glClearColor(1, 1, 1, 1);
        glViewport(3, 3, 2, 2);
    }

  private:
    GLuint buffers_[2] = {}, array_ = 0, program_ = 0, texture_ = 0;
};

TEST(HostileHost, FramesAreRightWhateverTheHostLeft) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 61, 47);
    const HostileState host;
    const Image rgba = quadrants(61, 47);
    const YuvPicture yuv = YuvPicture::sample(61, 47);
    const double shape = 47.0 / 61;
    const Image rgbaShown = flatPicture(sampled(rgba), {shape}, 61, 47, rgb(0));
    const Image yuvShown = flatPicture(sampled(yuv), {shape}, 61, 47, rgb(0));
    const auto drawsLike = [&](const Image& expected) {
        host.impose();
        return looksLike(stage.draw(), expected);
    };
    stage.show(rgba);
    EXPECT_TRUE(drawsLike(rgbaShown));
    EXPECT_TRUE(drawsLike(rgbaShown)) << "a frame without a new picture";
    for (const int pixelFmt : {FOVIX_FORMAT_YUV420P, FOVIX_FORMAT_NV12}) {
        const std::vector<std::uint8_t> bytes = yuv.packed(pixelFmt);
        printedBy([&] {
            Fovix_SetTexture(stage.view, pixelFmt, bytes.data(), static_cast<int>(bytes.size()), 61, 47);
        });
        EXPECT_TRUE(drawsLike(yuvShown)) << "code " << pixelFmt;
        EXPECT_EQ(stage.lines, "");
    }
    host.impose();
    printedBy([&] { Fovix_Prepare(stage.view); });
    stage.show(rgba);
    EXPECT_TRUE(drawsLike(rgbaShown)) << "prepared in the host's state";
}

TEST(TextureLimit, WideRgbaPicturesShowTheirLeftPart) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 260, 40);
    FovixContext& context = *stage.view;
    context.maxTextureSize = 64;
    const Image wide = quadrants(130, 20);
    stage.show(wide);
    const Image shown = stage.draw();
    EXPECT_EQ(context.aspectRatio, 3.0) << "64 / 20 in whole numbers";
    const Image left = Image::of(64, 20, [&](int x, int y) { return wide.at(x, y); });
    EXPECT_EQ(textureBytes(context, 0, 64, 20), left.bytes);
    // Three times as wide around the middle: the texture's middle third fills the picture's place... and the
    // rest of it is cut off.
    const Sampler texture = sampled(left);
    const Sampler stretched = [&](double u, double v) { return texture((u - 0.5) / 3.0 + 0.5, v); };
    EXPECT_TRUE(looksLike(shown, flatPicture(stretched, {20.0 / 130}, 260, 40, rgb(0))));
    const Image fitting = quadrants(64, 64);
    stage.show(fitting);
    stage.draw();
    EXPECT_EQ(context.aspectRatio, 1.0);
    EXPECT_EQ(textureBytes(context, 0, 64, 64), fitting.bytes);
}

TEST(TextureLimit, WhatCannotBeUploadedIsReportedAndTheTextureStays) {
    struct Case {
        int pixelFmt, width, height;
        const char* line;
    };
    const char* const tooTall = "Height (65) exceeds the maximum allowed texture size (64)\n";
    const Case cases[] = {{FOVIX_FORMAT_RGBA, 10, 65, tooTall},
                          {FOVIX_FORMAT_YUV420P, 65, 65, tooTall},
                          {FOVIX_FORMAT_NV12, 10, 65, tooTall},
                          {FOVIX_FORMAT_YUV420P, 65, 10, "Invalid pixel format for YUYV data.\n"},
                          {FOVIX_FORMAT_NV21, 65, 10, "Invalid pixel format for YUYV data.\n"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "code " << c.pixelFmt << ", " << c.width << "x" << c.height);
        Stage stage(FOVIX_TYPE_ORIGINAL, 32, 32);
        FovixContext& context = *stage.view;
        context.maxTextureSize = 64;
        const Image before = quadrants(32, 32);
        stage.show(before);
        stage.draw();
        const std::vector<std::uint8_t> bytes(pictureBytes(c.pixelFmt, c.width, c.height), 200);
        printedBy([&] {
            Fovix_SetTexture(stage.view, c.pixelFmt, bytes.data(), static_cast<int>(bytes.size()), c.width,
                             c.height);
        });
        stage.draw();
        EXPECT_NE(stage.lines.find(c.line), std::string::npos) << stage.lines;
        EXPECT_EQ(context.frames[0].textureUseful, 1);
        EXPECT_EQ(textureBytes(context, 0, 32, 32), before.bytes);
        stage.draw();
        EXPECT_EQ(stage.lines, "") << "a picture is tried once";
    }
}

TEST(ShortPictures, AreCompletedWithBlackAndNeutralChroma) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 16, 16);
    FovixContext& context = *stage.view;
    const auto upload = [&](int pixelFmt, int size) {
        // A large white picture first: none of it may come through.
        const std::vector<std::uint8_t> white(40 * 40 * 4, 255), grey(16 * 16 * 4, 90);
        printedBy([&] {
            Fovix_SetTexture(stage.view, FOVIX_FORMAT_RGBA, white.data(), 40 * 40 * 4, 40, 40);
            Fovix_SetTexture(stage.view, pixelFmt, grey.data(), size, 16, 16);
            Fovix_Drawself(stage.view);
        });
    };
    const auto filled = [](std::size_t given, std::size_t total, std::uint8_t rest) {
        std::vector<std::uint8_t> bytes(total, rest);
        std::fill_n(bytes.begin(), given, std::uint8_t{90});
        return bytes;
    };
    upload(FOVIX_FORMAT_RGBA, 100);
    EXPECT_EQ(textureBytes(context, 0, 16, 16), filled(100, 1024, 0));
    upload(FOVIX_FORMAT_RGBA, 0);
    EXPECT_EQ(textureBytes(context, 0, 16, 16), filled(0, 1024, 0));
    upload(FOVIX_FORMAT_YUV420P, 256 + 64 + 10);
    EXPECT_EQ(textureBytes(context, 1, 16, 16), filled(256, 256, 0));
    EXPECT_EQ(textureBytes(context, 2, 8, 8), filled(64, 64, 128));
    EXPECT_EQ(textureBytes(context, 3, 8, 8), filled(10, 64, 128));
    upload(FOVIX_FORMAT_NV12, 200);
    EXPECT_EQ(textureBytes(context, 1, 16, 16), filled(200, 256, 0));
    EXPECT_EQ(textureBytes(context, 2, 8, 8), filled(0, 64, 128));
    upload(FOVIX_FORMAT_NV21, 256 + 21);
    EXPECT_EQ(textureBytes(context, 2, 8, 8), filled(10, 64, 128)) << "V comes first";
    EXPECT_EQ(textureBytes(context, 3, 8, 8), filled(11, 64, 128));
}

}  // namespace
}  // namespace fovix_test
