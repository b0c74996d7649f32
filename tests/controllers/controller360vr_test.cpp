// Touch on the 360-degree panorama. Views are pan, tilt, roll and zoom.
#include <cmath>
#include <tuple>

#include "steered_view.h"

using namespace fovix;

TEST(PanoramaTouch, GesturesEndInTheirView) {
    const Played cases[] = {
        {"size 512 800 look 90 10 80 down 9 9 move 99 54 frames 1", {50, 30, 0, 80}},
        {"size 0 0 look 90 10 80 down 9 9 move 99 54 frames 1", {70, 20, 0, 80}},
        {"size 1024 800 mount 1 shape 2 look 90 -75 90 down 9 9 move 29 49 frames 1", {80, -80, 0, 90}},
        {"size 1024 800 mount 1 shape 6 look 90 0 90 down 9 9 move 109 59 frames 1", {65, 0, 0, 90}},
        {"look 10 85 10 down 9 9 scale 1 scale 1.6 frames 2000", {10, 83.75, 0, 6.25}},
        {"mount 1 look 90 90 60 down 9 9 scale 0 scale -3 frames 1", {90, 90, 0, 60}},
        {"shape 8 look 90 10 30 down 9 9 scale 1 scale 2 scale 0.5 frames 1", {90, 10, 0, 30}},
        {"mount 1 look 90 90 60 down 9 9 spread 300 400 frames 1", {90, 90, 0, 45}},
        {"mount 1 look 90 90 60 5 down 9 9 pinch 0 0 297 60 spread 300 300 frames 1",
         {90, 90, -6.421186, 60}},
        {"mount 1 look 90 90 60 5 down 9 9 pinch 0 0 200 0 pinch 0 0 198 40 frames 1",
         {90, 90, 5, 60 / 1.01}},
        {"mount 1 look 90 90 60 down 9 9 pinch 0 0 0 0 spread 100 200 frames 1", {90, 90, 0, 30}},
        {"mount 1 look 90 90 60 down 9 9 spread 300 0 frames 1", {90, 90, 0, 90}},
        {"look 90 10 60 down 9 9 spread 300 200 frames 2000", {90, 0, 0, 90}},
        {"look 90 10 60 down 9 9 spread 300 340 pinch 0 0 380 0 frames 1", {90, 10, 0, 60 / 3.8 * 3}},
        {"look 90 5 80 down 9 9 scale 1 scale 1.1 frames 1", {90, 5, 0, 80 / 1.1}},
        {"shape 7 look 10 80 40 adjust frames 2000", {10, 50, 0, 40}},
        {"mount 1 shape 2 look 90 -75 90 fling 900 0 frames 9", {90, -75, 0, 90}},
        {"look 10 20 60 turn 5 19 -10 frames 1", {-2, 26, 0, 60}},
        {"look 10 20 60 turn 5 21 -10 turn 5.5 21 -10.5 frames 1", {10, 20, 0, 60}},
        {"shape 3 look 10 20 90 cruise -3 frames 500", {-290, 20, 0, 90}},
        {"look 450 30 60 target 500 300 1001 601 frames 2000", {180, 0, 0, 60}},
        {"look 0 0 40 target 600 700 800 1000 frames 2000", {225, 50 * std::sqrt(8.0 / 41), 0, 40}},
        {"look 0 80 40 adjust target 500 300 1001 601 frames 1", {900 / 101.0, 80 - 400 / 101.0, 0, 40}},
        {"look 90 30 40 target 0 -5 1 -1 frames 2000", {90, 0, 0, 40}},
        // Pinches under a ceiling: fast ones and those past a threshold glide to the close or the wide view.
        {"look 10 20 60 down 9 9 scale 1 scale 1.25 frames 2000", {10, 50, 0, 40}},
        {"look 10 20 60 down 9 9 scale 1 scale 1.15 frames 1", {10, 20, 0, 60 / 1.15}},
        {"look 10 80 18 down 9 9 scale 1 scale 1.25 frames 2000", {10, 75.6, 0, 14.4}},
        {"look 10 20 40 down 9 9 scale 1 scale 0.75 frames 2000", {10, 0, 0, 90}},
        {"look 10 20 60 down 9 9 scale 1 scale 0.85 frames 2000", {10, 0, 0, 90}},
        {"look 10 20 60 down 9 9 scale 1 scale 0.9 frames 2000", {10, 20, 0, 60 / 0.9}},
        // At the end of a gesture the widest views go close, the others back from the rim.
        {"look 10 20 85 adjust frames 2000", {10, 50, 0, 40}},
        {"look 10 20 84 adjust frames 2000", {10, 6, 0, 84}},
        {"look 10 80 40 adjust frames 30", {10, 80 - 43.5 * 42 / 81, 0, 40}},
        {"look 10 20 85 down 9 9 adjust move 99 9 frames 2000", {10, 50, 0, 40}},
        {"look 10 20 60 sense 2 -1 frames 1", {20, 15, 0, 60}},
        {"look 10 20 60 sense 0 9 frames 1", {10, 30, 0, 60}},
        {"look 10 20 85 sense 1 0 frames 2000", {15, 50, 0, 40}},
        {"mount 1 look 90 90 60 sense 2 -9 frames 1", {100, 45, 0, 60}},
        {"look 10 20 60 cruise 1 frames 1000 stop frames 5", {210, 50, 0, 40}},
        {"look 10 20 60 cruise 1 frames 9 down 0 0 frames 5",
         {11.8, 20 + 30 * 204.4 / 2010, 0, 60 - 20 * 204.4 / 2010}},
        {"size 1024 800 look 10 20 60 fling 900 300 frames 1",
         {10 - 1.5 * 26 / 31, 20 + 0.5 * 26 / 31, 0, 60}},
        {"size 1024 800 look 10 20 60 fling 900 300 frames 100 down 9 9 frames 9",
         {-6.408065, 23.052903, 0, 60}},
        {"size 1024 800 look 10 20 60 down 9 9 move 39 39 up 59 9 move 89 39 frames 1", {0, 30, 0, 60}},
    };
    expectLanded(FOVIX_TYPE_360VR, cases);
}

TEST(PanoramaTouch, FlingSpinsUntilItIsEnded) {
    const double spin = -3.0 * 0.44 * 7.5 / 101.0;  // three times the 80th step of the glide from 7.5 to 0
    const std::tuple<const char*, const char*, double> cases[] = {
        {"", "", spin},     {"", "target 9 0 9 9 frames 2000", 0},
        {"shape 9", "", 0}, {"shape 3", "cruise 1 stop", 0},
        {"shape 5", "", 0}, {"mount 1 shape 5", "", 0}};
    for (const auto& [place, end, perFrame] : cases) {
        SteeredView view(FOVIX_TYPE_360VR,
                         std::string(place) + " size 1024 800 fling 3000 0 frames 80 " + end);
        const double before = view.view().x;
        view.play("frames 5000");
        EXPECT_NEAR(5000 * perFrame, view.view().x - before, 1e-6) << place << end;
    }
}
