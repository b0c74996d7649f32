// Files of every kind go in and come out again: MediaReader on what encoders wrote, and on what is no
// picture; PngWriter's files read back.

#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "MediaFiles.h"
#include "MediaReader.h"
#include "PngWriter.h"
#include "TestFiles.h"

using namespace fovix_host;

namespace {

std::string fileInTest(const std::string& name) {
    return (testFolder() / name).string();
}

std::string refusalOf(const std::string& input) {
    try {
        MediaReader reader(input);
        while (reader.next()) {
        }
    } catch (const std::runtime_error& problem) {
        return problem.what();
    }
    return "(none)";
}

RgbaImage gradient(int width, int height) {
    RgbaImage image(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            image.at(x, y)[0] = static_cast<std::uint8_t>(7 * x + y);
            image.at(x, y)[1] = static_cast<std::uint8_t>(3 * y);
            image.at(x, y)[2] = static_cast<std::uint8_t>(x ^ y);
            image.at(x, y)[3] = static_cast<std::uint8_t>(x * y);
        }
    return image;
}

TEST(PngWriter, KeepsEveryColourAndDropsTransparency) {
    for (const auto& [width, height] : {std::pair{1, 1}, std::pair{37, 21}, std::pair{300, 2}}) {
        const RgbaImage image = gradient(width, height);
        const std::string file = fileInTest("gradient.png");
        writePng(file, image);
        MediaReader reader(file);
        const AVFrame* frame = reader.next();
        ASSERT_TRUE(frame);
        ASSERT_EQ(frame->format, AV_PIX_FMT_RGB24);
        ASSERT_EQ(frame->width, width);
        ASSERT_EQ(frame->height, height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                for (int c = 0; c < 3; ++c)
                    ASSERT_EQ(frame->data[0][y * frame->linesize[0] + 3 * x + c], image.at(x, y)[c])
                        << "at " << x << "," << y;
        EXPECT_FALSE(reader.next()) << "a PNG file holds one picture";
    }
}

TEST(PngWriter, SaysWhyAFileCannotBeWritten) {
    for (const std::string& file :
         {fileInTest("missing/x.png"), testFolder().string(), std::string("/dev/full")}) {
        try {
            writePng(file, gradient(400, 400));
            FAIL() << file << " was written";
        } catch (const std::runtime_error& problem) {
            EXPECT_NE(std::string(problem.what()).find("cannot write '" + file + "': "), std::string::npos)
                << problem.what();
        }
    }
}

struct Media {
    const char* file;
    const char* encoder;
    AVPixelFormat format;
    int frames;
};

TEST(MediaReader, YieldsThePicturesThatEncodersWrote) {
    for (const Media& media : {Media{"still.jpg", "mjpeg", AV_PIX_FMT_YUVJ420P, 1},
                               Media{"still422.jpg", "mjpeg", AV_PIX_FMT_YUVJ422P, 1},
                               Media{"still444.jpg", "mjpeg", AV_PIX_FMT_YUVJ444P, 1},
                               Media{"h264.mp4", "libx264", AV_PIX_FMT_YUV420P, 9},
                               Media{"mpeg4.mp4", "mpeg4", AV_PIX_FMT_YUV420P, 5},
                               Media{"lossless.mkv", "ffv1", AV_PIX_FMT_YUV444P, 4},
                               // A percent sign and a colon mean nothing special in a file's name.
                               Media{"odd%d name.jpg", "mjpeg", AV_PIX_FMT_YUVJ420P, 1},
                               Media{"a:b.mp4", "mpeg4", AV_PIX_FMT_YUV420P, 2}}) {
        SCOPED_TRACE(media.file);
        const std::string plain =
            fileInTest("written" + std::filesystem::path(media.file).extension().string());
        writeMedia(plain, media.encoder, media.format, 64, 48, media.frames);
        std::filesystem::rename(plain, fileInTest(media.file));

        MediaReader reader(fileInTest(media.file));
        int number = 0;
        while (const AVFrame* frame = reader.next()) {
            ASSERT_EQ(frame->format, media.format);
            ASSERT_EQ(frame->width, 64);
            ASSERT_EQ(frame->height, 48);
            // The middle of the last quadrant; its luma tells the number of the picture.
            const int luma = frame->data[0][36 * frame->linesize[0] + 48];
            EXPECT_NEAR(luma, quadrants[3].y + lumaStep * number, 2) << "picture " << number;
            ++number;
        }
        EXPECT_EQ(number, media.frames);
        EXPECT_EQ(reader.picturesRead(), media.frames);
        EXPECT_FALSE(reader.next()) << "stays at the end";
    }
}

TEST(MediaReader, RefusesWhatIsNoPictureInOneSentence) {
    const std::string silence(
        "RIFF\x34\0\0\0WAVEfmt \x10\0\0\0\1\0\1\0\x40\x1f\0\0\x80\x3e\0\0\2\0\x10\0data\x10\0\0\0", 44);
    writeText(fileInTest("empty.png"), "");
    writeText(fileInTest("letter.txt"), "Dear reader,\nthis is no picture.\n");
    writeText(fileInTest("noise.bin"), std::string(5000, '\x9c'));
    writeText(fileInTest("silence.wav"), silence + std::string(16, '\0'));
    writePng(fileInTest("whole.png"), gradient(64, 64));
    writeText(fileInTest("cut.png"), readText(fileInTest("whole.png")).substr(0, 60));

    const std::vector<std::pair<std::string, std::string>> cases{
        {"missing.png", "cannot be opened: No such file"},
        {"empty.png", "is not a picture or video"},
        {"letter.txt", "is not a picture or video"},
        {"noise.bin", "is not a picture or video"},
        {"silence.wav", "holds no picture or video"},
        {"cut.png", "holds no picture that can be decoded"},
        {".", "is a directory"},
    };
    for (const auto& [name, words] : cases) {
        const std::string refusal = refusalOf(fileInTest(name));
        EXPECT_NE(refusal.find(words), std::string::npos) << name << ": " << refusal;
        EXPECT_EQ(refusal.find(fileInTest(name) + "' "), 1u) << refusal;
        EXPECT_EQ(refusal.find('\n'), std::string::npos) << refusal;
    }
}

// A video that was cut off, or damaged on the way, still shows what it holds.
TEST(MediaReader, PassesOverDamage) {
    writeMedia(fileInTest("whole.ts"), "mpeg2video", AV_PIX_FMT_YUV420P, 320, 240, 60);
    const std::string whole = readText(fileInTest("whole.ts"));
    ASSERT_GT(whole.size(), 20000u);
    std::string damaged = whole;
    damaged.replace(whole.size() / 2, 400, 400, '\x55');
    writeText(fileInTest("damaged.ts"), damaged);
    writeText(fileInTest("cut.ts"), whole.substr(0, whole.size() / 2));
    for (const char* name : {"damaged.ts", "cut.ts"}) {
        MediaReader reader(fileInTest(name));
        while (reader.next()) {
        }
        EXPECT_GT(reader.picturesRead(), 20) << name;
        EXPECT_LE(reader.picturesRead(), 60) << name;
    }
}

}  // namespace
