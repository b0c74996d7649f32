// Touch on the 360-degree panorama.
#include "TouchController360VR.h"

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

#include "panorama_reference.h"
#include "steered_view.h"

using namespace fovix;

namespace {

constexpr float kLargest = std::numeric_limits<float>::max();
constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();
constexpr int kUntilLanded = 2000;

/// Pan, tilt, zoom and roll.
struct Sight {
    double pan, tilt, zoom, roll = 0.0;
};

struct Panorama : SteeredView {
    explicit Panorama(int mount = 0, int shape = 0, int width = 1024)
        : SteeredView(FOVIX_TYPE_360VR, width, 800) {
        Fovix_SetCameraMount(*this, mount);
        Fovix_SetShape(*this, shape);
    }
    TouchController& screen(int index) const {
        return *static_cast<VRHANDLE>(*this)->display.load()->controllers[static_cast<std::size_t>(index)];
    }
    Sight sight(int index = 0) const {
        const auto& p = paramsOf<VR360TouchParams>(screen(index));
        return {p.mPan, p.mTilt, p.mZoom, p.mRoll};
    }
    FovixContext* operator->() const { return static_cast<VRHANDLE>(*this); }
    /// The view as another aim sets it, and one frame.
    void look(const Sight& sight, int index = 0) const {
        screen(index).operations.setPTZ(screen(index), sight.pan, sight.tilt, sight.zoom, sight.roll);
        screen(index).operations.update(screen(index));
    }
};

void expectSight(const Sight& expected, const Sight& actual, const std::string& where,
                 double tolerance = 1e-9) {
    EXPECT_NEAR(expected.pan, actual.pan, tolerance) << where;
    EXPECT_NEAR(expected.tilt, actual.tilt, tolerance) << where;
    EXPECT_NEAR(expected.zoom, actual.zoom, tolerance) << where;
    EXPECT_NEAR(expected.roll, actual.roll, tolerance) << where;
}

using Gesture = std::function<void(Panorama&)>;

Gesture drag(float x, float y) {
    return [=](Panorama& v) { Fovix_OnTouchDown(v, 100, 100), Fovix_OnTouchMove(v, 100 + x, 100 + y); };
}

/// A pinch as the distances of the fingers, or a twist as their directions in degrees, around (500, 500).
Gesture fingers(std::vector<std::pair<double, double>> distancesAndDegrees) {
    return [=](Panorama& v) {
        Fovix_OnTouchDown(v, 0, 0);
        for (const auto& [distance, degrees] : distancesAndDegrees) {
            const auto dx = static_cast<float>(distance / 2 * std::cos(degrees * 0.01745329252));
            const auto dy = static_cast<float>(distance / 2 * std::sin(degrees * 0.01745329252));
            Fovix_OnTouchPinch(v, 500 - dx, 500 - dy, 500 + dx, 500 + dy);
        }
    };
}

Gesture scales(std::vector<float> values) {
    return [=](Panorama& v) {
        for (const float scale : values) Fovix_OnTouchPinchScale(v, scale);
    };
}

Gesture turns(float a, float b, float c) {
    return [=](Panorama& v) { Fovix_OnOrientation(v, a, b, c); };
}

Gesture target(int x, int y, int width, int height) {
    return [=](Panorama& v) { Fovix_DisplayTarget(v, x, y, width, height); };
}

Gesture cruise(double speed) {
    return [=](Panorama& v) { Fovix_StartAutoCruise(v, speed); };
}

void settle(Panorama& view) {
    Fovix_AutoAdjust(view);
}

}  // namespace

