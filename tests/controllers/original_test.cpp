// Touch on the plain fisheye picture and on the Korvel picture.
#include "TouchControllerOriginal.h"

#include "flat_reference.h"

using namespace fovix;

TEST(OriginalTouch, GesturesEndInTheirView) {
    struct Case {
        const char* gestures;
        bool adjusts;  ///< at the end
        View landed;
    };
    const Case cases[] = {
        {"move 90 90 fling 900 900", false, {0, 0, 0, 1}},
        {"spread 100 101", false, {0, 0, 0, 4.04}},
        {"scale 2 down 0 0 spread 100 600", false, {0, 0, 0, 20}},
        {"scale 0.5 down 0 0 spread 10 50", false, {0, 0, 0, 10}},
        {"scale 1.5 down 0 0 move 90 45 spread 100 10", false, {0, 0, 0, 0.25}},
        {"scale 2 down 0 0 spread 0 0", false, {0, 0, 0, 2}},
        {"spread 0 3", false, {0, 0, 0, 20}},
        {"scale 3 scale 0", false, {0, 0, 0, 3}},
        {"scale -3e38", false, {0, 0, 0, 0.25}},
        {"scale 2 down 0 0 move 180 -180", false, {64, -77, 0, 2}},
        {"scale 20 down 0 0 frames 60 move -90 45", false, {-2, 4, 0, 20}},
        {"scale 4 down 0 0 fling -4500 900", false, {-20, 20, 0, 4}},
        {"spread 10 11 move 300 300", false, {0, 0, 0, 4.4}},
        {"scale 2 down 0 0 up 90 90 move 180 135", false, {-20, -40, 0, 2}},
        {"scale 2 down 0 0 move 3e38 0 move -3e38 0", false, {0, 77, 0, 2}},
        {"scale 2.5 down 0 0 move 45 45", true, {0, 0, 0, 1}},
        {"scale 3.5 down 0 0 move 45 45", true, {-20, -20, 0, 3.5}},
    };
    for (const int type : {2, 3, 77}) {
        for (const Case& c : cases) {
            SteeredView view(type);
            view.play(c.gestures);
            if (c.adjusts) Fovix_AutoAdjust(view);
            view.frames(2000);
            expectView(c.landed, view.view(), 1e-5, c.gestures);
        }
    }
}

TEST(OriginalTouch, FramesFollowAnIndependentCalculation) {
    for (const unsigned seed : {1u, 2u, 3u, 4u, 5u}) {
        SteeredView view(FOVIX_TYPE_KORVEL);
        FlatReference reference{2.0, 60.0, 3.5, 70.0, 0.38, 20.0, 0.0};
        runStorm(seed, view, reference);
    }
}

TEST(OriginalTouch, ViewReachesOnlyTheModelThatIsShown) {
    SteeredView view(FOVIX_TYPE_KORVEL);
    view.play("scale 4");
    const ControllerPtr old = view.controller();
    Fovix_SetType(view, FOVIX_TYPE_ORIGINAL);
    old->operations.update(*old);
    expectView({0, 0, 0, 1}, view.view(), 0.0, "the controller of the last type");

    view.takeLines();
    FovixContext stranger;
    for (const VRHANDLE owner : {VRHANDLE{nullptr}, &stranger}) {
        const ControllerPtr orphan = TouchControllerOriginal_Create(owner, 0);
        orphan->operations.update(*orphan);
    }
    EXPECT_EQ("Error VRHANDLE, is NULL\nError VRHANDLE\n", view.takeLines());
    for (const int type : {FOVIX_TYPE_MULTI_IMAGE + 0, FOVIX_TYPE_MULTI_LENS + 0}) {
        Fovix_SetType(view, type);
        EXPECT_EQ(nullptr, view.controller()) << type;
    }
}
