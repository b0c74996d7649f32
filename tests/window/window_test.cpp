// fovix-view in a real window: what hands and keys do to what is seen, and how it ends.

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <filesystem>

#include "MediaFiles.h"
#include "TestFiles.h"
#include "VirtualDisplay.h"
#include "media/MediaReader.h"

using fovix_host::RgbaImage;

namespace {

constexpr int kWindowWidth = 640, kWindowHeight = 360;
constexpr int kWindowLeft = (VirtualDisplay::kWidth - kWindowWidth) / 2;
constexpr int kWindowTop = (VirtualDisplay::kHeight - kWindowHeight) / 2;

// "mousemove X Y" for a point of the window.
std::string to(int x, int y) {
    return "mousemove " + std::to_string(kWindowLeft + x) + " " + std::to_string(kWindowTop + y) + " ";
}

std::vector<std::string> viewer(std::vector<std::string> words) {
    words.insert(words.begin(), FOVIX_VIEW);
    words.insert(words.end(), {"--size", "640x360"});
    return words;
}

// Whether a program shows something, wherever.
bool isLit(const RgbaImage& image) {
    static const RgbaImage kBlack(VirtualDisplay::kWidth, VirtualDisplay::kHeight);
    return difference(kBlack, image) > 0.01;
}

// A viewer of the sample, stopped so that nothing moves but by hand.
class StillViewer {
  public:
    explicit StillViewer(std::vector<std::string> words)
        : _viewer(viewer(std::move(words)), {_display.environment()}, "viewer") {
        EXPECT_TRUE(becomesTrue([&] { return isLit(_display.grab()); })) << "no window: " << _viewer.errors();
        _display.steer(to(2, 2) + "key space");
    }

    VirtualDisplay& display() { return _display; }
    ChildProcess& process() { return _viewer; }
    RgbaImage settled() const { return _display.settled(); }

    // Steers, and gives how much that has changed once everything is at rest again.
    double change(const std::string& words) {
        const RgbaImage before = settled();
        _display.steer(words + " " + to(2, 2));
        double seen = 0;
        becomesTrue([&] {
            seen = difference(before, settled());
            return seen > 0.001;
        });
        return seen;
    }

