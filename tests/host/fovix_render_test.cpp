// fovix-render as a user meets it: what it draws, what it says where, and how it refuses.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "Drawn.h"
#include "MediaFiles.h"
#include "ProgramRun.h"
#include "TestFiles.h"
#include "sample/SampleScene.h"

using namespace fovix_host;

namespace {

TEST(FovixRender, DrawsTheSamplesLandmarksWhereTheyBelong) {
    const ProgramRun run = runFovixRender(
        {"--sample", "--type", "fisheye", "--size", "800x400", "--background", "204060", "-o", "hall.png"});
    ASSERT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output, "hall.png\n");
    EXPECT_EQ(run.errors, "");
    const Drawn drawn("hall.png");
    ASSERT_EQ(drawn.width(), 800);
    ASSERT_EQ(drawn.height(), 400);
    // The square picture of 1280 pixels fills the height of the surface, in its middle.
    const SampleScene scene(SampleScene::Camera::ceiling, 1280, 1280);
    for (const auto& mark : scene.visibleLandmarks()) {
        const PicturePoint place = project(scene.lens(), mark.direction);
        expectColour(drawn.at(200 + place.x * 400 / 1280, place.y * 400 / 1280),
                     {mark.colour[0], mark.colour[1], mark.colour[2]}, 3, mark.name);
    }
    expectColour(drawn.at(100, 200), {0x20, 0x40, 0x60}, 0, "left of the picture");
    expectColour(drawn.at(210, 10), {0, 0, 0}, 0, "outside the lens circle");
}

struct MediaCase {
    const char* file;
    const char* encoder;
    AVPixelFormat format;
    int width, height;
    bool full;
};

TEST(FovixRender, ShowsTheColoursOfFilesInEveryFormat) {
    for (const MediaCase& media : {MediaCase{"planar.mp4", "libx264", AV_PIX_FMT_YUV420P, 64, 64, false},
                                   MediaCase{"odd.mkv", "ffv1", AV_PIX_FMT_YUV420P, 57, 43, false},
                                   // A name with a colon is a file's all the same, and not an address.
                                   MediaCase{"camera:nv12.avi", "rawvideo", AV_PIX_FMT_NV12, 62, 46, false},
                                   MediaCase{"wide.mkv", "ffv1", AV_PIX_FMT_YUV422P, 61, 33, false},
                                   MediaCase{"still.jpg", "mjpeg", AV_PIX_FMT_YUVJ420P, 70, 50, true},
                                   MediaCase{"still444.jpg", "mjpeg", AV_PIX_FMT_YUVJ444P, 35, 35, true}}) {
        SCOPED_TRACE(media.file);
        writeMedia((testFolder() / media.file).string(), media.encoder, media.format, media.width,
                   media.height, 1);
        // A surface of the picture's own shape, so that the picture fills it.
        const ProgramRun run = runFovixRender(
            {media.file, "--size", std::to_string(4 * media.width) + "x" + std::to_string(4 * media.height),
             "-o", "view.png"});
        ASSERT_EQ(run.status, 0) << run.errors;
        const Drawn drawn("view.png");
        for (std::size_t q = 0; q < quadrants.size(); ++q) {
            const double x = (q % 2 ? 3.0 : 1.0) * media.width, y = (q / 2 ? 3.0 : 1.0) * media.height;
            expectColour(drawn.at(x, y),
                         media.full ? fromFullRange(quadrants[q]) : fromLimitedRange(quadrants[q]), 4,
                         "quadrant " + std::to_string(q));
        }
    }
}

TEST(FovixRender, NumbersFramesAndAdvancesTheVideo) {
    writeMedia((testFolder() / "in.mkv").string(), "ffv1", AV_PIX_FMT_YUV444P, 32, 32, 3);
    const ProgramRun run = runFovixRender({"in.mkv", "--frames", "4", "--size", "32x32", "-o", "out.v1.png"});
    ASSERT_EQ(run.status, 0) << run.errors;
    EXPECT_EQ(run.output, "out.v1-0001.png\nout.v1-0002.png\nout.v1-0003.png\nout.v1-0004.png\n");
    EXPECT_NE(run.errors.find("'in.mkv' has 3 pictures"), std::string::npos) << run.errors;
    for (int frame = 0; frame < 4; ++frame) {
        Yuv colour = quadrants[0];
        colour.y += lumaStep * std::min(frame, 2);
        expectColour(Drawn("out.v1-000" + std::to_string(frame + 1) + ".png").at(8, 8),
                     fromLimitedRange(colour), 3, "frame " + std::to_string(frame));
    }
}

// The Korvel view is built on the lens's image size: a lens reported for an image of another shape
// changes where the picture ends on the surface.
TEST(FovixRender, PassesTypeAndLensOn) {
    writeMedia((testFolder() / "in.mkv").string(), "ffv1", AV_PIX_FMT_YUV420P, 64, 64, 1);
    const std::vector<std::string> common{"in.mkv", "--size", "64x64", "--background",
                                          "0000ff", "-o",     "v.png"};
    const auto draw = [&](std::vector<std::string> more) {
        more.insert(more.end(), common.begin(), common.end());
        const ProgramRun run = runFovixRender(more);
        EXPECT_EQ(run.status, 0) << run.errors;
        return readText(testFolder() / "v.png");
    };
    const std::string plain = draw({});
    EXPECT_EQ(draw({"--type", "2"}), plain);
    EXPECT_EQ(draw({"--type=original"}), plain);
    EXPECT_EQ(draw({"--lens", "32,32,30,64,64"}), plain) << "the picture's own shape";
    EXPECT_NE(draw({"--type", "korvel"}), plain);
    // Half as high as it is wide: the plain picture leaves the upper quarter of the surface.
    draw({"--lens", "32,16,16,64,32"});
    expectColour(Drawn("v.png").at(32, 12), {0, 0, 255}, 0, "above the flattened picture");
    expectColour(Drawn("v.png").at(16, 24), fromLimitedRange(quadrants[0]), 4, "in the flattened picture");
}

