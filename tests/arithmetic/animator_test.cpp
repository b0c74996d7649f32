#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "base/Animators.h"

using namespace fovix;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

template <class Animator>
int stepsUntilDone(Animator& animator) {
    int steps = 0;
    for (; !animator.mDone && steps < 10; ++steps) animator.step();
    return steps;
}

TEST(Glide, JumpsThenSlowsDownAndLands) {
    GlideAnimator up(0.0, 10.0, 2000), down(10.0, 0.0, 2000);
    for (int step = 1; step < 572; ++step) {
        SCOPED_TRACE(step);
        const double previous = up.mCurrent;
        up.step();
        down.step();
        // In 201st parts of the way, tenfold: 50, 20, then a fifth less each time, never less than 2.
        const double expected = step == 1 ? 50.0 : std::max(20.0 - 0.2 * (step - 2), 2.0);
        EXPECT_NEAR((up.mCurrent - previous) * 201.0, expected, 1e-9);
        EXPECT_NEAR(down.mCurrent, 10.0 - up.mCurrent, 1e-9);
        EXPECT_FALSE(up.mDone || down.mDone);
    }
    for (int step = 0; step < 2; ++step) {
        up.step();
        down.step();
        EXPECT_TRUE(up.mDone && down.mDone && up.mCurrent == 10.0 && down.mCurrent == 0.0);
    }
}

TEST(Glide, LandsWhateverItIsGiven) {
    const struct {
        double start, end;
        int frames;
    } cases[] = {{5.0, 5.0, 2000},
                 {0.0, 100.0, 9},
                 {0.0, 100.0, 10},
                 {0.0, 100.0, -15},
                 {0.0, 100.0, std::numeric_limits<int>::min()},
                 {0.0, kNaN, 2000},
                 {kNaN, 1.0, 2000},
                 {-1e308, 1e308, 2000},
                 {std::nextafter(90.0, 0.0), 90.0, 500}};
    for (const auto& [start, end, frames] : cases) {
        GlideAnimator glide(start, end, frames);
        EXPECT_EQ(stepsUntilDone(glide), 1) << start << " to " << end << ", frames " << frames;
        EXPECT_TRUE(glide.mCurrent == end || std::isnan(end));
    }
}

TEST(Bounce, ClimbsFallsBackAFifthAndReturns) {
    const struct {
        double start, end, rebound;
        int frames;
        std::vector<int> turns;  // the steps at which a phase ends
    } cases[] = {{0.0, 100.0, 80.0, 700, {35, 90, 101}},
                 {100.0, 0.0, 20.0, 700, {35, 90, 101}},
                 {-40.0, 60.0, 40.0, 5, {1, 2, 3}}};
    for (const auto& [start, end, rebound, frames, turns] : cases) {
        BounceAnimator bounce(start, end, frames);
        std::vector<int> found;
        std::vector<double> places;
        for (int step = 1; !bounce.mDone && step < 200; ++step) {
            const int phase = bounce.mPhase;
            bounce.step();
            places.push_back((bounce.mCurrent - start) / (end - start));
            EXPECT_TRUE(places.back() > (phase > 0 ? 0.8 - 1e-12 : 0.0) && places.back() <= 1.0) << step;
            if (bounce.mPhase == phase) continue;
            found.push_back(step);
            EXPECT_EQ(bounce.mCurrent, phase == 1 ? rebound : end);
        }
        EXPECT_EQ(found, turns);
        EXPECT_EQ(places.size(), static_cast<std::size_t>(turns.back()) + 1);
        // Half the speed of 1.4 / 71.
        EXPECT_TRUE(frames == 5 || std::abs(places.at(90) - 0.8 - 0.7 / 71.0) < 1e-12);
    }
    for (const double end : {5.0, std::nextafter(5.0, 9.0), kNaN}) {
        BounceAnimator bounce(5.0, end, 700);
        EXPECT_EQ(stepsUntilDone(bounce), 4) << end;
    }
}
