// What fovix-render shows with each display type and with the options that set views: small stored pictures.
// To store what has changed, run FOVIX_UPDATE=1 build/PRESET/tests/host/host_test
// --gtest_filter='RenderTypes.*', and look at what git shows.

#include <filesystem>

#include "Image.h"
#include "MediaFiles.h"
#include "ProgramRun.h"
#include "TestFiles.h"

namespace {

// The PNG file that fovix-render draws.
std::string drawn(const std::string& arguments) {
    const ProgramRun run = runFovixRender(arguments + " --quiet -o view.png");
    EXPECT_EQ(run.status, 0) << arguments;
    EXPECT_EQ(run.errors, "") << arguments;
    return fileInTest("view.png");
}

TEST(RenderTypes, LookLikeTheirStoredPictures) {
    // Files cost less to draw than the sample, which knows its lens circle.
    for (const std::string from : {"ceiling", "wall"})
        std::filesystem::rename(drawn("--size 640x640 --sample=" + from), fileInTest(from + ".png"));
    const std::string lens = " --lens 320,320,312,640,640 ";
    const std::string ceiling360 = "ceiling.png --type 360" + lens, wall180 = "wall.png --type 180" + lens;
    struct Shown {
        const char* picture;
        std::string arguments;
    };
    for (const Shown& shown : {
             Shown{"original", "--sample"},
             Shown{"original-moved", "ceiling.png --rotate-zoom 0:0,30,0,2"},
             Shown{"original-flat-lens", "ceiling.png --lens 320,160,160,640,320 --background 3060c0"},
             Shown{"360", "--sample --type 360"},
             Shown{"360-other-lens", "ceiling.png --type 360 --lens 350,300,150,640,640"},
             Shown{"360-turned", ceiling360 + "--ptz 0:270,40,40"},
             Shown{"360-wall-inverted", "wall.png --type 360 --mount wall-inverted" + lens},
             Shown{"360-wall-strip", "wall.png --type 0 --mount 1 --shape 5" + lens},
             Shown{"360-four-screens", ceiling360 + "--shape four-screens --select 120,70"},
             Shown{"360-five", ceiling360 + "--shape overview-five --ptz 2:10,60,50"},
             Shown{"360-two-and-strip", ceiling360 + "--shape two-and-strip --ptz 0:9,30,40"},
             Shown{"180", "--sample=wall --type 180"},
             Shown{"180-stretch", wall180 + "--shape stretch"},
             Shown{"180-curved", wall180 + "--draw-mode curved"},
             Shown{"180-four-screens", wall180 + "--shape four-screens --rotate-zoom 0:0,0,0,12"},
             Shown{"180-large-and-two", wall180 + "--shape 10 --rotate-zoom 2:0,30,0,9"},
             Shown{"korvel", "wall.png --type korvel" + lens},
             Shown{"grid", "--sample --type grid"},
             Shown{"grid-1x2", "--sample=wall --type grid --grid 1x2"},
             Shown{"lenses", "--sample --type lenses --show-lens 1"},
             Shown{"pip", "wall.png --type pip --size 90x90"},
             Shown{"two-lenses", "--sample --type two-lenses --logic-zoom 1,10,3,6"},
             Shown{"two-lenses-both", "--sample --type two-lenses --two-lenses both"},
             Shown{"two-lenses-second", "--sample=wall --type 24 --two-lenses 1,2"},
         }) {
        const std::string size = shown.arguments.find("--size") == std::string::npos ? " --size 160x90" : "";
        const fovix_test::Image image = fovix_test::readPng(drawn(shown.arguments + size));
        EXPECT_TRUE(fovix_test::isAsStored(std::string(FOVIX_STORED "/") + shown.picture + ".png", image))
            << shown.arguments;
    }
}

TEST(RenderTypes, NamesStandForTheLibrarysNumbers) {
    std::string names;
    for (const std::string& line : linesOf(runFovixRender("--list").output))
        if (line.starts_with("  ")) names += wordsOf(line)[0] + " " + wordsOf(line)[1] + ", ";
    EXPECT_EQ(
        names,
        "0 360, 1 180, 2 original, 2 fisheye, 3 korvel, 20 grid, 21 lenses, 22 pip, 24 two-lenses, "
        "0 ceiling, 1 wall, 2 wall-inverted, 3 floor, 0 single, 1 dome, 2 bowl, 3 cylinder, "
        "4 cylinder-inside, 5 strip, 6 two-strips, 7 four-screens, 8 overview-five, 9 two-and-strip, "
        "0 disc, 3 cylinder, 5 stretch, 7 four-screens, 10 large-and-two, 0 disc, 1 stretch, 2 cylinder, "
        "3 curved, 0 plain, 3 inset, 0 by-zoom, 1 both, 2 upper, 3 lower, 0 both, 1 first, 2 second, ");
}

TEST(RenderTypes, AnimationsEndBeforeTheFrameUnlessFramesAreAsked) {
    writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 64, 64, 1);
    for (const std::string view : {"--type 360 --shape cylinder", "--type 180 --shape four-screens",
                                   "--type 24 --two-lenses both,second"}) {
        const auto bytes = [&](const std::string& frames) {
            return readText(drawn("in.mkv --size 96x64 " + view + frames));
        };
        const std::string settled = bytes("");
        EXPECT_EQ(settled, bytes(" --frames 300 --every last")) << view;
        EXPECT_NE(settled, bytes(" --frames 1")) << view;
    }
}

}  // namespace
