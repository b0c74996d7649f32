// What is written appears whole or not at all, and videos come back as they went in.

#include <gtest/gtest.h>

#include <algorithm>

#include "Drawn.h"
#include "MediaFiles.h"
#include "TestFiles.h"
#include "media/FramePacker.h"
#include "media/VideoWriter.h"
#include "output/OutputFile.h"

using namespace fovix_host;

namespace {

auto entries() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(testFolder()))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

TEST(OutputFile, AppearsWhenItIsKeptAndOtherwiseLeavesNothing) {
    constexpr auto kOwnersAlone = std::filesystem::perms::owner_read | std::filesystem::perms::owner_write;
    const std::vector<std::string> both{"link", "there"};
    for (const auto draft : {OutputFile::Draft::kUnnamed, OutputFile::Draft::kHidden})
        for (const char* name : {"there", "link", "fresh"}) {
            SCOPED_TRACE(name);
            const bool isFresh = name == std::string("fresh");
            for (const std::string& file : entries()) std::filesystem::remove(testFolder() / file);
            writeText(testFolder() / "there", "before");
            std::filesystem::permissions(testFolder() / "there", kOwnersAlone);
            std::filesystem::create_symlink("there", testFolder() / "link");
            { OutputFile(fileInTest(name), draft).write("half", 4); }
            EXPECT_EQ(entries(), both);
            EXPECT_EQ(readText(testFolder() / "there"), "before");

            OutputFile file(fileInTest(name), draft);
            file.write("tail", 4);
            file.seek(0, SEEK_SET);
            file.write("w", 1);
            EXPECT_EQ(readText(testFolder() / name), isFresh ? "" : "before");
            file.keep();
            EXPECT_EQ(readText(testFolder() / (isFresh ? "fresh" : "there")), "wail");
            EXPECT_EQ(entries().size(), isFresh ? 3u : 2u);
            EXPECT_TRUE(std::filesystem::is_symlink(testFolder() / "link"));
            EXPECT_EQ(std::filesystem::status(testFolder() / "there").permissions(), kOwnersAlone);
        }
}

struct Film {
    const char* file;
    VideoSettings settings;
    int tolerance;
};

RgbaImage quadrantsOf(const VideoSettings& size, int number) {
    FramePacker packer(PackedFormats::kRgba);
    const FrameOwner frame = quadrantFrame(AV_PIX_FMT_YUV444P, size.width, size.height, number);
    RgbaImage image(size.width, size.height);
    std::copy_n(packer.pack(*frame).data, image.pixels.size(), image.pixels.begin());
    return image;
}

TEST(VideoWriter, KeepsSizeTimesAndColours) {
    constexpr auto kH264 = VideoCodec::kH264;
    for (const Film& film :
         {Film{"a.mp4", {66, 34, 25, kH264, 10}, 4}, Film{"b.mkv", {64, 48, 30000.0 / 1001, kH264, 10}, 4},
          Film{"c.mp4", {64, 48, 0.5, kH264, 10}, 4}, Film{"d.mkv", {33, 21, 12.5, VideoCodec::kFfv1}, 1}}) {
        SCOPED_TRACE(film.file);
        const std::vector<int> due{0, 1, 2, 5, 6, 10};  // a camera that stutters
        {
            VideoWriter writer(fileInTest(film.file), film.settings);
            for (std::size_t i = 0; i < due.size(); ++i)
                writer.write(quadrantsOf(film.settings, static_cast<int>(i)), due[i]);
            EXPECT_FALSE(std::filesystem::exists(fileInTest(film.file)));
            writer.finish();
        }
        MediaReader reader(fileInTest(film.file));
        FramePacker packer(PackedFormats::kRgba);
        for (std::size_t i = 0; i < due.size(); ++i) {
            const AVFrame* frame = reader.next();
            ASSERT_TRUE(frame);
            EXPECT_NEAR(reader.seconds(), due[i] / film.settings.frameRate, 0.001);
            const bool isYuv = film.settings.codec == kH264;
            EXPECT_EQ(frame->colorspace, isYuv ? AVCOL_SPC_BT709 : AVCOL_SPC_RGB);
            EXPECT_EQ(frame->color_range, isYuv ? AVCOL_RANGE_MPEG : AVCOL_RANGE_JPEG);
            const PackedFrame packed = packer.pack(*frame);
            ASSERT_EQ(packed.width, film.settings.width);
            ASSERT_EQ(packed.height, film.settings.height);
            const auto at = [&](int x, int y) {
                const unsigned char* p = packed.data + (y * packed.width + x) * 4;
                return Rgb{p[0], p[1], p[2]};
            };
            expectQuadrants(at, packed.width, packed.height, false, film.tolerance, static_cast<int>(i));
        }
        EXPECT_FALSE(reader.next());
        EXPECT_NEAR(reader.duration().value_or(0), 11 / film.settings.frameRate, 0.002);
    }
}

}  // namespace
