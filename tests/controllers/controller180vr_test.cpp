// Touch on the 180-degree view.
#include "steered_view.h"

using namespace fovix;

TEST(HalfPanoramaTouch, GesturesEndInTheirView) {
    const Played cases[] = {
        {"mode 2 down 0 0 move -1800 0", {0, 800, 0, 1}},
        {"scale 1.1", {0, 0, 0, 10}},
        {"set180 1 1 0 10 down 0 0 scale 0.85", {0, 0, 0, 1}},
        {"mode 1 scale 0", {0, 0, 0, 1}},
        {"mode 1 sense 2 -9", {-14, 24, 0, 1}},
        {"turn 5 25 -10", {0, 0, 0, 1}},
        {"set180 1 1 0 15 target 90 75 200 100", {-5, 25, 0, 15}},
        {"set180 1 1 0 15 target 145 4 200 300", {14, -30, 0, 15}},
        {"set180 1 1 0 15 target 9 9 1 -1", {0, 0, 0, 15}},
        {"target 90 75 200 100", {0, 0, 0, 1}},
        {"mode 2 cruise 1", {0, 0, 0, 1}},
        {"cruise 10 frames 61 stop", {0, -40, 0, 10}},
        {"cruise 10 frames 64 down 0 0", {0, -36, 0, 10}},
        {"set180 15 -31 77 12.5", {14, -30, 77, 12.5}},
        {"mode 1 scale 4 down 0 0 move 1800 1800", {-19.6, -42, 0, 4}},
        {"mode 1 scale 4 frames 99 down 0 0 move -90 0", {0, 20, 0, 4}},
        {"mode 3 down 0 0 move -90 -90", {14, 30, 0, 1}},
        {"down 0 0 up 90 90 move 45 90", {0, 20, 0, 1}},
        {"mode 1 down 0 0 move -900 -900", {14, 30, 0, 1}},
        {"mode 1 scale 30", {0, 0, 0, 20}},
        {"mode 1 scale 0.1", {0, 0, 0, 0.25}},
        {"scale 1.04", {0, 0, 0, 1}},
        {"set180 0 0 0 12 down 0 0 scale 0.5", {0, 0, 0, 10}},
        {"set180 0 0 0 10 down 0 0 scale 0.95", {0, 0, 0, 10}},
        {"set180 0 0 0 12 down 0 0 scale 3 move 90 90", {0, 0, 0, 20}},
        {"mode 1 scale 2 down 0 0 move 90 90 adjust", {0, 0, 0, 1}},
        {"mode 1 scale 2.125 down 0 0 move 9 9 adjust", {-4, -4, 0, 2.125}},
        {"mode 2 down 0 0 move -90 0 mode 0 adjust", {0, 0, 0, 10}},
        {"mode 2 down 0 0 move -72 0 mode 0 adjust", {0, 0, 0, 1}},
        {"mode 1 scale 20 down 0 0 move 0 -72 mode 0 adjust", {0, 0, 0, 10}},
        {"mode 3 turn 5 0 -10", {10, -20, 0, 1}},
        {"mode 3 turn 0.5 0 0.5", {0, 0, 0, 1}},
        {"mode 1 scale 4 frames 99 turn 2 0 3", {4, 6, 0, 4}},
        {"mode 2 turn 0 0 15 turn 0 0 25 turn 0 0 50 turn 0 0 51", {0, 52, 0, 1}},
        {"mode 2 turn 0 0 19 mode 0 turn 0 0 19", {0, 0, 0, 10}},
    };
    expectLanded(FOVIX_TYPE_180VR, cases, " frames 2000");
}

TEST(HalfPanoramaTouch, FramesMoveTheViewStepByStep) {
    const Played cases[] = {
        {"fling -900 0 frames 1", {0, 4 / 15.0, 0, 1}},
        {"fling 0 -180 frames 1", {4 / 15.0, 0, 0, 1}},
        {"fling -900 0 down 0 0 move 0 0 frames 1", {0, 1.6, 0, 1}},
        {"sense 2 0 frames 1", {0, 1.6, 0, 1}},
        {"mode 2 turn 0 0 10 frames 1", {0, 20 / 15.0, 0, 1}},
        {"mode 2 turn 5 0 0 frames 1", {10 / 15.0, 0, 0, 1}},
        {"set180 0 15 0 15 adjust frames 1", {0, 1, 0, 1.38}},
        {"cruise 10 frames 20", {0, 40, 0, 8.6}},
        {"set180 10 10 0 12 frames 99 cruise 1 frames 1", {0, 0.2, 0, 11.62}},
        // Beyond the edge of the curved screen, at 60 degrees, the view springs back to 50.
        {"mode 1 scale 15 down 0 0 move -135 0 frames 99 mode 3 adjust frames 35", {0, 50, 0, 15}},
        {"mode 1 scale 15 down 0 0 move -135 0 frames 99 mode 3 adjust frames 90", {0, 52, 0, 15}},
        {"mode 1 scale 15 down 0 0 move -135 0 frames 99 mode 3 adjust frames 999", {0, 50, 0, 15}},
        {"mode 1 scale 15 down 0 0 move -135 0 frames 99 mode 3 adjust frames 90 down 0 0 frames 1",
         {0, 52 - 2 / 15.0, 0, 15}},
    };
    expectLanded(FOVIX_TYPE_180VR, cases);
}
