// fovix-render as a user meets it: what it draws, what it says where, and how it refuses.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "Drawn.h"
#include "MediaFiles.h"
#include "ProgramRun.h"
#include "TestFiles.h"
#include "media/PngWriter.h"

using namespace fovix_host;

namespace {

struct MediaCase {
    const char* file;
    const char* encoder;
    AVPixelFormat format;
    int width, height;
    bool full;
};

TEST(FovixRender, ShowsTheColoursOfFilesInEveryFormat) {
    for (const MediaCase& media :
         {MediaCase{"planar.mp4", "libx264", AV_PIX_FMT_YUV420P, 64, 64, false},
          MediaCase{"odd.mkv", "ffv1", AV_PIX_FMT_YUV420P, 57, 43, false},
          // Colons and percent signs make neither addresses nor patterns of files' names.
          MediaCase{"camera:nv12.avi", "rawvideo", AV_PIX_FMT_NV12, 62, 46, false},
          MediaCase{"wide.mkv", "ffv1", AV_PIX_FMT_YUV422P, 61, 33, false},
          MediaCase{"still.jpg", "mjpeg", AV_PIX_FMT_YUVJ420P, 70, 50, true},
          MediaCase{"odd%d.jpg", "mjpeg", AV_PIX_FMT_YUVJ444P, 35, 35, true}}) {
        SCOPED_TRACE(media.file);
        const std::string plain = "plain" + std::filesystem::path(media.file).extension().string();
        writeMedia(fileInTest(plain), media.encoder, media.format, media.width, media.height, 1);
        std::filesystem::rename(fileInTest(plain), fileInTest(media.file));
        // A surface of the picture's own shape, so that the picture fills it.
        const ProgramRun run = runFovixRender(
            {media.file, "--size", std::to_string(4 * media.width) + "x" + std::to_string(4 * media.height),
             "-o", "view.png"});
        ASSERT_EQ(run.status, 0) << run.errors;
        const Drawn drawn("view.png");
        expectQuadrants([&](int x, int y) { return drawn.at(x, y); }, drawn.width(), drawn.height(),
                        media.full, 4);
    }
}

TEST(FovixRender, NumbersFramesAndAdvancesTheVideo) {
    writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV444P, 32, 32, 3);
    const ProgramRun run = runFovixRender({"in.mkv", "--frames", "4", "--size", "32x32", "-o", "out.v1.png"});
    ASSERT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output, "out.v1-0001.png\nout.v1-0002.png\nout.v1-0003.png\nout.v1-0004.png\n");
    EXPECT_NE(run.errors.find("'in.mkv' ends after 3 pictures"), std::string::npos) << run.errors;
    for (int frame = 0; frame < 4; ++frame) {
        const Drawn drawn("out.v1-000" + std::to_string(frame + 1) + ".png");
        expectQuadrants([&](int x, int y) { return drawn.at(x, y); }, 32, 32, false, 3, std::min(frame, 2));
    }
}

TEST(FovixRender, PassesTheLensOn) {
    writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 64, 64, 1);
    // Half as high as it is wide: the plain picture leaves the upper quarter of the surface.
    for (const auto& [lens, isFlat] :
         {std::pair{"32,32,30,64,64", false}, std::pair{"32,16,16,64,32", true}}) {
        const ProgramRun run = runFovixRender(
            {"in.mkv", "--lens", lens, "--size", "64x64", "--background", "0000ff", "-o", "v.png"});
        EXPECT_EQ(run.status, 0) << run.errors;
        const Rgb picture = fromLimitedRange(kQuadrants[0]), background{0, 0, 255};
        expectColour(Drawn("v.png").at(16, 12), isFlat ? background : picture, 4, "above");
        expectColour(Drawn("v.png").at(16, 24), picture, 4, "in the flattened picture");
    }
}

TEST(FovixRender, KeepsDiagnosticsAwayFromItsOwnOutput) {
    writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 16, 16, 1);
    const ProgramRun quiet = runFovixRender({"in.mkv", "--size", "16x16", "-o", "a.png"});
    EXPECT_EQ(quiet.output, "a.png\n");
    EXPECT_EQ(quiet.errors, "");
    const ProgramRun verbose = runFovixRender({"in.mkv", "--size", "16x16", "-o", "b.png", "--verbose"});
    EXPECT_EQ(verbose.output, "b.png\n");
    for (const char* line :
         {"Fovix_Prepare()\n", "config changed\n", "fovix-render: pictures of 16x16 in format 3\n"})
        EXPECT_NE(verbose.errors.find(line), std::string::npos) << line << verbose.errors;
    EXPECT_LT(verbose.errors.find("Fovix Version"), verbose.errors.find("config changed"))
        << "in their order";
    EXPECT_EQ(readText(testFolder() / "a.png"), readText(testFolder() / "b.png"));
}