TEST(FovixRender, KeepsDiagnosticsAwayFromItsOwnOutput) {
    writeMedia((testFolder() / "in.mkv").string(), "ffv1", AV_PIX_FMT_YUV420P, 16, 16, 1);
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
    EXPECT_LE(lines, 32);
    for (const char* option : {"INPUT", "--sample", "--output", "--lens", "--type", "--size", "--frames",
                               "--background", "--verbose", "--version", "fovix-render --sample -o"})
        EXPECT_NE(help.output.find(option), std::string::npos) << option;
    EXPECT_EQ(runFovixRender({"--version"}).output, "fovix-render with libfovix 1.2.1_dbg\n");
}

struct Refusal {
    std::vector<std::string> arguments;
    int status;
    const char* words;
};

void expectRefusal(const ProgramRun& run, const Refusal& refusal) {
    std::string shown;
    for (const std::string& word : refusal.arguments) shown += word + " ";
    EXPECT_EQ(run.status, refusal.status) << shown;
    EXPECT_EQ(run.output, "") << shown;
    EXPECT_EQ(run.errors.find("fovix-render: "), 0u) << shown << run.errors;
    EXPECT_EQ(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << shown << run.errors;
    EXPECT_NE(run.errors.find(refusal.words), std::string::npos) << shown << run.errors;
}

TEST(FovixRender, RefusesInOneSentenceThatSaysWhatWouldBeRight) {
    constexpr int usage = 2, runTime = 1;
    writeText(testFolder() / "letter.txt", "no picture");
    const std::vector<Refusal> refusals{
        {{}, usage, "give a picture or video, or --sample"},
        {{"a.png", "--sample"}, usage, "either 'a.png' or --sample"},
        {{"a.png", "b.png"}, usage, "'b.png' is one input too many"},
        {{"--sample", "--colour"}, usage, "'--colour' is not understood; fovix-render --help"},
        {{"--sample=floor"}, usage, "ceiling or wall"},
        {{"--sample", "--sample"}, usage, "--sample is given twice"},
        {{"--sample", "--size"}, usage, "--size is given twice or lacks its value"},
        {{"--sample", "--size", "640"}, usage, "WIDTHxHEIGHT"},
        {{"--sample", "--size", "0x480"}, usage, "WIDTHxHEIGHT"},
        {{"--sample", "--size", "640x-480"}, usage, "WIDTHxHEIGHT"},
        {{"--sample", "--size", "640x480x3"}, usage, "WIDTHxHEIGHT"},
        {{"--sample", "--size", "99999999999x3"}, usage, "WIDTHxHEIGHT"},
        {{"--sample", "--lens", "1,2,3,4"}, usage, "five whole numbers"},
        {{"--sample", "--lens", "1,2,3,4,5,6"}, usage, "five whole numbers"},
        {{"--sample", "--lens", "1,2,0,4,5"}, usage, "five whole numbers"},
        {{"--sample", "--lens", "1,2,3.5,4,5"}, usage, "five whole numbers"},
        {{"--sample", "--type", "panorama"}, usage, "360, 180, original, fisheye, korvel"},
        {{"--sample", "--type", "-1"}, usage, "a number or one of"},
        {{"--sample", "--frames", "0"}, usage, "from 1 to 1000000"},
        {{"--sample", "--background", "red"}, usage, "RRGGBB"},
        {{"--sample", "--background", "12345"}, usage, "RRGGBB"},
        {{"--sample", "--output", "view.jpg"}, usage, "ends in .png"},
        {{"missing.mp4"}, runTime, "'missing.mp4' cannot be opened: No such file"},
        {{"letter.txt"}, runTime, "'letter.txt' is not a picture or video"},
        {{"--sample", "-o", "missing/view.png"}, runTime, "cannot write 'missing/view.png'"},
        {{"--sample", "--size", "60000x60000"}, runTime, "the largest is"},
    };
    for (const Refusal& refusal : refusals) expectRefusal(runFovixRender(refusal.arguments), refusal);
}

TEST(FovixRender, SaysWhatToInstallWhereGlIsMissing) {
    const Refusal refusal{
        {"--sample"}, 1, "install a GL driver, on Debian the packages libegl1 and libgl1-mesa-dri"};
    for (const char* crippled : {"__EGL_VENDOR_LIBRARY_FILENAMES=/nowhere", "LIBGL_DRIVERS_PATH=/nowhere"})
        expectRefusal(runFovixRender(refusal.arguments, {crippled}), refusal);
}

TEST(FovixRender, RefusesPicturesAboveTheTextureLimit) {
    writeMedia((testFolder() / "long.mkv").string(), "ffv1", AV_PIX_FMT_YUV420P, 32770, 2, 1);
    expectRefusal(runFovixRender({"long.mkv"}), {{"long.mkv"}, 1, "larger than the textures of this GL"});
}

}  // namespace
