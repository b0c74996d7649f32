// Touch on the picture with an overview inset.
#include "touch/TouchControllerSinglePIP.h"

#include "steered_view.h"

using namespace fovix;

namespace {

constexpr double kDepth = 0.7149999737739563;  ///< third value of every view, horizontal limit at zoom 1

SinglePIPTouchParams& stateOf(const SteeredView& view) {
    return view.params<SinglePIPTouchParams>();
}

}  // namespace

TEST(SinglePipTouch, GesturesEndInTheirView) {
    const Played cases[] = {
        {"down 0 0 move 100 99", {-0.089375, 0, kDepth, 1}},
        {"size 1600 800 down 0 0 move 100 0", {-0.0446875, 0, kDepth, 1}},
        {"size 800 1600 down 0 0 move 100 0", {-0.17875, 0, kDepth, 1}},
        {"down 0 0 move -3e38 0 move 3e38 0 move -3e38 0", {0.715, 0, kDepth, 1}},
        {"spread 10 90 up 0 0 down 0 0 move 100 100", {0, -0.0225, kDepth, 5}},
        {"spread 10 30 up 0 0 down 0 0 move 9 -3e38", {0, 0.075, kDepth, 3}},
        {"size 401 800 spread 100 50 up 0 0 down 0 0 move 10 9", {-0.01976218, 0, kDepth, 0.5}},
        {"size 1600 800 spread 100 200 up 0 0 down 0 0 move 9 10", {0, -0.00119531, kDepth, 2}},
        {"spread 100 200 up 0 0 spread 100 150", {0, 0, kDepth, 3}},
        {"down 0 0 move -9e3 0 spread 10 1", {0, 0, kDepth, 0.25}},
        {"down 0 0 move -9e3 0 spread 10 5", {0.23833333, 0, kDepth, 0.5}},
        {"down 0 0 spread 50 100 move 300 0 scale 3 fling 900 900", {0, 0, kDepth, 2}},
        {"spread 0 0 up 0 0", {0, 0, kDepth, 1}},
        {"spread 0 1", {0, 0, kDepth, 5}},
        {"size 0 800 spread 10 20 up 0 0 down 0 0 move 100 0 move 100 100", {0, -0.01195313, kDepth, 2}},
        {"cruise 1 down 600 700 frames 999", {0.3575, 0, kDepth, 1}},
        {"mode 1 down 200 799 frames 999", {-0.715, 0, kDepth, 1}},
        {"down 790 700 frames 999", {0.715, 0, kDepth, 1}},
        {"size 0 0 down 5 5 frames 999", {0, 0, kDepth, 1}},
        {"spread 10 50 up 0 0 cruise 1 down 680 700", {0.88 * 5 / 51, -0.15, kDepth, 5}},  // one step, last y
        {"spread 10 50 up 0 0 down 680 700 move 440 10 frames 9", {-0.44, 0.1125, kDepth, 5}},  // at once
        {"cruise 0.1 frames 36", {0.715, 0, kDepth, 1}},  // 0.02 a frame, a shorter step to each end
        {"cruise 0.1 frames 108", {-0.715, 0, kDepth, 1}},
        {"down 0 0 move 100 0 cruise 0.1 frames 109 stop frames 50", {-0.695, 0, kDepth, 1}},
        {"set 0.3575 0 0.5 1 frames 5", {0.3575, 0, 0.5, 1}},
        {"set 0 0 0 2 down 0 0 move 0 1", {0, -0.0001195313, kDepth, 2}},
    };
    expectLanded(FOVIX_TYPE_SINGLE_PIP, cases, "", 1e-7);
}

TEST(SinglePipTouch, TouchesFindTheInset) {
    const std::pair<const char*, TouchTarget> cases[] = {{"down 200 600", kTouchInset},
                                                         {"down 200 599", kTouchMainView},
                                                         {"down 199 600", kTouchMainView},
                                                         {"mode 0 down 600 700", kTouchMainView},
                                                         {"size 800 600 down 600 590", kTouchMainView}};
    for (const auto& [script, target] : cases) {
        const SteeredView view(FOVIX_TYPE_SINGLE_PIP, script);
        EXPECT_EQ(target, stateOf(view).mTouchTarget) << script;
    }
    SteeredView view(FOVIX_TYPE_SINGLE_PIP);
    EXPECT_EQ("__onTouchMove_singlePIP Error!\n", view.printedBy("move 5 5"));
    view.play("spread 10 50 up 0 0 down 680 700");
    EXPECT_EQ(
        "---> curMinOffsetX = -0.880000 , curMaxOffsetX = 0.880000, pParams->mOffsetX = -0.440000, x= "
        "200.000000",
        view.printedBy("move 440 10"));
    EXPECT_NEAR(-0.125, stateOf(view).mRelativeX, 1e-6);
    EXPECT_NEAR(0.1875, stateOf(view).mRelativeY, 1e-6);
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
        {"upside down", 800, {-300, -800, -100, -300, -1000, -1000}, 3.0, -0.6},
        {"farther than any picture", 800, {kLeast, kLeast, kMost, kMost, 1, 1}, 1.0, -1.0},
        {"no surface", 0, {0, 0, 10, 10, 100, 100}, 1.0, 0.0},
    };
    for (const auto& [name, size, rect, landedZoom, share] : cases) {
        SteeredView view(FOVIX_TYPE_SINGLE_PIP,
                         "set 0.05 0 0 1 size " + std::to_string(size) + " " + std::to_string(size));
        Fovix_DisplayRect(view, rect[0], rect[1], rect[2], rect[3], rect[4], rect[5]);
        view.frames(1000);
        EXPECT_EQ(landedZoom, stateOf(view).mZoom) << name;
        const double range = kDepth + 0.04125 * (landedZoom - 1) * 5 / 51;
        EXPECT_NEAR(share * range, view.view().x, 1e-6) << name;
        Fovix_DisplayRect(view, 0, 0, 10, 10, 0, 100);
        Fovix_DisplayRect(view, 0, 0, 10, 10, 100, 0);
        EXPECT_TRUE(!stateOf(view).mZoomAnimator && !stateOf(view).mOffsetAnimator) << "without size";
    }
}

TEST(SinglePipTouch, RelativeOffsetIsAShareOfTheRange) {
    SteeredView view(FOVIX_TYPE_SINGLE_PIP);
    const std::pair<const char*, float> cases[] = {
        {"set 0.3575 0 0.5 1", 0.5f}, {"down 0 0 move 9e3 0", -1.0f}, {"set 0.1 0 0 0.25", 0.0f}};
    for (const auto& [script, share] : cases) {
        view.play(script);
        EXPECT_NEAR(share, Fovix_GetRelativeXOffset(view), 1e-6) << script;
    }
}
