// Touch on the 180-degree view.
#include "TouchController180VR.h"

#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <utility>

#include "steered_view.h"

using namespace fovix;

namespace {

constexpr float kLargest = std::numeric_limits<float>::max();
constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();
constexpr int kUntilLanded = 2000;
constexpr double kTurnPerPixel = 0.4444444477558136;

struct HalfPanorama : SteeredView {
    HalfPanorama() : SteeredView(FOVIX_TYPE_180VR) {}

    TouchController& screen(int index) const {
        return *static_cast<VRHANDLE>(*this)->display.load()->controllers[static_cast<std::size_t>(index)];
    }
    VR180TouchParams& state(int index = 0) const { return paramsOf<VR180TouchParams>(screen(index)); }
    View targets(int index = 0) const {
        const VR180TouchParams& p = state(index);
        return {p.mXAngleTarget, p.mYAngleTarget, p.mZAngleTarget, p.mZoomTarget};
    }
};

void lookAt(VRHANDLE handle, double pitch, double yaw, double zoom, double roll = 0.0) {
    Fovix_SetPTZFor180VR(handle, pitch, yaw, roll, zoom);
}

constexpr auto target = Fovix_DisplayTarget;

void drag(VRHANDLE view, float right, float down) {
    Fovix_OnTouchDown(view, 0, 0);
    Fovix_OnTouchMove(view, right, down);
}

void pinch(VRHANDLE view, float scale) {
    Fovix_OnTouchDown(view, 0, 0);
    Fovix_OnTouchPinchScale(view, scale);
}

/// The gestures worked out a second time, with what a user would measure: degrees per pixel, limits, speeds.
struct HalfReference {
    int mode = 0;
    double target[2] = {}, angle[2] = {};  ///< pitch, yaw
    double zoomTarget = 1.0, zoom = 1.0, zoomDown = 1.0, swing = 0.0;
    float lastX = 0, lastY = 0, device[2] = {};
    bool slow = false, pinching = false, cruising = false;
    std::unique_ptr<BounceAnimator> bounce[2];

    void aim(double pitch, double yaw, double wanted) {
        target[0] = pitch, target[1] = yaw, zoomTarget = wanted;
    }
    void enter(int newMode) {
        mode = newMode;
        aim(0, 0, mode == 3 ? 10 : 1);
    }
    void turn(int axis, double degrees) {
        const double most[] = {14.0, mode == 2 ? 1e300 : 30.0}, more[] = {1.4, 3.0};
        const double limit = most[axis] + (mode == 1 && zoomTarget > 1 ? more[axis] * zoomTarget : 0.0);
        target[axis] =
            std::max(-limit, std::min(limit, target[axis] + degrees * (zoom > 2 ? 2 / zoom : 1.0)));
        slow = false;
    }
    bool isAside() const { return std::abs(target[1]) > 35 || std::abs(target[0]) > 30; }
    void down(float x, float y) {
        bounce[0].reset(), bounce[1].reset();
        cruising = pinching = false;
        zoomDown = zoomTarget, lastX = x, lastY = y;
    }
    void move(float x, float y) {
        if (pinching) return;
        turn(1, (lastX - x) * kTurnPerPixel), turn(0, (lastY - y) * kTurnPerPixel);
        lastX = x, lastY = y;
    }
    void scale(float factor) {
        pinching = true;
        const double wanted = zoomDown * factor;
        if (mode == 1) zoomTarget = std::max(0.25, std::min(20.0, wanted));
        if (mode == 0 && factor > 1 && wanted > 1.05) return enter(3);
        if (mode != 3) return;
        zoomTarget = std::max(10.0, std::min(20.0, wanted));
        if (factor < 1 && zoomDown <= 10 && wanted < 9) enter(0);
    }
    void fling(float vx, float vy) {
        turn(1, vx / -100.0f * kTurnPerPixel), turn(0, vy / -20.0f * kTurnPerPixel);
        slow = true;
    }
    void orient(float a, float c) {
        const float da = a - device[0], dc = c - device[1];
        device[0] = a, device[1] = c;
        if (std::abs(da) > 20 || std::abs(dc) > 20) return;
        const double factor = std::max(zoom, 2.0);
        if (std::abs(dc) > 0.6) turn(1, static_cast<float>(dc * factor)), slow = true;
        if (std::abs(da) > 0.6) turn(0, static_cast<float>(da * factor)), slow = true;
        if (mode == 0 && isAside()) enter(3);
    }
    void settle() {
        if (mode == 0) return enter(isAside() ? 3 : 0);
        if (mode == 1 && zoomTarget <= 2) return enter(1);
        if (mode != 3 || zoomTarget < 10) return;
        const double limit = 20 + 2 * zoomTarget;
        const auto edge = static_cast<double>(static_cast<float>(limit));
        for (int axis : {0, 1}) {
            target[axis] = std::max(-edge, std::min(edge, target[axis]));
            if (std::abs(angle[axis]) > std::abs(target[axis]) && std::abs(target[axis]) >= limit)
                bounce[axis] = std::make_unique<BounceAnimator>(angle[axis], target[axis], 700);
        }
        slow = true;
    }
    void cruise(double speed) {
        if (mode == 2) return;
        enter(3);
        angle[0] = angle[1] = 0, swing = speed / 5, cruising = true;
    }
    static void approach(double& value, double goal, double step) {
        value = std::abs(goal - value) <= step ? goal : value + std::copysign(step, goal - value);
    }
    void frame() {
        approach(zoom, zoomTarget, zoomTarget < 1 ? 0.0375 : 0.38);
        for (int axis : {0, 1}) {
            const double way = std::abs(target[axis] - angle[axis]), most = way > 50 ? 10 : way / 5;
            approach(angle[axis], target[axis], std::clamp<double>(slow ? most / 3 : most * 2, 0.1f, 10));
            if (!bounce[axis]) continue;
            bounce[axis]->step();
            angle[axis] = bounce[axis]->mCurrent;
            if (bounce[axis]->mDone) bounce[axis] = nullptr;
        }
        if (!cruising) return;
        angle[1] += swing;
        if (std::abs(angle[1]) > 40) angle[1] = std::copysign(40, angle[1]), swing = -swing;
        target[1] = angle[1];
    }
};

}  // namespace

