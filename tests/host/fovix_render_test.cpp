// fovix-render as a user meets it: which colours it draws from which files, and what it prints where.

#include <gtest/gtest.h>

#include <algorithm>

#include "Drawn.h"
#include "MediaFiles.h"
#include "ProgramRun.h"
#include "TestFiles.h"

using namespace fovix_host;

namespace {

TEST(FovixRender, ShowsTheColoursOfFilesInEveryFormat) {
    struct Media {
        const char* file;
        const char* encoder;
        AVPixelFormat format;
        int width, height;
        bool full = false;
    };
    for (const Media& media : {Media{"planar.mp4", "libx264", AV_PIX_FMT_YUV420P, 64, 64},
                               Media{"odd.mkv", "ffv1", AV_PIX_FMT_YUV420P, 57, 43},
                               // Colons and percent signs make neither addresses nor patterns of file names.
                               Media{"camera:nv12.avi", "rawvideo", AV_PIX_FMT_NV12, 62, 46},
                               Media{"wide.mkv", "ffv1", AV_PIX_FMT_YUV422P, 61, 33},
                               Media{"odd%d.jpg", "mjpeg", AV_PIX_FMT_YUVJ444P, 35, 35, true}}) {
        SCOPED_TRACE(media.file);
        const std::string plain = "plain" + std::filesystem::path(media.file).extension().string();
        writeMedia(fileInTest(plain), media.encoder, media.format, media.width, media.height, 1);
        std::filesystem::rename(fileInTest(plain), fileInTest(media.file));
        // A surface of the video's own proportions, so that it fills the surface.
        const std::string size = std::to_string(4 * media.width) + "x" + std::to_string(4 * media.height);
        const ProgramRun run = runFovixRender(media.file + (" -o view.png --size " + size));
        ASSERT_EQ(run.status, 0) << run.errors;
        expectQuadrants(Drawn("view.png").rgba, media.full, 4);
    }
}

TEST(FovixRender, NumbersFramesAndAdvancesTheVideo) {
    writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV444P, 32, 32, 3);
    const ProgramRun run = runFovixRender("in.mkv --frames 4 --size 32x32 -o out.v1.png");
    ASSERT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output, "out.v1-0001.png\nout.v1-0002.png\nout.v1-0003.png\nout.v1-0004.png\n");
    EXPECT_NE(run.errors.find("'in.mkv' ends after 3 "), std::string::npos) << run.errors;
    for (int frame = 0; frame < 4; ++frame)
        expectQuadrants(Drawn("out.v1-000" + std::to_string(frame + 1) + ".png").rgba, false, 3,
                        std::min(frame, 2));
}

TEST(FovixRender, KeepsDiagnosticsAwayFromItsOwnOutput) {
    writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 16, 16, 1);
    const ProgramRun quiet = runFovixRender("in.mkv --size 16x16 -o a.png");
    EXPECT_EQ(quiet.output, "a.png\n");
    EXPECT_EQ(quiet.errors, "");
    const ProgramRun verbose = runFovixRender("in.mkv --size 16x16 -o b.png --verbose");
    EXPECT_EQ(verbose.output, "b.png\n");
    std::size_t at = 0;
    for (const char* inOrder :
         {"Fovix Version", " 16x16 in format 3\n", "Fovix_Prepare()\n", "config changed\n"}) {
        EXPECT_NE(verbose.errors.find(inOrder, at), std::string::npos) << inOrder << verbose.errors;
        at = std::min(verbose.errors.find(inOrder, at), verbose.errors.size());
    }
    EXPECT_EQ(readText(fileInTest("a.png")), readText(fileInTest("b.png")));
}

TEST(FovixRender, HelpFitsAScreen) {
    for (const std::string program : {"fovix-render", "fovix-view"}) {
        const ProgramRun help = runInShell(program + " --help");
        EXPECT_EQ(help.status, 0);
        EXPECT_EQ(help.errors, "");
        const auto lines = linesOf(help.output);
        EXPECT_GT(lines.size(), 20u);
        EXPECT_LE(lines.size(), 40u);
        for (const std::string& line : lines) EXPECT_LE(line.size(), 80u) << line;
        EXPECT_EQ(runInShell(program + " --version").output, program + " with libfovix 1.2.1_dbg\n");
        const ProgramRun full = runInShell(program + " --list >/dev/full");
        EXPECT_EQ(full.status, 1);
        EXPECT_EQ(full.errors, program + ": cannot write to standard output: No space left on device\n");
    }
}

TEST(FovixRender, ScalesFramesAboveTheTextureLimitDown) {
    writeMedia(fileInTest("long.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 32770, 2, 2);
    writeText(fileInTest("calls.txt"), "1..2 picture long.mkv");
    for (const std::string input : {"long.mkv", "--script calls.txt"}) {
        const ProgramRun run = runFovixRender(input + " --frames 2 --every last --size 64x2");
        ASSERT_EQ(run.status, 0) << run.errors;
        const std::size_t notice = run.errors.find("32770x2");
        EXPECT_NE(notice, std::string::npos) << run.errors;
        EXPECT_EQ(run.errors.rfind("32770x2"), notice) << "once";
    }
    EXPECT_EQ(runFovixRender("long.mkv --quiet --size 64x2").errors, "");
}

}  // namespace
