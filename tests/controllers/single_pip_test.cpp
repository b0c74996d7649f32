// Touch on the picture with an overview inset.
#include "TouchControllerSinglePIP.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <random>

#include "steered_view.h"

using namespace fovix;

namespace {

constexpr float kLargest = std::numeric_limits<float>::max();
constexpr double kDepth =
    0.7149999737739563;  ///< third value of every view, and the horizontal limit at zoom 1
constexpr int kUntilLanded = 1000;

SinglePIPTouchParams& stateOf(const SteeredView& view) {
    return view.params<SinglePIPTouchParams>();
}

bool isUsable(const SteeredView& view) {
    const View now = view.view();
    double across = 0.0, up = 0.0;
    view.controller()->operations.getViewOffset(*view.controller(), &across, nullptr);
    view.controller()->operations.getViewOffset(*view.controller(), nullptr, &up);
    return std::isfinite(now.x + now.y + now.zoom) && std::isfinite(across + up) &&
           std::isfinite(Fovix_GetRelativeXOffset(view));
}

}  // namespace

TEST(SinglePipTouch, DragsAndPinchesMoveTheViewAtOnce) {
    struct Case {
        int width, height;
        const char* gestures;
        double x, y, zoom;
    };
    const Case cases[] = {
        {800, 800, "down 0 0 move 100 99", -0.089375, 0, 1},
        {1600, 800, "down 0 0 move 100 0", -0.0446875, 0, 1},
        {800, 1600, "down 0 0 move 100 0", -0.17875, 0, 1},
        {800, 800, "down 0 0 move -3e38 0 move 3e38 0 move -3e38 0", 0.715, 0, 1},
        {800, 800, "down 0 0 move 0 100", 0, 0, 1},
        {800, 800, "spread 10 90 up 0 0 down 0 0 move 100 100", 0, -0.0225, 5},
        {800, 800, "spread 10 30 up 0 0 down 0 0 move 9 -3e38", 0, 0.075, 3},
        {800, 800, "spread 100 200", 0, 0, 2},
        {800, 800, "spread 100 200 up 0 0 spread 100 150", 0, 0, 3},
        {800, 800, "down 0 0 move -9e3 0 spread 10 1", 0, 0, 0.25},
        {800, 800, "down 0 0 move -9e3 0 spread 10 5", 0.2383333, 0, 0.5},
        {800, 800, "down 0 0 spread 50 100 move 300 0 scale 3 fling 900 900", 0, 0, 2},
        {800, 800, "spread 0 0 up 0 0", 0, 0, 1},
        {800, 800, "spread 0 1", 0, 0, 5},
        {0, 800, "spread 10 20 up 0 0 down 0 0 move 100 0 move 100 100", 0, -0.0119531, 2},
    };
    for (const Case& c : cases) {
        SteeredView view(FOVIX_TYPE_SINGLE_PIP, c.width, c.height);
        view.play(c.gestures);
        EXPECT_TRUE(isUsable(view)) << c.gestures;
        expectView({c.x, c.y, kDepth, c.zoom}, view.view(), 1e-6, c.gestures);
    }
    SteeredView view(FOVIX_TYPE_SINGLE_PIP);
    view.takeLines();
    view.play("move 5 5");
    EXPECT_EQ("__onTouchMove_singlePIP Error!\n", view.takeLines());
}