  private:
    VirtualDisplay _display;
    ChildProcess _viewer;
};

const std::string kDrag = to(320, 100) + "mousedown 1 " + to(360, 130) + to(420, 150) + "sleep 0.3 mouseup 1";
const std::string kFling = to(500, 200) + "mousedown 1 " + to(400, 200) + to(300, 200) + "mouseup 1";

TEST(Window, ShowsWhatHandsAndKeysDo) {
    struct Case {
        const char* what;
        std::string words;
        double least;  // part of the display that changes; the window is a quarter of it
    };
    StillViewer view({"--sample"});
    for (const Case& act : {
             Case{"a drag", kDrag, .02},
             Case{"the view as it was", "key r", .02},
             Case{"the wheel", to(320, 180) + "click --repeat 6 4", .05},
             Case{"another shape", "key s", .05},
             Case{"another mount", "key m", .05},
             Case{"another type", "key t", .05},
             Case{"a double click of the 180-degree view", to(250, 120) + "click --repeat 2 --delay 50 1",
                  .05},
             Case{"a rectangle of it",
                  "keydown shift " + to(400, 200) + "mousedown 1 " + to(500, 250) + to(600, 300) +
                      "mouseup 1 keyup shift",
                  .02},
             Case{"the next type by its number", "key 3", .05},
             Case{"closer with a double click", to(320, 100) + "click --repeat 2 --delay 50 1", .05},
             Case{"and back", to(320, 100) + "click --repeat 2 --delay 50 1", .05},
             Case{"another background", "key b", .05},
             Case{"one picture on", "key period key period key period", .001},
             Case{"the help", "key question", .05},
             Case{"which Esc closes", "key Escape", .05},
             Case{"a larger window", "search --name fovix-view windowsize 900 500", .05},
         }) {
        EXPECT_GT(view.change(act.words), act.least) << act.what;
    }
    view.display().steer("key q");
    EXPECT_EQ(view.process().wait(), 0);
    EXPECT_EQ(view.process().output() + view.process().errors(), "");
}

TEST(Window, TurnsOnAfterAFlingUntilItIsTouched) {
    StillViewer view({"--sample"});
    const RgbaImage before = view.settled();
    view.display().steer(kFling + " " + to(2, 2));
    int moving = 0;
    RgbaImage last = before;
    EXPECT_TRUE(becomesTrue([&] {
        RgbaImage next = view.display().grab();
        if (difference(last, next) > 0.002) ++moving;
        last = std::move(next);
        return moving > 10;
    })) << "nothing spins";
    view.display().steer(to(320, 100) + "mousedown 1 sleep 0.3 mouseup 1 " + to(2, 2));
    EXPECT_GT(difference(before, view.settled()), 0.02);
}

TEST(Window, BringsTheLandmarkThatIsClickedTwiceToTheMiddle) {
    StillViewer view({"--sample", "--type", "original"});
    // The middle of what is magenta: the panel left of the crossing.
    const auto panel = [](const RgbaImage& image) {
        double x = 0, y = 0, count = 0;
        for (int i = 0; i < image.width * image.height; ++i) {
            const std::uint8_t* p = image.pixels.data() + 4 * static_cast<std::ptrdiff_t>(i);
            if (p[0] < 180 || p[1] > 70 || p[2] < 150) continue;
            x += i % image.width;
            y += i / image.width;
            ++count;
        }
        EXPECT_GT(count, 30) << "the panel is not in view";
        return std::array<int, 2>{static_cast<int>(x / count), static_cast<int>(y / count)};
    };
    const auto before = panel(view.settled());
    view.change("mousemove " + std::to_string(before[0]) + " " + std::to_string(before[1]) +
                " click --repeat 2 --delay 50 1");
    const auto after = panel(view.settled());
    EXPECT_NEAR(after[0], VirtualDisplay::kWidth / 2, 12);
    EXPECT_NEAR(after[1], VirtualDisplay::kHeight / 2, 12);
}

TEST(Window, SavesWhatIsSeenAndNeverOverwrites) {
    StillViewer view({"--sample"});
    const RgbaImage seen = view.settled();
    view.display().steer("key p key F12");
    ASSERT_TRUE(becomesTrue([&] {
        const std::string names = view.process().output();
        return std::count(names.begin(), names.end(), '\n') == 2;
    })) << view.process().output()
        << view.process().errors();
    const std::string names = view.process().output();
    const std::string first = names.substr(0, names.find('\n')), second = names.substr(first.size() + 1);
    EXPECT_NE(first, second.substr(0, second.find('\n')));
    fovix_host::MediaReader reader((testFolder() / first).string());
    const AVFrame* saved = reader.next();
    ASSERT_EQ(saved->width, kWindowWidth);
    ASSERT_EQ(saved->height, kWindowHeight);
    for (const auto [x, y] :
         {std::array{320, 180}, std::array{250, 90}, std::array{320, 40}, std::array{20, 20}})
        for (int c = 0; c < 3; ++c)
            EXPECT_NEAR(saved->data[0][y * saved->linesize[0] + 3 * x + c],
                        seen.at(kWindowLeft + x, kWindowTop + y)[c], 2)
                << x << ',' << y;
}

TEST(Window, EndsAsOneExpects) {
    writeMedia((testFolder() / "short.mkv").string(), "ffv1", AV_PIX_FMT_YUV444P, 64, 64, 12);
    writeText(testFolder() / "words.mp4", "no video");
    struct Case {
        std::vector<std::string> words;
        int signal, status;
        const char* errors;  // their start
    };
    const VirtualDisplay display;
    const char* lens = "--lens=32,32,32,64,64";  // so that nothing is said of it
    for (const Case& end :
         {Case{{"short.mkv", lens}, 0, 0, ""}, Case{{"--sample"}, SIGTERM, 0, ""},
          Case{{"short.mkv", lens, "--keep-open"}, SIGINT, 0, ""},
          Case{{"words.mp4"}, 0, 1, "fovix-view: 'words.mp4' is not a picture or video"},
          Case{{"none.mp4"}, 0, 1, "fovix-view: 'none.mp4' cannot be opened: No such file"}}) {
        SCOPED_TRACE(end.words.front());
        ChildProcess program(viewer(end.words), {display.environment()}, "ends");
        if (end.signal != 0) {
            EXPECT_TRUE(becomesTrue([&] { return isLit(display.grab()); }));
            program.signal(end.signal);
        }
        EXPECT_EQ(program.wait(), end.status);
        EXPECT_EQ(program.errors().substr(0, std::string_view(end.errors).size()), end.errors);
        EXPECT_TRUE(end.status != 0 || program.errors().empty()) << program.errors();
    }
    ChildProcess blind(viewer({"--sample"}), {"DISPLAY=", "WAYLAND_DISPLAY="}, "blind");
    EXPECT_EQ(blind.wait(), 1);
    EXPECT_EQ(blind.errors().find("fovix-view: no window: "), 0u) << blind.errors();
}

#ifdef FOVIX_SHOW_PICTURE
TEST(ShowPicture, FollowsADrag) {
    const VirtualDisplay display;
    ChildProcess program({FOVIX_SHOW_PICTURE}, {display.environment()}, "show_picture");
    ASSERT_TRUE(becomesTrue([&] { return isLit(display.grab()); }));
    const RgbaImage before = display.settled();
    display.steer(kDrag + " " + to(2, 2));
    EXPECT_TRUE(becomesTrue([&] { return difference(before, display.grab()) > 0.02; }));
}
#endif

}  // namespace