TEST(FovixRender, HelpFitsAScreen) {
    const ProgramRun help = runFovixRender({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.errors, "");
    std::istringstream text(help.output);
    int lines = 0;
    for (std::string line; std::getline(text, line); ++lines) EXPECT_LE(line.size(), 80u) << line;
    EXPECT_LE(lines, 40);
    for (const char* option :
         {"INPUT", "--sample", "--output", "--lens", "--find-lens", "--camera", "--type", "--codec",
          "--start", "--background", "--quiet", "--version", "fovix-render --sample -o"})
        EXPECT_NE(help.output.find(option), std::string::npos) << option;
    EXPECT_EQ(runFovixRender({"--version"}).output, "fovix-render with libfovix 1.2.1_dbg\n");
}

TEST(FovixRender, RefusesInOneSentenceThatSaysWhatWouldBeRight) {
    constexpr int kUsage = 2, kRunTime = 1;
    writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 32, 32, 3);
    writePng(fileInTest("still.png"), RgbaImage(8, 8));
    writePng(fileInTest("still-0002.png"), RgbaImage(8, 8));
    const std::vector<Refusal> refusals{
        {{}, kUsage, "give a picture or video, or --sample"},
        {{"a.png", "--sample"}, kUsage, "either 'a.png' or --sample"},
        {{"a.png", "b.png"}, kUsage, "'b.png' is one input too many"},
        {{"--sample", "--colour"}, kUsage, "'--colour' is not understood; fovix-render --help"},
        {{"--sample=floor"}, kUsage, "ceiling or wall"},
        {{"--sample", "--sample"}, kUsage, "--sample is given twice"},
        {{"--sample", "--size"}, kUsage, "--size lacks its value, WxH"},
        {{"--sample", "--version=2"}, kUsage, "--version takes no value"},
        {{"--sample", "--size", "640"}, kUsage, "WIDTHxHEIGHT"},
        {{"--sample", "--size", "640x-480"}, kUsage, "WIDTHxHEIGHT"},
        {{"--sample", "--size", "99999999999x3"}, kUsage, "WIDTHxHEIGHT"},
        {{"--sample", "--lens", "1,2,3,4"}, kUsage, "five whole numbers"},
        {{"--sample", "--lens", "1,2,0,4,5"}, kUsage, "five whole numbers"},
        {{"--sample", "--lens", "1,2,3.5,4,5"}, kUsage, "five whole numbers"},
        {{"--sample", "--lens", "60,20,19,40,40"}, kUsage, "a circle that lies in its image"},
        {{"--sample", "--type", "panorama"}, kUsage, "360, 180, original, fisheye, korvel"},
        {{"--sample", "--type", "-1"}, kUsage, "a number or one of"},
        {{"--sample", "--frames", "0"}, kUsage, "from 1 to 1000000"},
        {{"--sample", "--background", "red"}, kUsage, "RRGGBB"},
        {{"--sample", "--background", "12345"}, kUsage, "RRGGBB"},
        {{"--sample", "--output", "view.jpg"}, kUsage, "ends in .png, .mp4 or .mkv, or -"},
        {{"--sample", "-o", "v.mp4"}, kUsage, "the sample has no end; say with --frames or --duration"},
        {{"still.png", "-o", "v.mkv"}, kUsage, "'still.png' is a single picture; say with --frames"},
        {{"still.png", "--start", "1"}, kUsage, "--start goes with a video, and 'still.png' is a single"},
        {{"--sample", "--start", "1"}, kUsage, "--start goes with a video as input"},
        {{"in.mkv", "--start", "0:61"}, kUsage, "a time in seconds or as [H:]M:S"},
        {{"in.mkv", "--start", "1.5:10"}, kUsage, "a time in seconds or as [H:]M:S"},
        {{"in.mkv", "--start", "0:0:0:1"}, kUsage, "a time in seconds or as [H:]M:S"},
        {{"in.mkv", "--start", "0:01"},
         kRunTime,
         "beyond the end of 'in.mkv'; its last picture is due at 0.080"},
        {{"in.mkv", "--duration", "0"}, kUsage, "it wants a time above"},
        {{"in.mkv", "--duration", "1", "--frames", "1"}, kUsage, "give one of them"},
        {{"in.mkv", "-o", "v.mp4", "--every", "2"}, kUsage, "a video takes every frame"},
        {{"in.mkv", "-o", "v.mp4", "--size", "31x20"}, kUsage, "even numbers do, as 32x20"},
        {{"in.mkv", "-o", "v.mp4", "--codec", "ffv1"}, kUsage, "it goes with .mkv"},
        {{"in.mkv", "-o", "v.mkv", "--codec", "vp9"}, kUsage, "h264 or ffv1"},
        {{"in.mkv", "-o", "v.mkv", "--codec", "ffv1", "--quality", "1"}, kUsage, "it goes with h264"},
        {{"in.mkv", "-o", "v.mkv", "--quality", "52"}, kUsage, "from 0, the best, to 51"},
        {{"in.mkv", "-o", "v.mkv", "--fps", "0"}, kUsage, "from 0.01 to 1000"},
        {{"in.mkv", "--fps", "25"}, kUsage, "--fps does not fit -o fovix.png; it goes with a video"},
        {{"in.mkv", "-o", "-", "--codec", "h264"}, kUsage, "--codec does not fit -o -; it goes with a video"},
        {{"still.png", "-o", "./still.png"}, kUsage, "would replace an input; give the output another name"},
        {{"still-0002.png", "--frames", "2", "-o", "still.png"},
         kUsage,
         "replace the input 'still-0002.png'"},
        {{"in.mkv", "--every", "2"}, kUsage, "--every 2 writes none of 1 frame; a smaller number or last"},
        {{"in.mkv", "--every", "4", "-o", "-"}, kRunTime, "--every 4 writes none of 3 frames"},
        {{"in.mkv", "--type", "360", "--ptz", "0:1,2,3", "--ptz", "0:4,5,6"}, kUsage, "another screen each"},
        {{"in.mkv", "--type", "24", "--logic-zoom", "9,1,5,3"}, kUsage, "lowest and highest zoom, in this"},
        {{"in.mkv", "--quiet", "--verbose"}, kUsage, "give one of them"},
        {{"in.mkv", "--quiet=3"}, kUsage, "--quiet takes no value"},
        {{"--list=3"}, kUsage, "--list takes no value"},
        {{"--script", ""}, kUsage, "--script lacks its value, FILE"},
        {{""}, kUsage, "an input has an empty name"},
        {{"-", "-", "--type", "grid"}, kUsage, "standard input can be read once"},
        {{"--script", "/dev/zero"}, kUsage, "/dev/zero:1: this is not a line of a script"},
        {{"in.mkv", "-o", "missing/v.mkv"}, kRunTime, "cannot write 'missing/v.mkv': No such file"},
        {{"missing.mp4"}, kRunTime, "'missing.mp4' cannot be opened: No such file"},
        {{"--sample", "-o", "missing/view.png"}, kRunTime, "cannot write 'missing/view.png'"},
        {{"--sample", "--size", "60000x60000"}, kRunTime, "the largest is"},
    };
    for (const Refusal& refusal : refusals) expectRefusal(refusal);
}