TEST(HalfPanoramaTouch, GesturesEndInTheirViewAndDrawMode) {
    struct Case {
        const char* name;
        int mode;
        std::function<void(HalfPanorama&)> gestures;
        int modeAfter;
        View landed;
    };
    using V = HalfPanorama;
    const Case cases[] = {
        {"round and round", 2, [](V& v) { drag(v, -1800, 0); }, 2, {0, 800, 0, 1}},
        {"pinch out of the disc", 0, [](V& v) { pinch(v, 1.1f); }, 3, {0, 0, 0, 10}},
        {"pinch into the disc", 3, [](V& v) { lookAt(v, 1, 1, 10), pinch(v, 0.85f); }, 0, {0, 0, 0, 1}},
        {"pinch of nothing", 1, [](V& v) { pinch(v, 0); }, 1, {0, 0, 0, 1}},
        {"tilted device", 1, [](V& v) { Fovix_OnAccelerometer(v, 2, -9); }, 1, {-14, 24, 0, 1}},
        {"jumping device", 0, [](V& v) { Fovix_OnOrientation(v, 5, 25, -10); }, 0, {0, 0, 0, 1}},
        {"settled aside",
         0,
         [](V& v) { v.state().mYAngleTarget = -36, Fovix_AutoAdjust(v); },
         3,
         {0, 0, 0, 10}},
        {"target", 3, [](V& v) { lookAt(v, 1, 1, 15), target(v, 90, 75, 200, 100); }, 3, {-5, 25, 0, 15}},
        {"far target",
         3,
         [](V& v) { lookAt(v, 1, 1, 15), target(v, 145, 4, 200, 300); },
         3,
         {14, -30, 0, 15}},
        {"target on the disc", 0, [](V& v) { target(v, 90, 75, 200, 100); }, 0, {0, 0, 0, 1}},
        {"no cruise round", 2, [](V& v) { Fovix_StartAutoCruise(v, 1); }, 2, {0, 0, 0, 1}},
        {"view", 0, [](V& v) { lookAt(v, 15, -31, 12.5, 77); }, 3, {14, -30, 77, 12.5}},
    };
    for (const Case& c : cases) {
        HalfPanorama view;
        Fovix_SetDrawMode(view, c.mode);
        c.gestures(view);
        view.frames(kUntilLanded);
        expectView(c.landed, view.view(), 1e-5, c.name);
        for (int screen = 0; screen < 6; ++screen)
            EXPECT_EQ(c.modeAfter, view.state(screen).mDrawMode) << c.name;
    }
}

