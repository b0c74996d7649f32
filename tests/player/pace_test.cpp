// When pictures are due, which are left out, and when the decoder is to hurry: moments of a made-up clock.
#include "player/Pace.h"

#include <gtest/gtest.h>

#include <vector>

using fovix_host::Pace;

namespace {

enum class Before { kNothing, kSeek, kLoop };

struct Moment {
    double time, now;  // of the picture, and of the clock when it is decoded
    double wait;
    bool shown = true;
    bool hurried = false;
    Before before = Before::kNothing;
};

struct Case {
    const char* name;
    bool realTime;
    std::vector<Moment> moments;
};

TEST(Pace, DecidesWhenPicturesAreDueAndWhichAreDropped) {
    const std::vector<Case> cases{
        {"on time", false, {{5, 1, 0}, {5.04, 1.01, .03}, {5.08, 1.05, .03}, {5.12, 1.15, 0}}},
        {"late", false, {{0, 1, 0}, {.04, 1.09, 0, false}, {.08, 1.11, 0}, {.12, 1.11, .01}}},
        {"one every tenth of a second, and hurry until caught up",
         false,
         {{0, 1, 0},
          {.04, 1.09, 0, false},
          {.08, 1.14, 0},
          {.12, 1.18, 0, false},
          {.16, 1.22, 0, false},
          {.20, 1.27, 0, true, true},
          {.36, 1.37, 0, true, true},
          {.40, 1.38, .02}}},
        {"a second behind: the clock is set anew", false, {{0, 1, 0}, {.04, 2.1, 0}, {.08, 2.11, .03}}},
        {"times jump back", false, {{9, 1, 0}, {9.04, 1, .04}, {3, 1.05, .03}, {3.04, 1.09, .03}}},
        {"times jump ahead", false, {{0, 1, 0}, {.04, 1, .04}, {99, 1.05, .03}, {99.04, 1.09, .03}}},
        {"all at the same time", false, {{0, 1, 0}, {0, 1, .04}, {0, 1.05, .03}}},
        {"seek", false, {{0, 1, 0}, {60, 1.5, 0, true, false, Before::kSeek}, {60.04, 1.5, .04}}},
        {"loop", false, {{7.96, 1, 0}, {0, 1, .04, true, false, Before::kLoop}, {.04, 1.05, .03}}},
        {"a long gap is waited for", false, {{0, 1, 0}, {4, 1.1, 3.9}, {4.04, 5, .04}}},
        {"real time: nothing waits, unevenness is no delay",
         true,
         {{0, 1, 0}, {.04, 1.01, 0}, {.08, 1.25, 0}, {.12, 1.26, 0}, {50, 1.3, 0}, {3, 1.4, 0}}},
        {"real time: what piled up is dropped",
         true,
         {{0, 1, 0}, {.04, 2.01, 0}, {.08, 2.02, 0, false}, {.12, 2.03, 0, false}, {.9, 2.04, 0}}},
        {"real time: what comes far too early is a recording",
         true,
         {{0, 1, 0}, {9, 1.1, 0}, {12, 1.2, 0}, {12.04, 1.2, .04}}},
        {"real time: catching up in vain ends",
         true,
         {{0, 1, 0}, {.04, 4.04, 0}, {1.04, 5.04, 0}, {2.04, 6.05, 0}, {2.08, 6.09, 0}, {2.12, 6.13, 0}}},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        Pace pace(.04, row.realTime);
        for (const Moment& moment : row.moments) {
            SCOPED_TRACE(moment.time);
            if (moment.before == Before::kSeek) pace.restart();
            if (moment.before == Before::kLoop) pace.follow();
            pace.take(moment.time, moment.now);
            EXPECT_NEAR(pace.untilDue(moment.now), moment.wait, 1e-9);
            const double then = moment.now + moment.wait;
            EXPECT_EQ(pace.isWorthShowing(then), moment.shown);
            if (moment.shown) pace.shown(then);
            EXPECT_EQ(pace.isHurried(), moment.hurried);
        }
    }
}

TEST(Pace, APauseMovesWhatIsDue) {
    Pace pace(.04, false);
    pace.take(0, 1);
    pace.shown(1);
    pace.take(.04, 1.01);
    pace.pause(1.02);
    pace.goOn(7.02);
    EXPECT_NEAR(pace.untilDue(7.02), .02, 1e-9) << "as long as when the pause began";
    EXPECT_NEAR(pace.untilOver(7.02), .06, 1e-9);
    pace.pause(7.02);
    pace.shown(8);
    pace.goOn(9);
    pace.take(.08, 9);
    EXPECT_NEAR(pace.untilDue(9), .04, 1e-9) << "a picture shown in the pause lasts from its end";
}

}  // namespace
