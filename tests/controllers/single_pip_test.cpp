// Touch on the picture with an overview inset.
#include "steered_view.h"

using namespace fovix;

namespace {

constexpr double kDepth = 0.7149999737739563;  ///< third value of every view, horizontal limit at zoom 1

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
        // Where the inset begins, on a square surface with an inset only.
        {"down 200 600 frames 999", {-kDepth, 0, kDepth, 1}},
        {"down 200 599 frames 999", {0, 0, kDepth, 1}},
        {"down 199 600 frames 999", {0, 0, kDepth, 1}},
        {"mode 0 down 600 700 frames 999", {0, 0, kDepth, 1}},
        {"size 800 600 down 600 590 frames 999", {0, 0, kDepth, 1}},
        {"set 0.3575 0 0.5 1 frames 5", {0.3575, 0, 0.5, 1}},
        {"set 0 0 0 2 down 0 0 move 0 1", {0, -0.0001195313, kDepth, 2}},
    };
    expectLanded(FOVIX_TYPE_SINGLE_PIP, cases, "", 1e-7);
}

TEST(SinglePipTouch, RectanglesAreZoomedOnto) {
    const struct {
        const char* script;
        double zoom, x, y;  ///< shares of the ranges that the zoom has after one step
    } cases[] = {
        {"rect 960 540 1152 648 1920 1080", 5, 0.1, 0.1},
        {"rect 500 0 501 375 1000 1000", 4, 0, -0.625},
        {"rect 0 0 100 500 1000 1000", 3, -0.9, -0.5},
        {"rect 0 0 100 650 1000 1000", 2, -0.9, -0.35},
        {"rect 200 100 1000 900 1000 1000", 1, 0.2, 0},
        {"rect 2000 0 3000 100 1000 1000", 5, 1, -0.9},          // beyond the picture
        {"rect -300 -800 -100 -300 -1000 -1000", 3, -0.6, 0.1},  // upside down
        {"rect -2147483648 -2147483648 2147483647 2147483647 1 1", 1, -1, 0},
        {"size 0 0 rect 0 0 10 10 100 100", 1, 0, 0},
    };
    for (const auto& [script, zoom, x, y] : cases) {
        SteeredView view(FOVIX_TYPE_SINGLE_PIP, std::string("set 0.05 0 0 1 ") + script + " frames 1000");
        const double growth = (zoom - 1) * 5 / 51;
        expectView({x * (kDepth + 0.04125 * growth), y * 0.0375 * growth, kDepth, zoom}, view.view(), 1e-6,
                   script);
    }
    SteeredView view(FOVIX_TYPE_SINGLE_PIP,
                     "set 0.05 0 0 1 rect 0 0 10 10 0 100 rect 0 0 10 10 100 0 frames 9");
    expectView({0.05, 0, 0, 1}, view.view(), 1e-9, "a picture without a size");
}