TEST(HalfPanoramaTouch, ShapesSetDrawModeAndTargetsOfEveryScreen) {
    struct Case {
        int shape, screen, mode;
        View targets;
        double zoomNow;  ///< from 1 the screens of a layout zoom in
    };
    const Case cases[] = {
        {0, 0, 0, {0, 0, 0, 1}, 5},      {5, 1, 1, {0, 0, 0, 1}, 5},     {3, 2, 2, {0, 0, 0, 1}, 5},
        {7, 0, 3, {-20, -35, 0, 15}, 1}, {7, 1, 3, {-20, 35, 0, 15}, 1}, {7, 2, 3, {35, -35, 0, 15}, 1},
        {7, 3, 3, {35, 35, 0, 15}, 1},   {7, 4, 3, {0, 0, 0, 10}, 5},    {10, 0, 3, {0, 0, 0, 10}, 1},
        {10, 1, 3, {0, -35, 0, 10}, 1},  {10, 2, 3, {0, 35, 0, 10}, 1},  {10, 3, 3, {0, 0, 0, 10}, 5},
        {4, 0, 2, {1, 2, 3, 4}, 5},      {-1, 0, 2, {1, 2, 3, 4}, 5}};
    for (const Case& c : cases) {
        const std::string where = "shape " + std::to_string(c.shape) + " screen " + std::to_string(c.screen);
        HalfPanorama view;
        VR180TouchParams& p = view.state(c.screen);
        p.mDrawMode = 2;
        p.mXAngleTarget = 1, p.mYAngleTarget = 2, p.mZAngleTarget = 3, p.mZoomTarget = 4, p.mZoom = 5;
        p.mYAngle = 400;
        Fovix_SetShape(view, c.shape);
        expectView(c.targets, view.targets(c.screen), 0.0, where);
        EXPECT_EQ(c.mode, p.mDrawMode) << where;
        EXPECT_EQ(c.zoomNow, p.mZoom) << where;
        EXPECT_EQ(c.mode < 2 || c.zoomNow == 1 ? 0 : 400, p.mYAngle) << where;
    }
}

TEST(HalfPanoramaTouch, CruiseSwingsUntilItIsStopped) {
    HalfPanorama view;
    Fovix_StartAutoCruise(view, 10);
    const std::pair<int, double> swing[] = {{20, 40}, {1, 40}, {20, 0}, {20, -40}, {1, -40}, {19, -2}};
    for (const auto& [frames, yaw] : swing) {
        view.frames(frames);
        EXPECT_NEAR(yaw, view.view().y, 1e-9);
    }
    Fovix_StopAutoCruise(view);
    view.frames(9);
    EXPECT_NEAR(-2, view.view().y, 1e-9);
}

TEST(HalfPanoramaTouch, EdgeOfTheCurvedScreenSpringsBack) {
    HalfPanorama view;
    Fovix_SetDrawMode(view, 1);
    pinch(view, 15), drag(view, -157.5f, 0);
    view.frames(kUntilLanded);
    EXPECT_NEAR(70.0, view.view().y, 1e-5);
    Fovix_SetDrawMode(view, 3), Fovix_AutoAdjust(view);
    double lowest = 70.0, rebound = 0.0;
    for (int frame = 0; frame < kUntilLanded; ++frame) {
        view.frames(1);
        if (lowest == 50.0) rebound = std::max(rebound, view.view().y);
        lowest = std::min(lowest, view.view().y);
    }
    EXPECT_EQ(50.0, lowest);
    EXPECT_NEAR(54.0, rebound, 1e-5);
    EXPECT_EQ(50.0, view.view().y);
}

TEST(HalfPanoramaTouch, ReadingAViewMovesItOnAsAFrameWould) {
    HalfPanorama view;
    drag(view, -45, 0);
    double yaw = 0, third = 0, zoom = 0;
    Fovix_GetPTZFor180VR(view, nullptr, &yaw, &third, nullptr);
    EXPECT_NEAR(8.0, yaw, 1e-6) << "two fifths of the way";
    EXPECT_EQ(3.0, third);
    lookAt(view, 10, 0, 10);
    Fovix_GetPTZFor180VR(view, nullptr, nullptr, nullptr, &zoom);
    EXPECT_DOUBLE_EQ(1.38, zoom);
    EXPECT_EQ(0.0, view.state().mXAngle) << "only what is read moves";
}