TEST(SinglePipTouch, TouchesInTheInsetAimTheMainView) {
    struct Case {
        int size, drawMode;
        float x, y;
        TouchTarget target;
        double landed;
    };
    const Case cases[] = {{800, 3, 600, 700, kTouchInset, 0.3575}, {800, 3, 520, 600, kTouchInset, 0},
                          {800, 1, 200, 799, kTouchInset, -0.715}, {800, 3, 790, 700, kTouchInset, 0.715},
                          {800, 3, 600, 599, kTouchMainView, 0},   {800, 3, 199, 700, kTouchMainView, 0},
                          {800, 0, 600, 700, kTouchMainView, 0},   {0, 3, 5, 5, kTouchInset, 0}};
    for (const Case& c : cases) {
        SteeredView view(FOVIX_TYPE_SINGLE_PIP, c.size, c.size);
        Fovix_SetDrawMode(view, c.drawMode);
        Fovix_OnTouchDown(view, c.x, c.y);
        EXPECT_EQ(c.target, stateOf(view).mTouchTarget) << c.x << ", " << c.y;
        view.frames(kUntilLanded);
        EXPECT_NEAR(c.landed, view.view().x, 1e-6) << c.x << ", " << c.y;
        EXPECT_TRUE(isUsable(view) && !stateOf(view).mOffsetAnimator) << c.x << ", " << c.y;
    }
    SteeredView view(FOVIX_TYPE_SINGLE_PIP, 800, 800);
    view.play("spread 10 50 up 0 0");
    Fovix_StartAutoCruise(view, 1.0);
    view.play("down 680 700");  // the first step of the glide, at the height of the event before
    expectView({0.88 * 5.0 / 51.0, -0.15, kDepth, 5.0}, view.view(), 1e-6, "touch-down");
    EXPECT_EQ(0, stateOf(view).mCruising);
    view.takeLines();
    view.play("move 440 10 frames 9");  // follows at once and stays, at the height of the touch-down
    expectView({-0.44, 0.1125, kDepth, 5.0}, view.view(), 1e-6, "move");
    EXPECT_EQ(
        "---> curMinOffsetX = -0.880000 , curMaxOffsetX = 0.880000, pParams->mOffsetX = -0.440000, x= "
        "200.000000",
        view.takeLines());
    EXPECT_NEAR(-0.125, stateOf(view).mRelativeX, 1e-6);
    EXPECT_NEAR(0.1875, stateOf(view).mRelativeY, 1e-6);
    view.resize(800, 600);
    view.play("down 600 590");
    EXPECT_EQ(kTouchMainView, stateOf(view).mTouchTarget);
}

TEST(SinglePipTouch, CruiseSweepsFromEndToEnd) {
    SteeredView view(FOVIX_TYPE_SINGLE_PIP);
    view.play("down 0 0 move 100 0");
    Fovix_StartAutoCruise(view, 0.1);  // 0.02 a frame, and a shorter step to each end
    const double turns[][2] = {{1, 0.02},   {34, 0.70},  {1, 0.715},  {1, 0.695}, {70, -0.705},
                               {1, -0.715}, {1, -0.695}, {71, 0.715}, {1, 0.695}};
    for (const auto& [frames, x] : turns) {
        view.frames(static_cast<int>(frames));
        EXPECT_NEAR(x, view.view().x, 1e-6) << frames;
    }
    Fovix_StopAutoCruise(view);
    view.frames(50);
    EXPECT_NEAR(0.695, view.view().x, 1e-6);
}