TEST(PanoramaTouch, ViewsStartAndStayWithinTheLimitsOfMountAndShape) {
    struct Case {
        int mount, shape;
        Sight start, low, high;
    };
    const Case cases[] = {
        {0, 0, {90, 0, 90}, {-999, 0, 5}, {999, 90, 90}},
        {0, 1, {90, 75, 90}, {-999, 60, 90}, {999, 100, 90}},
        {0, 2, {90, -75, 90}, {-999, -100, 90}, {999, -60, 90}},
        {0, 3, {90, 0, 90}, {-999, -45, 90}, {999, 45, 90}},
        {0, 4, {90, 0, 90}, {-999, -10, 90}, {999, 10, 90}},
        {0, 5, {0, 0, 90}, {-999, 0, 90}, {999, 0, 90}},
        {0, 6, {90, 0, 90}, {-999, 0, 90}, {999, 0, 90}},
        {0, 7, {0, 50, 40}, {-999, 0, 5}, {999, 90, 40}},
        {0, 8, {90, 0, 40}, {-999, 0, 5}, {999, 90, 40}},
        {0, 9, {0, 50, 40}, {-999, 0, 5}, {999, 90, 40}},
        {0, 10, {90, 0, 90}, {-999, 0, 5}, {999, 90, 90}},
        {1, 0, {90, 90, 90}, {15, 15, 5}, {165, 165, 90}},
        {1, 2, {90, -75, 90}, {-999, -100, 90}, {999, -60, 90}},
        {1, 5, {90, 90, 90}, {-999, 0, 90}, {999, 180, 90}},
        {1, 6, {90, 0, 90}, {-999, 0, 90}, {999, 0, 90}},
        {1, 8, {90, 0, 40}, {-999, 0, 5}, {999, 90, 40}},
        {1, 10, {90, 90, 90}, {15, 15, 5}, {165, 165, 90}},
        {2, 0, {90, 90, 90}, {0, 0, 5}, {180, 180, 90}},
        {2, 3, {90, 90, 90}, {0, 0, 5}, {180, 180, 90}},
        {3, 0, {90, 0, 90}, {0, 0, 5}, {180, 180, 90}},
    };
    for (const Case& c : cases) {
        const std::string where = "mount " + std::to_string(c.mount) + " shape " + std::to_string(c.shape);
        const Panorama view(c.mount, c.shape);
        for (const int unknown : {-1, 11, kMost, kLeast}) {
            Fovix_SetShape(view, unknown), Fovix_SetCameraMount(view, unknown);
        }
        expectSight(c.start, view.sight(), where + " start");
        view.look({-999, -999, -999});
        expectSight(c.low, view.sight(), where + " low");
        view.look({999, 999, 999, 720});
        expectSight({c.high.pan, c.high.tilt, c.high.zoom, 720}, view.sight(), where + " high");
    }
}

TEST(PanoramaTouch, LayoutsTurnEveryScreenElsewhere) {
    struct Case {
        int shape, screen;
        Sight start;
    };
    const Case cases[] = {{7, 0, {0, 50, 40}},   {7, 1, {90, 50, 40}},  {7, 3, {270, 50, 40}},
                          {8, 1, {0, 50, 40}},   {8, 3, {144, 50, 40}}, {8, 5, {288, 50, 40}},
                          {9, 1, {180, 50, 40}}, {9, 2, {90, 0, 40}}};
    for (const Case& c : cases) {
        Panorama view(0, c.shape);
        expectSight(c.start, view.sight(c.screen), "shape " + std::to_string(c.shape));
        view.screen(c.screen).operations.update(view.screen(c.screen));
        Sight drawn{};
        Fovix_GetPTZ_SubScreen(view, c.screen, &drawn.pan, &drawn.tilt, &drawn.zoom, &drawn.roll);
        expectSight(c.start, drawn, "in the model, shape " + std::to_string(c.shape));
    }
}

