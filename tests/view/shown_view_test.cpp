// A view as fovix-view shows it, on a surface without a window: what keys leave it in and say, and where
// double clicks and rectangles bring it.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <sstream>
#include <thread>

#include "TestFiles.h"
#include "media/PngWriter.h"
#include "setup/View.h"
#include "surface/GlContext.h"
#include "viewer/aim/LibraryCalls.h"
#include "viewer/state/ViewKeys.h"

using namespace fovix_host;

namespace {

constexpr SurfaceScale kSurface{.width = 320, .height = 200};

// Shows one square image, light all over.
class ShownFrame {
  public:
    explicit ShownFrame(int type, unsigned int background = 0)
        : _options(optionsOf(type, background)), _shown(_view.handle(), _options, _playback) {
        Fovix_Prepare(_view.handle());
        Fovix_Init(_view.handle(), kSurface.width, kSurface.height);
        _playback = std::make_unique<Playback>(_options, Playback::Host{_view.handle(), 1024, [] {}});
        _shown.reset();
        while (_playback->frames().size().width == 0) std::this_thread::yield();
        draw(1);
    }

    VRHANDLE handle() const { return _view.handle(); }
    ShownView& shown() { return _shown; }
    // Keys by their names; what the last one says.
    std::string press(const std::string& keys) {
        std::istringstream names(keys);
        std::string said;
        for (std::string name; names >> name;) said = changeView(_shown, *keyNamed(name));
        return said;
    }
    LibraryCalls& calls() { return _calls; }
    const std::string& said() const { return _said; }

    // Only the last frame is seen; a corner of the others is enough.
    void draw(int frames) {
        _gl.setDrawnPart(1, 1);
        while (--frames > 0) Fovix_Drawself(_view.handle());
        _gl.setDrawnPart(_gl.width(), _gl.height());
        Fovix_Drawself(_view.handle());
    }
    RgbaImage image() const { return _gl.readPixels(); }

    // Pan, tilt and zoom of panoramas; three values and the zoom of the others.
    std::array<double, 7> pose() const {
        std::array<double, 7> now{};
        Fovix_GetPTZ_SubScreen(_view.handle(), 0, &now[0], &now[1], &now[2], nullptr);
        Fovix_GetRotateZoom_SubScreen(_view.handle(), 0, &now[3], &now[4], &now[5], &now[6]);
        return now;
    }

    FrameSpot spotAt(SurfacePosition at) {
        Fovix_SetBackground(_view.handle(), 0);
        const PickedSpots picked = pickSpots(_view.handle(), _playback->frames(), kSurface, {at});
        return picked.spots.empty() ? FrameSpot{-1, -1} : picked.spots.front();
    }

  private:
    static ViewerOptions optionsOf(int type, unsigned int background) {
        RgbaImage light(64, 64);
        std::fill(light.pixels.begin(), light.pixels.end(), std::uint8_t{200});
        writePng(fileInTest("light.png"), light);
        ViewerOptions options;
        options.input.inputs = {fileInTest("light.png")};
        options.input.lens = LensCircle{32, 32, 32, 64, 64};
        options.view.type = type;
        options.background = background;
        return options;
    }

    GlContext _gl{kSurface.width, kSurface.height};
    View _view{Fovix_Create};
    ViewerOptions _options;
    std::unique_ptr<Playback> _playback;
    ShownView _shown;
    std::string _said;
    LibraryCalls _calls{_view.handle(), [this]() -> FrameRelay& { return _playback->frames(); }, _shown,
                        kSurface, [this](const std::string& word) { _said = word; }};
};

TEST(ShownView, KeysLeaveItAsTheySay) {
    struct Case {
        const char* keys;
        const char* said;   // by the last one
        const char* shown;  // after all of them
        const char* cruise;
    };
    const char* off = "cruise off, speed 1.0";
    const Case cases[] = {
        {"c", "cruise on, speed 1.0", "360 · ceiling · single", "cruise on, speed 1.0"},
        {"c c", off, "360 · ceiling · single", off},
        {"+ c", "cruise on, speed 1.5", "360 · ceiling · single", "cruise on, speed 1.5"},
        {"c - -", "cruise on, speed -0.5", "360 · ceiling · single", "cruise on, speed -0.5"},
        {"+ + + + + + + + + +", "cruise off, speed 5.0", "360 · ceiling · single", "cruise off, speed 5.0"},
        {"c b", "", "360 · ceiling · single", "cruise on, speed 1.0"},
        {"c r", "360 · ceiling · single", "360 · ceiling · single", off},
        {"c s", "360 · ceiling · dome", "360 · ceiling · dome", off},
        {"c m", "360 · wall · single", "360 · wall · single", off},
        {"m c", "this view cannot cruise", "360 · wall · single", off},
        {"c t", "180 · disc", "180 · disc", off},
        {"c 3", "original", "original", off},
        {"c 1", "360 · ceiling · single", "360 · ceiling · single", "cruise on, speed 1.0"},
        {"s s Home", "360 · ceiling · bowl", "360 · ceiling · bowl", off},
        {"m 2 1 r", "360 · wall · single", "360 · wall · single", off},
        {"2 d c r", "180 · stretch", "180 · stretch", off},
        {"3 s", "original: no other choice", "original", off},
        {"7 c", "cruise on, speed 1.0", "pip · inset", "cruise on, speed 1.0"},
        {"7 c r", "pip · inset", "pip · inset", off},
    };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.keys);
        ShownFrame view(FOVIX_TYPE_360VR);
        const std::string said = view.press(test.keys);
        EXPECT_EQ(said, test.said);
        EXPECT_EQ(view.shown().description(), test.shown);
        EXPECT_EQ(view.shown().cruiseDescription(), test.cruise);
        view.draw(3);
        const auto before = view.pose();
        view.draw(10);
        const auto after = view.pose();
        const bool turns = after[0] != before[0] || after[3] != before[3];
        const std::string cruise = view.shown().cruiseDescription();
        EXPECT_EQ(turns, cruise.starts_with("cruise on"));
        const bool forwards = cruise.find("speed -") == cruise.npos;
        EXPECT_TRUE(after[0] == before[0] || (after[0] > before[0]) == forwards);
        const bool beginsAnew = said == test.shown && !turns;
        EXPECT_TRUE(!beginsAnew || after == before) << "what began with the cruise continues";
    }
}