TEST(SinglePipTouch, RectanglesAreZoomedOnto) {
    struct Case {
        const char* name;
        int size, rect[6];
        double landedZoom, share;  ///< of the range at the zoom after one step, -1 to 1
    };
    const Case cases[] = {
        {"a tenth right of the middle", 800, {960, 540, 1152, 648, 1920, 1080}, 5.0, 0.1},
        {"three eighths of the height", 800, {500, 0, 501, 375, 1000, 1000}, 4.0, 0.0},
        {"half of the height", 800, {0, 0, 100, 500, 1000, 1000}, 3.0, -0.9},
        {"0.65 of the height", 800, {0, 0, 100, 650, 1000, 1000}, 2.0, -0.9},
        {"nearly all", 800, {200, 100, 1000, 900, 1000, 1000}, 1.0, 0.2},
        {"beyond the picture", 800, {2000, 0, 3000, 100, 1000, 1000}, 5.0, 1.0},
        {"upside down", 800, {-300, -100, -100, -50, -1000, -1000}, 5.0, -0.6},
        {"farther than any picture", 800, {INT_MIN, INT_MIN, INT_MAX, INT_MAX, 1, 1}, 1.0, -1.0},
        {"no surface", 0, {0, 0, 10, 10, 100, 100}, 1.0, 0.0},
    };
    for (const Case& c : cases) {
        SteeredView view(FOVIX_TYPE_SINGLE_PIP, c.size, c.size);
        const auto& [left, top, right, bottom, width, height] = c.rect;
        Fovix_SetRotateZoomRecoverMode(view, 0.05, 0, 0, 1.0);
        Fovix_DisplayRect(view, left, top, right, bottom, width, height);
        view.frames(kUntilLanded);
        EXPECT_EQ(c.landedZoom, stateOf(view).mZoom) << c.name;
        const double zoomAtAim = 1.0 + (c.landedZoom - 1.0) * 5.0 / 51.0,
                     range = kDepth + 0.04125 * (zoomAtAim - 1.0);
        EXPECT_NEAR(c.share * range, view.view().x, 1e-6) << c.name;
        EXPECT_TRUE(isUsable(view)) << c.name;
        Fovix_DisplayRect(view, 0, 0, 10, 10, 0, 100);
        Fovix_DisplayRect(view, 0, 0, 10, 10, 100, 0);
        EXPECT_TRUE(!stateOf(view).mZoomAnimator && !stateOf(view).mOffsetAnimator)
            << "a picture without size";
    }
}

TEST(SinglePipTouch, HostsViewStaysUntilTheNextGesture) {
    SteeredView view(FOVIX_TYPE_SINGLE_PIP);
    Fovix_SetRotateZoomRecoverMode(view, 0.3575, 0.0, 0.5, 1.0);
    view.frames(5);
    expectView({0.3575, 0, 0.5, 1.0}, view.view(), 0.0, "as set");
    EXPECT_NEAR(0.5, Fovix_GetRelativeXOffset(view), 1e-6);
    view.play("down 0 0 move 9e3 0");
    EXPECT_NEAR(-1.0, Fovix_GetRelativeXOffset(view), 1e-6);
    Fovix_SetRotateZoom(view, 0, 0, 0, 2.0);
    view.frames(5);
    expectView({0, 0, 0, 2.0}, view.view(), 0.0, "the model alone");
    view.play("down 0 0 move 0 1");
    expectView({-kDepth, 0, kDepth, 1.0}, view.view(), 1e-9, "the controller's own view again");
    Fovix_SetRotateZoomRecoverMode(view, 0.1, 0.0, 0.0, 0.25);
    EXPECT_EQ(0.0f, Fovix_GetRelativeXOffset(view));
}

