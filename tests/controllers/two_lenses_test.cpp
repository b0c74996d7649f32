// Touch on two lenses in one picture.
#include "TouchControllerTwoLensesInOne.h"

#include <limits>

#include "flat_reference.h"

using namespace fovix;

TEST(TwoLensesTouch, GesturesEndInTheirView) {
    constexpr double kHuge = std::numeric_limits<double>::max();
    struct Case {
        double max, div;  ///< of the logic zoom, which starts at 1
        const char* gestures;
        bool adjusts;  ///< at the end
        View landed;
    };
    const Case cases[] = {
        {10, 3, "move 90 90", false, {0, 0, 0, 1}},
        {10, 3, "scale 2 down 0 0 move 90 45", false, {-20, -40, 0, 2}},
        {10, 3, "scale 2 down 0 0 move 900 -900", false, {80, -132, 0, 2}},
        {10, 3, "scale 4 down 0 0 frames 20 move 90 45", false, {-10, -20, 0, 4}},
        {10, 3, "spread 100 101", false, {0, 0, 0, 4.04}},
        {10, 3, "spread 100 500", false, {0, 0, 0, 10}},
        {10, 3, "spread 100 50", false, {0, 0, 0, 0.5}},
        {6, 3, "spread 100 500", false, {0, 0, 0, 6}},
        {10, 3, "scale 2.5", true, {0, 0, 0, 1}},
        {10, 3, "scale 3.5", true, {0, 0, 0, 3.5}},
        {0.5, 3, "scale 2", true, {0, 0, 0, 0.5}},
        {kHuge,
         -kHuge,
         "scale 3e38 down 0 0 frames 9 move 3e38 -3e38 frames 9 move -3e38 3e38 frames 9 scale 1e-38",
         true,
         {0, 0, 0, 1}},
    };
    for (const Case& c : cases) {
        SteeredView view(FOVIX_TYPE_TWO_LENSES);
        Fovix_SetLogicZoom(view, 1.0, c.max, c.div, 1.0);
        view.play(c.gestures);
        if (c.adjusts) Fovix_AutoAdjust(view);
        view.frames(2000);
        expectView(c.landed, view.view(), 1e-5, c.gestures);
        Fovix_SetRotateZoomRecoverMode(view, 9, 9, 9, 9);  // lasts until the next frame
        view.frames(1);
        expectView(c.landed, view.view(), 1e-5, c.gestures);
    }
}

TEST(TwoLensesTouch, PanStartsOverWhenTheLensChanges) {
    SteeredView view(FOVIX_TYPE_TWO_LENSES);
    const auto framesUntilCentred = [&view] {
        int count = 0;
        do view.frames(1);
        while (++count < 100 && view.view().x != 0.0);
        return count;
    };
    view.play("scale 2 frames 100 down 0 0 move 0 -90 scale 2");
    EXPECT_EQ(3, framesUntilCentred());  // zooms 2.18, 2.36, 2.54: beyond half a unit below the threshold
    view.play("frames 100");
    EXPECT_EQ(0.0, view.view().x);
    view.play("down 0 0 move 0 -90 scale 0.5");
    EXPECT_EQ(6, framesUntilCentred());  // 3.82, 3.64, 3.46, 3.28, 3.1, 2.92: below it
}

TEST(TwoLensesTouch, HostsChoicesCentreAtOnce) {
    SteeredView view(FOVIX_TYPE_TWO_LENSES);
    for (const auto choose : {Fovix_SetTwoLensesDrawMode, Fovix_SetTwoLensesScreen}) {
        view.play("down 0 0 scale 2 down 0 0 move 60 60 frames 4");
        EXPECT_LT(view.view().y, -20.0);
        choose(view, 0);
        view.frames(1);
        expectView({0, 0, 0, 1.54}, view.view(), 1e-9, "one zoom step back");
        view.frames(20);
    }
    for (const double min : {0.5, 1.5}) {
        Fovix_SetLogicZoom(view, min, 10.0, 4.0, 5.0);
        EXPECT_EQ(std::max(min, 1.0), view.params<TwoLensesTouchParams>().mZoomMin);
    }
    view.frames(100);
    EXPECT_EQ(5.0, view.view().zoom);
}

TEST(TwoLensesTouch, FramesFollowAnIndependentCalculation) {
    for (const unsigned seed : {11u, 12u, 13u, 14u, 15u}) {
        SteeredView view(FOVIX_TYPE_TWO_LENSES);
        FlatReference reference{2.5, 75.0, 6.0, 120.0, 0.18, 10.0, 3.0};
        runStorm(seed, view, reference);
    }
}