TEST(ShownView, BlendsFromOneLayoutIntoTheNext) {
    std::vector<RgbaImage> halfway;
    for (const bool byKey : {true, false}) {
        ShownFrame view(FOVIX_TYPE_360VR);
        view.press("s");
        view.draw(60);
        if (byKey)
            view.press("s");
        else
            Fovix_SetShape(view.handle(), FOVIX_SHAPE_BOWL);
        view.draw(10);
        halfway.push_back(view.image());
    }
    EXPECT_EQ(halfway[0].pixels, halfway[1].pixels);
}

TEST(ShownView, ReportsALensThatDoesNotFitTheFrame) {
    ShownFrame view(FOVIX_TYPE_360VR);
    const auto misfitWith = [&](const std::optional<LensCircle>& lens) {
        view.shown().setLens(lens);
        return view.shown().misfit();
    };
    const LensCircle wide{960, 540, 530, 1920, 1080};
    EXPECT_EQ(misfitWith(std::nullopt), "");
    EXPECT_EQ(misfitWith(LensCircle{960, 960, 940, 1920, 1920}), "");
    EXPECT_NE(misfitWith(wide).find("64x64"), std::string::npos) << misfitWith(wide);
    view.press("8");
    EXPECT_EQ(misfitWith(wide), "") << "one of two lenses in a frame";
}

TEST(LibraryCalls, IgnoreWhatIsBesideTheFrame) {
    for (const int type : {FOVIX_TYPE_360VR, FOVIX_TYPE_ORIGINAL})
        for (const unsigned int background : {0x000000u, 0xFFFFFFu, 0x2040AAu}) {
            SCOPED_TRACE(testing::Message() << "type " << type << " on " << background);
            ShownFrame view(type, background);
            const auto before = view.pose();
            const auto expectIgnored = [&] {
                view.draw(60);
                EXPECT_EQ(view.said(), "no image there");
                EXPECT_EQ(view.pose(), before);
                const RgbaImage image = view.image();
                const std::uint8_t* corner = image.at(0, 0);
                EXPECT_EQ((corner[0] << 16 | corner[1] << 8 | corner[2]) & 0xFFFFFFu, background);
            };
            view.calls().lookAt({5, 100});
            expectIgnored();
            if (type == FOVIX_TYPE_360VR) view.calls().showRectangle({2, 2}, {20, 190});
            expectIgnored();
        }
}

// In panoramas and half views a second click looks elsewhere; in the others it shows the whole frame again.
TEST(LibraryCalls, BringThePointToTheMiddle) {
    struct Case {
        const char* keys;
        SurfacePosition at;
    };
    for (const Case& test :
         {Case{"1", {120, 60}}, Case{"1", {180, 140}}, Case{"m", {190, 140}}, Case{"m m", {130, 130}},
          Case{"m s s", {160, 80}}, Case{"2 d d d", {140, 80}}, Case{"3", {120, 60}}, Case{"7", {140, 90}}}) {
        SCOPED_TRACE(test.keys);
        ShownFrame view(FOVIX_TYPE_360VR);
        view.press(test.keys);
        view.draw(1);
        constexpr double kClose = 4;  // of 64 pixels
        const FrameSpot before = view.spotAt({160, 100});
        for (const SurfacePosition at : {test.at, SurfacePosition{220, 120}}) {
            const FrameSpot wanted = view.spotAt(at);
            view.calls().lookAt(at);
            view.draw(170);
            const FrameSpot seen = view.spotAt({160, 100});
            EXPECT_NEAR(seen.x, wanted.x, kClose) << at.x << ',' << at.y;
            EXPECT_NEAR(seen.y, wanted.y, kClose) << at.x << ',' << at.y;
            if (view.calls().type() <= FOVIX_TYPE_180VR) continue;
            view.calls().lookAt(at);
            view.draw(170);
            EXPECT_NEAR(view.spotAt({160, 100}).x, before.x, kClose) << "back";
            break;
        }
    }
}

TEST(LibraryCalls, ShowARectangleOfAPanoramaAndLittleMore) {
    for (const auto& [key, half] :
         {std::pair{"1", 30.f}, std::pair{"1", 60.f}, std::pair{"m", 10.f}, std::pair{"m", 50.f}}) {
        SCOPED_TRACE(key);
        SCOPED_TRACE(half);
        ShownFrame view(FOVIX_TYPE_360VR);
        view.press(key);
        view.draw(1);
        const SurfacePosition from{180 - half, 80 - half}, to{180 + half, 80 + half};
        const FrameSpot first = view.spotAt(from), last = view.spotAt(to);
        view.calls().showRectangle(from, to);
        view.draw(170);
        const FrameSpot middle = view.spotAt({160, 100});
        EXPECT_NEAR(middle.x, (first.x + last.x) / 2, 2);
        EXPECT_NEAR(middle.y, (first.y + last.y) / 2, 2);
        const FrameSpot left = view.spotAt({60, 100}), right = view.spotAt({259, 100});
        const double shown = std::hypot(right.x - left.x, right.y - left.y) / (last.x - first.x);
        EXPECT_GT(shown, 1);
        EXPECT_LT(shown, 1.3);
    }
}

}  // namespace