// Main view, pinches and cruise worked out again from shares of the range, event by event.
TEST(SinglePipTouch, EventsFollowAnIndependentCalculation) {
    for (const int width : {800, 1600, 401}) {
        constexpr double kHeight = 800.0;
        SteeredView view(FOVIX_TYPE_SINGLE_PIP, width, 800);
        Fovix_SetDrawMode(view, 0);
        std::mt19937 random(static_cast<unsigned>(width));
        double heading = 0.0, x = 0.0, y = 0.0, zoom = 1.0, step = 0.0, mostX = kDepth, mostY = 0.0;
        const auto limited = [](double value, double limit) {
            return std::max(-limit, std::min(limit, value));
        };
        for (int event = 0; event < 3000 && !testing::Test::HasFailure(); ++event) {
            const auto pixels = [&random] { return static_cast<float>(random() % 400) - 200.0f; };
            const float dx = pixels(), dy = pixels(), factor = 0.125f * static_cast<float>(random() % 24);
            const auto kind = random() % 6;
            if (kind == 0) {
                view.play("up 0 0 spread 8 " + std::to_string(8.0f * factor) + " up 0 0");
                zoom = std::max(0.25, std::min(5.0, zoom * factor));
                mostX = zoom < 1.0 ? kDepth * (4.0 * zoom - 1.0) / 3.0
                                   : kDepth + 0.04125000536441803 * (zoom - 1.0);
                mostY = 0.03750000149011612 * std::max(0.0, zoom - 1.0);
                heading = x = limited(x, mostX), y = limited(y, mostY);
            } else if (kind == 1 && factor < 1.0f) {
                Fovix_StopAutoCruise(view), step = 0.0;
            } else if (kind == 1) {
                Fovix_StartAutoCruise(view, factor / 8.0f), heading = x = 0.0, step = factor / 40.0;
            } else if (kind == 2) {
                Fovix_OnTouchDown(view, 300.0f, 300.0f), Fovix_OnTouchMove(view, 300.0f + dx, 300.0f + dy);
                const double rate = zoom < 1.0 ? (7.0 - 4.0 * zoom) / 6.0 : (23.0 - 3.0 * zoom) / 40.0;
                const double range = mostX * kHeight / width, shorter = std::min<double>(width, kHeight);
                const bool sideways = std::abs(dx) > std::abs(dy);
                if (sideways) heading = x = limited(heading - 2.0 * range * dx * rate / shorter, range);
                if (!sideways) y = limited(y - 6.0 * mostY * dy * rate / kHeight, mostY);
            } else {
                view.frames(1);
                if (step != 0.0) x += step;
                if (step != 0.0 && std::abs(x) > mostX) x = std::copysign(mostX, x), step = -step;
            }
            const SinglePIPTouchParams& p = stateOf(view);
            expectView({x, y, 0.0, zoom}, {p.mCurOffsetX, p.mOffsetY, 0.0, p.mZoom}, 1e-9,
                       "event " + std::to_string(event));
        }
    }
}

TEST(SinglePipTouch, StormsLeaveAUsableView) {
    SteeredView view(FOVIX_TYPE_SINGLE_PIP);
    std::mt19937 random(7);
    const double wild[] = {0.0, -1.0, 0.25, 1e-300, 1e300, -1e300, 3.0, 1e30};
    const auto any = [&random, &wild] { return wild[random() % std::size(wild)]; };
    const auto pixel = [&random] { return random() % 9 ? static_cast<float>(random() % 900) : kLargest; };
    const auto place = [&random] { return random() % 9 ? static_cast<int>(random() % 2000) : INT_MIN; };
    const std::function<void()> events[] = {
        [&] { Fovix_OnTouchDown(view, pixel(), pixel()); },
        [&] { Fovix_OnTouchMove(view, pixel(), -pixel()); },
        [&] { Fovix_OnTouchUp(view, pixel(), pixel()); },
        [&] { Fovix_OnTouchPinch(view, pixel(), pixel(), -pixel(), pixel()); },
        [&] { Fovix_DisplayRect(view, place(), place(), INT_MAX, 1900, place(), place()); },
        [&] { Fovix_StartAutoCruise(view, any()); },
        [&] { Fovix_SetRotateZoomRecoverMode(view, any(), any(), any(), any()); },
        [&] { view.resize(static_cast<int>(random() % 3) * 400, static_cast<int>(random() % 3) * 400); },
        [&] { view.frames(3); },
    };
    for (int event = 0; event < 20000; ++event) {
        events[random() % std::size(events)]();
        ASSERT_TRUE(isUsable(view)) << event;
    }
    view.resize(800, 800);
    Fovix_StopAutoCruise(view);
    view.frames(kUntilLanded);
    view.play("up 0 0 spread 10 2 up 0 0 spread 10 200 up 0 0 down 0 0 move -3e38 0 move -3e38 -3e38");
    expectView({0.88, 0.15, kDepth, 5.0}, view.view(), 1e-6, "after the storm");
}