TEST(HalfPanoramaTouch, LongSequencesFollowTheFormulas) {
    for (const unsigned seed : {1u, 2u, 3u}) {
        std::mt19937 random(seed);
        HalfReference reference;
        HalfPanorama view;
        for (int gesture = 0; gesture < 800; ++gesture) {
            const float x = static_cast<float>(random() % 8000) / 8.0f,
                        y = static_cast<float>(random() % 8000) / 8.0f;
            const float factor = 0.25f + static_cast<float>(random() % 40) / 16.0f;
            const float a = reference.device[0] + (x - 500) / 40, c = reference.device[1] + (y - 500) / 20;
            const int mode = static_cast<int>(random() % 4);
            const std::function<void()> gestures[] = {
                [&] { Fovix_OnTouchDown(view, x, y), reference.down(x, y); },
                [&] { Fovix_OnTouchMove(view, x, y), reference.move(x, y); },
                [&] { Fovix_OnTouchMove(view, y, x), reference.move(y, x); },
                [&] { Fovix_OnTouchPinchScale(view, factor), reference.scale(factor); },
                [&] { Fovix_OnTouchFling(view, 9 * x, 2 * y), reference.fling(9 * x, 2 * y); },
                [&] { Fovix_OnOrientation(view, a, 0, c), reference.orient(a, c); },
                [&] { Fovix_AutoAdjust(view), reference.settle(); },
                [&] { Fovix_SetDrawMode(view, mode), reference.mode = mode; },
                [&] { Fovix_StartAutoCruise(view, factor), reference.cruise(factor); },
                [&] { lookAt(view, -8, 9, 18), reference.enter(3), reference.aim(-8, 9, 18); },
            };
            gestures[random() % std::size(gestures)]();
            for (auto frames = 1 + random() % 25; frames > 0; --frames) view.frames(1), reference.frame();
            const View expected = {reference.angle[0], reference.angle[1], 0, reference.zoom};
            expectView(expected, view.view(), 1e-6,
                       std::to_string(seed) + ", gesture " + std::to_string(gesture));
            EXPECT_EQ(reference.mode, view.state().mDrawMode) << gesture;
            if (HasFailure()) return;
        }
    }
}

TEST(HalfPanoramaTouch, ImpossibleNumbersLeaveAViewThatCanBeMoved) {
    const double huge = std::numeric_limits<double>::max();
    for (const int mode : {0, 1, 2, 3, 4, -1, kMost}) {
        HalfPanorama view;
        const auto check = [&view, mode] {
            view.frames(2);
            const View v = view.view();
            EXPECT_TRUE(std::abs(v.x) < 1e9 && std::abs(v.y) < 2e9) << mode;
            EXPECT_TRUE(std::isfinite(v.z) && std::isfinite(v.zoom)) << mode;
        };
        for (const float x : {kLargest, -kLargest, 0.0f}) {
            for (const float y : {kLargest, -kLargest, 0.0f}) {
                lookAt(view, x, y, x < 0 ? -huge : huge), check();
                Fovix_DisplayTarget(view, kLeast, kMost, static_cast<int>(y < 0), kLeast), check();
                Fovix_DisplayRect(view, kLeast, kLeast, kMost, kMost, kMost, 1), check();
                Fovix_AutoAdjust(view), check();
                Fovix_SetDrawMode(view, mode);
                Fovix_OnTouchDown(view, y, x), Fovix_OnTouchMove(view, x, y), check();
                Fovix_OnTouchFling(view, x, y), Fovix_OnTouchFling(view, y, y), check();
                Fovix_OnTouchPinchScale(view, x), Fovix_OnOrientation(view, x, y, x), check();
                Fovix_OnAccelerometer(view, x, y), Fovix_StartAutoCruise(view, x * 1e270), check();
            }
        }
        drag(view, 0, 0), Fovix_SetDrawMode(view, mode);
        Fovix_OnTouchFling(view, kLargest, 0), view.frames(kUntilLanded);
        const double landed = view.view().y;
        view.frames(1);
        EXPECT_EQ(landed, view.view().y) << mode;
        drag(view, -9, 0), view.frames(kUntilLanded);
        EXPECT_NE(landed, view.view().y) << mode;
    }
}

TEST(HalfPanoramaTouch, TargetsPrintWhatTheyDo) {
    HalfPanorama view;
    lookAt(view, 2, -3, 12);
    view.takeLines();
    Fovix_DisplayTarget(view, 60, 20, 101, 81);
    EXPECT_EQ(
        "Fovix_DisplayTarget(targetX: 60, targetY: 20, w: 101, h:81)\n"
        "rect center(60.000000, 20.000000)\nimage center(50.000000, 40.000000)\n"
        "dy : -20.000000, dx = 10.000000\nxMax : 44.000000, yMax : 44.000000 \n"
        "xAngle : 0.000000, yAngle : 0.000000 -> 8.800000, -22.000000\n",
        view.takeLines());
}
