// Touch on flat pictures: the plain fisheye picture, the Korvel picture and two lenses in one picture.
#include "steered_view.h"
#include "touch/TouchControllerOriginal.h"
#include "touch/TouchControllerTwoLensesInOne.h"

using namespace fovix;

TEST(FlatTouch, GesturesEndInTheirView) {
    const Played cases[] = {
        {"move 90 90 fling 900 900", {0, 0, 0, 1}},
        {"scale 2 down 0 0 spread 100 600", {0, 0, 0, 20}},
        {"scale 0.5 down 0 0 spread 10 60", {0, 0, 0, 10}},
        {"scale 1.5 down 0 0 move 90 45 spread 100 10", {0, 0, 0, 0.25}},
        {"scale 2 down 0 0 spread 0 0", {0, 0, 0, 2}},
        {"spread 0 3", {0, 0, 0, 20}},
        {"scale 3 scale 0", {0, 0, 0, 3}},
        {"scale -3e38", {0, 0, 0, 0.25}},
        {"scale 2 down 0 0 move 180 -180", {64, -77, 0, 2}},
        {"spread 10 11 move 300 300", {0, 0, 0, 4.4}},
        {"scale 2 down 0 0 up 90 90 move 180 135", {-20, -40, 0, 2}},
        {"scale 2 down 0 0 move 3e38 0 move -3e38 0", {0, 77, 0, 2}},
        {"scale 4 down 0 0 move -400 -400", {68, 84, 0, 4}},
        {"scale 20 down 0 0 frames 60 move -90 45", {-2, 4, 0, 20}},
        {"scale 4 down 0 0 fling -4500 900", {-20, 20, 0, 4}},
        {"scale 2 down 0 0 scale 0 move 90 90", {0, 0, 0, 2}},
        {"scale 3 down 0 0 move 45 45 adjust", {0, 0, 0, 1}},
        {"scale 3.5 down 0 0 move 45 45 adjust", {-20, -20, 0, 3.5}},
    };
    for (const int type : {2, 3, 77}) expectLanded(type, cases, " frames 2000");
    const Played twoLenses[] = {
        {"scale 2 down 0 0 move 900 -900", {80, -132, 0, 2}},
        {"scale 4 down 0 0 frames 20 move 90 45", {-10, -20, 0, 4}},
        {"spread 100 50 down 0 0 spread 200 100", {0, 0, 0, 0.25}},
        {"scale 2.5 frames 99 down 0 0 move 0 -45", {16, 0, 0, 2.5}},
        {"logic 1 6 3 1 spread 100 500", {0, 0, 0, 6}},
        {"scale 2.5 down 0 0 move 45 45 adjust", {0, 0, 0, 1}},
        {"logic 1 0.5 3 1 scale 2 adjust", {0, 0, 0, 0.5}},
        {"logic 0.5 1e308 -1e308 1 scale 3e38 down 0 0 frames 9 move 3e38 -3e38 frames 9 move -3e38 3e38 "
         "frames 9 scale 1e-38 adjust",
         {0, 0, 0, 1}},
        {"scale 2 set 9 9 9 9", {0, 0, 0, 2}},  // lasts until the next frame
    };
    expectLanded(FOVIX_TYPE_TWO_LENSES, twoLenses, " frames 2000");
}

TEST(FlatTouch, FramesMoveTheViewStepByStep) {
    const Played cases[] = {
        {"scale 2 down 0 0 move 0 -45 frames 1", {8, 0, 0, 1.38}},
        {"scale 2 down 0 0 move -90 0 frames 1", {0, 10, 0, 1.38}},
        {"scale 2 down 0 0 fling 0 -900 frames 1", {20 / 15.0, 0, 0, 1.38}},
        {"scale 2 down 0 0 fling 0 -2475 frames 1", {10 / 3.0, 0, 0, 1.38}},
        {"scale 2 down 0 0 fling 0 -900 move 0 0 frames 1", {8, 0, 0, 1.38}},
        {"scale 2 down 0 0 fling 0 -36 frames 1", {0.1, 0, 0, 1.38}},
        {"scale 2 down 0 0 move 0 -45 frames 99 fling 0 0 down 0 0 scale 0.5 down 0 0 move 9 9 frames 1",
         {20 - 20 / 15.0, 0, 0, 1.62}},
        {"scale 2.5 down 0 0 move 0 -45 frames 99 adjust frames 1", {12, 0, 0, 2.12}},
        {"scale 2 frames 99 down 0 0 scale 0.25 frames 1", {0, 0, 0, 1.9625}},
        {"scale 0.25 frames 99 down 0 0 scale 3 frames 1", {0, 0, 0, 0.2875}},
    };
    expectLanded(FOVIX_TYPE_KORVEL, cases);
    const Played twoLenses[] = {
        {"scale 2 frames 99 down 0 0 move 0 -90 scale 2 frames 2", {20, 0, 0, 2.36}},
        {"scale 2 frames 99 down 0 0 move 0 -90 scale 2 frames 3", {0, 0, 0, 2.54}},
        {"scale 2 frames 99 down 0 0 move 0 -90 scale 2 frames 99", {0, 0, 0, 4}},
        {"scale 4 frames 99 down 0 0 move 0 -90 scale 0.5 frames 5", {18.4448, 0, 0, 3.1}},
        {"scale 4 frames 99 down 0 0 move 0 -90 scale 0.5 frames 6", {0, 0, 0, 2.92}},
        {"scale 2.5 frames 99 down 0 0 move 0 -45 frames 9 adjust frames 1", {0, 0, 0, 2.32}},
        // The host's choice of a lens centres at once, one zoom step on; a new threshold counts at once.
        {"scale 2 down 0 0 move 60 60 frames 4 lenses 0 frames 1", {0, 0, 0, 1.54}},
        {"scale 2 down 0 0 move 60 60 frames 4 SetTwoLensesScreen 0 frames 1", {0, 0, 0, 1.54}},
        {"scale 2 frames 20 logic 1.5 10 4 5 frames 30 down 0 0 move 0 -90 scale 0.4 frames 5",
         {14.75584, 0, 0, 4.1}},
        {"scale 2 frames 20 logic 1.5 10 4 5 frames 30 down 0 0 move 0 -90 scale 0.4 frames 6",
         {0, 0, 0, 3.92}},
    };
    expectLanded(FOVIX_TYPE_TWO_LENSES, twoLenses);
}

TEST(FlatTouch, ViewReachesOnlyTheModelThatIsShown) {
    SteeredView view(FOVIX_TYPE_KORVEL, "scale 4");
    const ControllerPtr old = view.controller();
    Fovix_SetType(view, FOVIX_TYPE_ORIGINAL);
    old->operations.update(*old);
    expectView({0, 0, 0, 1}, view.view(), 0.0, "the controller of the last type");
}