TEST(PanoramaTouch, GesturesEndInTheirView) {
    struct Case {
        const char* name;
        int mount, shape, width;
        Sight before;
        Gesture gesture;
        int frames;
        Sight after;
    };
    const double toCorner = std::sqrt(80000.0 / 410000.0);  // of (200, 200) in half of 800 by 1000
    const auto retarget = [](Panorama& v) { settle(v), Fovix_DisplayTarget(v, 500, 300, 1001, 601); };
    const Case cases[] = {
        {"narrow surface", 0, 0, 512, {90, 10, 80}, drag(90, 45), 1, {50, 30, 80}},
        {"surface without size", 0, 0, 0, {90, 10, 80}, drag(90, 45), 1, {70, 20, 80}},
        {"wall's bowl", 1, 2, 1024, {90, -75, 90}, drag(20, 40), 1, {80, -80, 90}},
        {"wall's strips", 1, 6, 1024, {90, 0, 90}, drag(100, 50), 1, {65, 0, 90}},
        {"landing", 0, 0, 1024, {90, 0, 90}, scales({1, 1.5f}), 572, {90, 50, 40}},
        {"first scale", 0, 0, 1024, {90, 0, 90}, scales({2}), 1, {90, 0, 45}},
        {"rim springs back", 0, 0, 1024, {10, 85, 10}, scales({1, 1.6f}), kUntilLanded, {10, 83.75, 6.25}},
        {"no fingers have these", 1, 0, 1024, {90, 90, 60}, scales({0, -3}), 1, {90, 90, 60}},
        {"overview", 0, 8, 1024, {90, 10, 30}, scales({1, 2, 0.5f}), 1, {90, 10, 30}},
        {"pinch", 1, 0, 1024, {90, 90, 60}, fingers({{300, 0}, {400, 0}}), 1, {90, 90, 45}},
        {"twist", 1, 0, 1024, {90, 90, 60, 5}, fingers({{300, 20}, {310, 35}}), 1, {90, 90, 60, 20}},
        {"from one point", 1, 0, 1024, {90, 90, 60}, fingers({{0, 0}, {100, 0}, {200, 0}}), 1, {90, 90, 30}},
        {"to one point", 1, 0, 1024, {90, 90, 60}, fingers({{300, 0}, {0, 0}}), 1, {90, 90, 90}},
        {"settle in a layout", 0, 7, 1024, {10, 80, 40}, settle, kUntilLanded, {10, 50, 40}},
        {"settle on a wall", 1, 0, 1024, {90, 150, 60}, settle, kUntilLanded, {90, 150, 60}},
        {"turn", 0, 0, 1024, {10, 20, 60}, turns(5, 19, -10), 1, {-2, 26, 60}},
        {"jump", 0, 0, 1024, {10, 20, 60}, turns(5, 21, -10), 1, {10, 20, 60}},
        {"cruise round", 0, 3, 1024, {10, 20, 90}, cruise(-3), 500, {-290, 20, 90}},
        {"cruise closer", 0, 0, 1024, {0, 0, 90}, cruise(10), 600, {1200, 50, 40}},
        {"target middle", 0, 0, 1024, {450, 30, 60}, target(500, 300, 1001, 601), kUntilLanded, {180, 0, 60}},
        {"target",
         0,
         0,
         1024,
         {0, 0, 40},
         target(600, 700, 800, 1000),
         kUntilLanded,
         {225, 50 * toCorner, 40}},
        {"target in a rebound", 0, 0, 1024, {0, 80, 40}, retarget, 1, {900 / 101.0, 80 - 400 / 101.0, 40}},
        {"no size", 0, 0, 1024, {90, 30, 40}, target(0, -5, 1, -1), kUntilLanded, {90, 0, 40}},
    };
    for (const Case& c : cases) {
        Panorama view(c.mount, c.shape, c.width);
        view.look(c.before);
        c.gesture(view);
        view.frames(c.frames);
        expectSight(c.after, view.sight(), c.name, 1e-4);
        Sight drawn{};
        Fovix_GetPTZ(view, &drawn.pan, &drawn.tilt, &drawn.zoom, &drawn.roll);
        expectSight(view.sight(), drawn, std::string("in the model: ") + c.name);
    }
}

TEST(PanoramaTouch, ReboundFallsBackAFifthBeforeItRests) {
    Panorama view;
    view.look({0, 90, 40});
    Fovix_AutoAdjust(view);
    double lowest = 90.0, fallback = 0.0;
    for (int frame = 0; frame < kUntilLanded; ++frame) {
        view.frames(1);
        if (lowest == 50.0) fallback = std::max(fallback, view.sight().tilt);
        lowest = std::min(lowest, view.sight().tilt);
    }
    EXPECT_EQ(50.0, lowest);
    EXPECT_DOUBLE_EQ(58.0, fallback);
    EXPECT_EQ(50.0, view.sight().tilt);
}

TEST(PanoramaTouch, FlingSpinsUntilItIsEnded) {
    const double spin = -3.0 * 0.44 * 7.5 / 101.0;  // three times the 80th step of the glide from 7.5 to 0
    const auto keep = [](Panorama&) {};
    const auto glide = [](Panorama& v) { Fovix_DisplayTarget(v, 9, 0, 9, 9), v.frames(kUntilLanded); };
    const auto stop = [](Panorama& v) { Fovix_StartAutoCruise(v, 1), Fovix_StopAutoCruise(v); };
    const std::tuple<int, int, Gesture, double> cases[] = {
        {0, 0, keep, spin}, {0, 0, glide, 0}, {0, 3, stop, 0}, {0, 5, keep, 0}, {1, 5, keep, 0}};
    for (const auto& [mount, shape, end, perFrame] : cases) {
        Panorama view(mount, shape);
        Fovix_OnTouchFling(view, 3000, 0);
        view.frames(79);
        EXPECT_TRUE(view.params<VR360TouchParams>().mPanVelocity);
        view.frames(1);
        EXPECT_FALSE(view.params<VR360TouchParams>().mPanVelocity);
        end(view);
        const double before = view.sight().pan;
        view.frames(5000);
        EXPECT_NEAR(5000 * perFrame, view.sight().pan - before, 1e-6) << mount << shape;
    }
}

