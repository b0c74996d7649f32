// Steps of the easing, and drags at their limits.
#include "Easing.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "Gestures.h"

using namespace fovix;

TEST(Easing, AnglesTakeTheStepOfTheirDistance) {
    struct Case {
        double target;
        bool gliding;
        double next;  ///< from 0
    };
    for (const Case& c : {Case{90, false, 10},
                          {30, false, 10},
                          {20, false, 8},
                          {-10, false, -4},
                          {0.2, false, 0.1f},
                          {-0.05, false, -0.05},
                          {0, false, 0},
                          {90, true, 10.0 / 3.0},
                          {-51, true, -10.0 / 3.0},
                          {-45, true, -3},
                          {0.3, true, 0.1f}}) {
        EXPECT_DOUBLE_EQ(c.next, easeStep(0.0, c.target, c.gliding)) << c.target;
    }
    EXPECT_EQ(-1e308, easeStep(-1e308, 1e308, false)) << "no infinity on the way";
}

TEST(Easing, ZoomsTakeEqualStepsAndLand) {
    struct Case {
        double zoom, target, step, next;
    };
    for (const Case& c : {Case{1, 4, 0.38, 1.38},
                          {4, 1, 0.18, 3.82},
                          {1, 0.25, 0.38, 0.9625},
                          {0.5, 0.75, 0.18, 0.5375},
                          {0.9, 1, 0.38, 1},
                          {0.26, 0.25, 0.38, 0.25}}) {
        EXPECT_DOUBLE_EQ(c.next, easeZoom(c.zoom, c.target, c.step)) << c.zoom;
    }
}

TEST(Gestures, HugeNumbersStayFinite) {
    constexpr float kLargest = std::numeric_limits<float>::max();
    EXPECT_EQ(kLargest, fingerDistance(-kLargest, -kLargest, kLargest, kLargest));
    EXPECT_EQ(-kLargest, dragDistance(kLargest, -kLargest));
    EXPECT_EQ(kNoLimit, draggedTarget(kNoLimit, 1e308, 1.0, std::numeric_limits<double>::infinity()));
}
