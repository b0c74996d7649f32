#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "Animators.h"

using namespace fovix;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

template <class Animator>
int stepsUntilDone(Animator& animator, int limit) {
    int steps = 0;
    while (!animator.mDone && steps < limit) {
        animator.step();
        ++steps;
    }
    return steps;
}

TEST(Glide, JumpsThenSlowsDownAndLands) {
    GlideAnimator up(0.0, 10.0, 2000), down(10.0, 0.0, 2000);
    double previous = 0.0;
    for (int step = 1; !up.mDone && step < 1000; ++step) {
        up.step();
        down.step();
        // In 201st parts of the way, tenfold: 50, 20, then a fifth less each time, never less than 2.
        const double expected = step == 1 ? 50.0 : std::max(20.0 - 0.2 * (step - 2), 2.0);
        if (!up.mDone) {
            EXPECT_NEAR((up.mCurrent - previous) * 201.0, expected, 1e-9) << step;
        }
        EXPECT_NEAR(down.mCurrent, 10.0 - up.mCurrent, 1e-9) << step;
        previous = up.mCurrent;
        EXPECT_EQ(up.mDone, step == 572 ? 1 : 0) << step;
    }
    EXPECT_EQ(up.mCurrent, 10.0);
    EXPECT_EQ(down.mCurrent, 0.0);
    EXPECT_EQ(down.mDone, 1);
    up.step();
    EXPECT_EQ(up.mCurrent, 10.0);
}

TEST(Glide, LandsWhateverItIsGiven) {
    const struct {
        double start, end;
        int frames, steps;
    } cases[] = {
        {5.0, 5.0, 2000, 1},
        {0.0, 100.0, 9, 1},
        {0.0, 100.0, 0, 1},
        {0.0, 100.0, -15, 1},
        {0.0, 100.0, std::numeric_limits<int>::min(), 1},
        {0.0, 100.0, 10, 1},  // two steps' length, the first jump is five
        {0.0, kNaN, 2000, 1},
        {kNaN, 1.0, 2000, 1},
        {-1e308, 1e308, 2000, 1},
        {std::nextafter(90.0, 0.0), 90.0, 500, 1},  // less than a step can add
    };
    for (const auto& [start, end, frames, steps] : cases) {
        GlideAnimator glide(start, end, frames);
        EXPECT_EQ(stepsUntilDone(glide, 10), steps) << start << " to " << end << ", frames " << frames;
        if (!std::isnan(end)) {
            EXPECT_EQ(glide.mCurrent, end);
        }
    }
}

TEST(Bounce, ClimbsFallsBackAFifthAndReturns) {
    const struct {
        double start, end, rebound;
        int frames, arrival, fallen, returned;  // the steps at which a phase ends
    } cases[] = {
        {0.0, 100.0, 80.0, 700, 35, 90, 101},
        {100.0, 0.0, 20.0, 700, 35, 90, 101},
        {-40.0, 60.0, 40.0, 5, 1, 2, 3},
    };
    for (const auto& each : cases) {
        BounceAnimator bounce(each.start, each.end, each.frames);
        const double way = each.end - each.start;
        for (int step = 1; step <= each.returned + 1; ++step) {
            SCOPED_TRACE(testing::Message() << each.start << " to " << each.end << ", step " << step);
            EXPECT_EQ(bounce.mDone, 0);
            bounce.step();
            const int phase = (step >= each.arrival) + (step >= each.fallen) + (step >= each.returned);
            EXPECT_EQ(bounce.mPhase, phase);
            const double share = (bounce.mCurrent - each.start) / way;
            EXPECT_TRUE(share > 0.0 && share <= 1.0) << share;
            if (phase > 0) {
                EXPECT_GE(share, 0.8 - 1e-12);
            }
            if (step == each.fallen + 1 && step < each.returned) {  // back at half the speed of 1.4 / 71
                EXPECT_NEAR(share, 0.8 + 0.7 / 71.0, 1e-12);
            }
            if (step == each.fallen) {
                EXPECT_EQ(bounce.mCurrent, each.rebound);
            }
            if (step == each.arrival || step == each.returned) {
                EXPECT_EQ(bounce.mCurrent, each.end);
            }
        }
        EXPECT_EQ(bounce.mDone, 1);
        EXPECT_EQ(bounce.mCurrent, each.end);
    }
}

TEST(Bounce, EndsWithoutAWayToGo) {
    for (const double end : {5.0, std::nextafter(5.0, 9.0), kNaN}) {
        BounceAnimator bounce(5.0, end, 700);
        EXPECT_EQ(stepsUntilDone(bounce, 10), 4) << end;
    }
}
