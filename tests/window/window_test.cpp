// fovix-view in a real window: that hands and keys reach what is seen, and how it ends.

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <filesystem>

#include "Drawn.h"
#include "ProgramRun.h"
#include "VirtualDisplay.h"

using fovix_host::RgbaImage;

namespace {

constexpr int kWindowLeft = (VirtualDisplay::kWidth - 640) / 2,
              kWindowTop = (VirtualDisplay::kHeight - 360) / 2;

// "mousemove X Y" for a point of the window.
std::string to(int x, int y) {
    return "mousemove " + std::to_string(kWindowLeft + x) + " " + std::to_string(kWindowTop + y) + " ";
}

std::string viewerOn(const VirtualDisplay& display, const std::string& arguments) {
    return display.environment() + "exec fovix-view --size 640x360 " + arguments;
}

// Whether a program shows something, wherever.
bool isLit(const VirtualDisplay& display) {
    static const RgbaImage kBlack(VirtualDisplay::kWidth, VirtualDisplay::kHeight);
    return becomesTrue([&] { return difference(kBlack, display.grab()) > 0.01; });
}

const std::string kDrag = to(320, 100) + "mousedown 1 " + to(360, 130) + to(420, 150) + "sleep 0.3 mouseup 1";
const std::string kFling = to(500, 200) + "mousedown 1 " + to(400, 200) + to(300, 200) + "mouseup 1 ";
const std::string kDoubleClick = "click --repeat 2 --delay 50 1";

// A viewer of the sample, stopped so that nothing moves but by hand.
class Window : public testing::Test {
  protected:
    Window() {
        EXPECT_TRUE(isLit(_display)) << "no window: " << _viewer.errors();
        _display.steer(to(2, 2) + "key space");
    }
    // Steers, and returns how much that has changed from a display at rest to the next.
    double change(RgbaImage& atRest, const std::string& words) {
        const RgbaImage before = atRest;
        _display.steer(words + " " + to(2, 2));
        becomesTrue([&] {
            atRest = _display.settled();
            return difference(before, atRest) > 0.001;
        });
        return difference(before, atRest);
    }

    VirtualDisplay _display;
    ChildProcess _viewer{viewerOn(_display, "--sample"), "viewer"};
};

TEST_F(Window, ShowsWhatHandsAndKeysDo) {
    struct Case {
        const char* what;
        std::string words;
        double least;  // part of the display that changes; the window is a quarter of it
    };
    RgbaImage atRest = _display.settled();
    for (const Case& act : {
             Case{"a drag", kDrag, .02},
             Case{"the initial view", "key r", .02},
             Case{"the wheel", to(320, 180) + "click --repeat 6 4", .05},
             Case{"another shape", "key s", .05},
             Case{"another mount", "key m", .05},
             Case{"another type", "key t", .05},
             Case{"a double click in the 180-degree view", to(250, 120) + kDoubleClick, .05},
             Case{"a rectangle of it",
                  "keydown shift " + to(400, 200) + "mousedown 1 " + to(600, 300) + "mouseup 1 keyup shift",
                  .02},
             Case{"a type by its number", "key 3", .05},
             Case{"another background", "key b", .05},
             Case{"one frame forward", "key period key period key period", .001},
             Case{"the help", "key question", .05},
             Case{"which Esc closes", "key Escape", .05},
             Case{"a larger window", "search --name fovix-view windowsize 900 500", .05},
         })
        EXPECT_GT(change(atRest, act.words), act.least) << act.what;
    _display.steer("key q");
    EXPECT_EQ(_viewer.wait(), 0);
    EXPECT_EQ(_viewer.output() + _viewer.errors(), "");
}

TEST_F(Window, SavesWhatIsSeenAndNeverOverwrites) {
    const RgbaImage seen = _display.settled();
    _display.steer("key p key F12");
    ASSERT_TRUE(becomesTrue([&] { return linesOf(_viewer.output()).size() == 2; })) << _viewer.errors();
    const auto names = linesOf(_viewer.output());
    EXPECT_NE(names[0], names[1]);
    const Drawn saved(names[0]);
    ASSERT_EQ(saved.rgba.width, 640);
    ASSERT_EQ(saved.rgba.height, 360);
    for (const auto& [x, y] :
         {std::pair{320, 180}, std::pair{250, 90}, std::pair{320, 40}, std::pair{20, 20}}) {
        const std::uint8_t* p = seen.at(kWindowLeft + x, kWindowTop + y);
        expectColour(saved.at(x, y), {p[0], p[1], p[2]}, 2, std::to_string(x) + "," + std::to_string(y));
    }
}

TEST_F(Window, SpinsAfterAFlingUntilItIsTouched) {
    const RgbaImage before = _display.settled();
    _display.steer(kFling + to(2, 2));
    int moving = 0;
    RgbaImage last = before;
    EXPECT_TRUE(becomesTrue([&] {
        RgbaImage next = _display.grab();
        if (difference(last, next) > 0.002) ++moving;
        last = std::move(next);
        return moving > 10;
    })) << "nothing spins";
    _display.steer(to(320, 100) + "mousedown 1 sleep 0.3 mouseup 1 " + to(2, 2));
    EXPECT_GT(difference(before, _display.settled()), 0.02);
}

TEST(Viewer, EndsAsOneExpects) {
    writeMedia(fileInTest("short.mkv"), "ffv1", AV_PIX_FMT_YUV444P, 64, 64, 12);
    writeText(testFolder() / "words.mp4", "no video");
    struct Case {
        std::string arguments;
        int signal, status;
        const char* errors;  // their start
    };
    const VirtualDisplay display;
    const std::string shortFilm = "short.mkv --lens=32,32,32,64,64";  // found silently
    for (const Case& end : {Case{shortFilm, 0, 0, ""}, Case{"--sample", SIGTERM, 0, ""},
                            Case{shortFilm + " --keep-open", SIGINT, 0, ""},
                            Case{"words.mp4", 0, 1, "fovix-view: 'words.mp4' "},
                            Case{"none.mp4", 0, 1, "fovix-view: 'none.mp4' "}}) {
        SCOPED_TRACE(end.arguments);
        ChildProcess program(viewerOn(display, end.arguments), "ends");
        if (end.signal != 0) {
            EXPECT_TRUE(isLit(display));
            program.signal(end.signal);
        }
        EXPECT_EQ(program.wait(), end.status);
        EXPECT_TRUE(program.errors().starts_with(end.errors)) << program.errors();
        EXPECT_TRUE(end.status != 0 || program.errors().empty()) << program.errors();
    }
    ChildProcess blind("DISPLAY= WAYLAND_DISPLAY= exec fovix-view --sample", "blind");
    EXPECT_EQ(blind.wait(), 1);
    EXPECT_TRUE(blind.errors().starts_with("fovix-view: ")) << blind.errors();
}

#ifdef FOVIX_SHOW_PICTURE
TEST(ShowPicture, FollowsADrag) {
    const VirtualDisplay display;
    const ChildProcess program(display.environment() + "exec " FOVIX_SHOW_PICTURE, "show_picture");
    ASSERT_TRUE(isLit(display));
    const RgbaImage before = display.settled();
    display.steer(kDrag + " " + to(2, 2));
    EXPECT_TRUE(becomesTrue([&] { return difference(before, display.grab()) > 0.02; }));
}
#endif

}  // namespace