TEST(FovixRender, SaysWhereAListCannotBeWritten) {
    for (const char* asked : {"--list", "--help"}) {
        const ProgramRun run = runInShell(std::string("\"$RENDER\" >/dev/full ") + asked);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(run.errors, "fovix-render: cannot write to standard output: No space left on device\n");
    }
}

TEST(FovixRender, SaysWhatToInstallWhereGlIsMissing) {
    for (const char* crippled : {"__EGL_VENDOR_LIBRARY_FILENAMES=/nowhere", "LIBGL_DRIVERS_PATH=/nowhere"})
        expectRefusal(
            {{"--sample"}, 1, "install a GL driver, on Debian the packages libegl1 and libgl1-mesa-dri"},
            {crippled});
}

TEST(FovixRender, ScalesPicturesAboveTheTextureLimitDown) {
    writeMedia(fileInTest("long.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 32770, 2, 2);
    const std::string notice = "fovix-render: 'long.mkv' has pictures of 32770x2, larger than the textures";
    for (const char* input : {"long.mkv", "--script=calls.txt"}) {
        writeText(testFolder() / "calls.txt", "1..2 picture long.mkv");
        const ProgramRun run =
            runFovixRender({input, "--frames", "2", "--every", "last", "--size", "64x2", "-o", "v.png"});
        ASSERT_EQ(run.status, 0) << run.errors;
        EXPECT_EQ(run.errors.find(notice), 0u) << run.errors;
        EXPECT_EQ(run.errors.rfind(notice), 0u) << "once";
    }
    EXPECT_EQ(runFovixRender({"long.mkv", "--quiet", "--size", "64x2"}).errors, "");
}

}  // namespace