TEST(PanoramaTouch, LongSequencesFollowTheFormulas) {
    for (const unsigned seed : {1u, 2u, 3u, 4u}) {
        std::mt19937 random(seed);
        PanoramaReference reference(seed % 2 == 0);
        Panorama view(reference.isCeiling ? 0 : 1, 0);
        const auto pixel = [&random] { return static_cast<float>(random() % 8000) / 8.0f; };
        for (int gesture = 0; gesture < 600; ++gesture) {
            const float x = pixel(), y = pixel(), small = (x - 500.0f) / 200.0f;
            const float flings[] = {600.0f, -1500.0f, 3000.0f, 9000.0f};
            const float vx = flings[random() % 4], vy = flings[random() % 4] / 8.0f;
            const float scale = 0.25f + static_cast<float>(random() % 30) / 16.0f;
            const std::function<void()> gestures[] = {
                [&] { Fovix_OnTouchDown(view, x, y), reference.down(x, y); },
                [&] { Fovix_OnTouchUp(view, x, y), reference.up(x, y); },
                [&] { Fovix_OnTouchMove(view, x, y), reference.move(x, y); },
                [&] { Fovix_OnTouchMove(view, y, x), reference.move(y, x); },
                [&] { Fovix_OnTouchPinchScale(view, scale), reference.scale(scale); },
                [&] { Fovix_OnTouchFling(view, vx, vy), reference.fling(vx, vy); },
                [&] { Fovix_AutoAdjust(view), reference.settle(); },
                [&] { Fovix_OnAccelerometer(view, small, -small), reference.sense(small, -small); },
                [&] { Fovix_StartAutoCruise(view, small), reference.cruise(small); },
            };
            gestures[random() % (gesture % 4 == 0 ? 9 : 8)]();
            for (auto frames = random() % (gesture % 10 == 0 ? 900 : 20); frames > 0; --frames) {
                view.frames(1);
                reference.frame();
            }
            const std::string where = "seed " + std::to_string(seed) + " gesture " + std::to_string(gesture);
            expectSight({reference.pan, reference.tilt, reference.zoom}, view.sight(), where, 1e-6);
            if (testing::Test::HasFailure()) return;
        }
    }
}

TEST(PanoramaTouch, ImpossibleNumbersLeaveAViewThatCanBeMoved) {
    for (int place = 0; place < 44; ++place) {
        Panorama view(place / 11, place % 11, 1);
        const auto frame = [&view, place] {
            view.frames(1);
            const Sight s = view.sight();
            EXPECT_TRUE(std::abs(s.pan) < 2e9 && std::isfinite(s.roll)) << place;
            EXPECT_TRUE(s.tilt >= -100 && s.tilt <= 180 && s.zoom >= 5 && s.zoom <= 90) << place;
            return s;
        };
        for (const float x : {kLargest, -kLargest, 0.0f, 1e-45f}) {
            for (const float y : {kLargest, -kLargest, 0.0f}) {
                Fovix_OnTouchMove(view, x, y), frame();
                Fovix_OnTouchFling(view, x, y), frame();
                for (int again = 0; again < 12; ++again) {
                    Fovix_OnTouchDown(view, y, x);
                    Fovix_OnTouchPinchScale(view, x), Fovix_OnTouchPinchScale(view, y);
                    Fovix_OnTouchPinch(view, x, y, y, x), Fovix_OnTouchPinch(view, x, x, x, x);
                }
                Fovix_OnAccelerometer(view, x, y), Fovix_OnOrientation(view, x, y, x), frame();
                Fovix_StartAutoCruise(view, static_cast<double>(x) * 1e270), frame();
                Fovix_DisplayTarget(view, kLeast, kMost, kMost, 0), frame();
                Fovix_DisplayRect(view, kLeast, kLeast, kMost, kMost, y > 0, kLeast), frame();
            }
        }
        view.resize(1024, 1024);
        const auto moved = [&](float distance) {
            auto& touch = view.screen(view->currentScreen);
            touch.operations.onTouchDown(touch, 0, 0);
            touch.operations.onTouchMove(touch, distance, distance);
            touch.operations.update(touch);
            return view.sight(view->currentScreen);
        };
        const Sight right = moved(50), left = moved(-100);
        EXPECT_TRUE(right.pan != left.pan || right.tilt != left.tilt) << place;
    }
}

TEST(PanoramaTouch, TargetsPrintWhatTheyDo) {
    Panorama view;
    view.look({100.5, 10, 40});
    view.takeLines();
    Fovix_DisplayTarget(view, 600, 400, 801, 601);
    EXPECT_EQ(
        "Fovix_DisplayTarget(targetX: 600, targetY: 400, w: 801, h:601)\n"
        "rect center(600.000000, 400.000000)\nimage center(400.000000, 300.000000)\n"
        "dy : 100.000000, dx = 200.000000\n"
        "pan : 100.500000, tilt : 10.000000 -> angle : -26.565051, distance = 223.606798\n"
        "need roate : 26.565051fromPan : 100.000000 - > 206.000000fromTilt : 10.000000 - > 22.360680",
        view.takeLines());
}
