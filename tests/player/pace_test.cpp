// When frames are due, which are dropped, and when the decoder is to hurry: moments of a made-up clock.
#include "player/Pace.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>
#include <string>

using fovix_host::Pace;

namespace {

// Moments in short, "S60@1.5+.1-!": the time of a frame, the clock when it is decoded, and how long it then
// waits. S comes after a seek, L after the end of a loop; - is dropped, ! hurries the decoder.
void expectMoments(Pace& pace, const std::string& moments) {
    std::istringstream words(moments);
    for (std::string word; words >> word;) {
        SCOPED_TRACE(word);
        if (word[0] == 'S') pace.restart();
        if (word[0] == 'L') pace.follow();
        double time = 0, now = 0, wait = 0;
        std::sscanf(word.c_str() + (word[0] == 'S' || word[0] == 'L'), "%lf@%lf+%lf", &time, &now, &wait);
        const bool isShown = !word.ends_with('-'), isHurried = word.ends_with('!');
        pace.take(time, now);
        EXPECT_NEAR(pace.untilDue(now), wait, 1e-9);
        EXPECT_EQ(pace.isWorthShowing(now + wait), isShown);
        if (isShown) pace.shown(now + wait);
        EXPECT_EQ(pace.isHurried(), isHurried);
    }
}

TEST(Pace, DecidesWhenFramesAreDueAndWhichAreDropped) {
    struct Case {
        const char* name;
        bool realTime;
        const char* moments;
    };
    for (const Case& row : {
             Case{"on time", false, "5@1 5.04@1.01+.03 5.08@1.05+.03 5.12@1.15"},
             Case{"late", false, "0@1 .04@1.09- .08@1.11 .12@1.11+.01"},
             Case{"one every tenth of a second, and hurry until caught up", false,
                  "0@1 .04@1.09- .08@1.14 .12@1.18- .16@1.22- .20@1.27! .36@1.37! .40@1.38+.02"},
             Case{"a second behind: the clock is reset", false, "0@1 .04@2.1 .08@2.11+.03"},
             Case{"times jump back", false, "9@1 9.04@1+.04 3@1.05+.03 3.04@1.09+.03"},
             Case{"times jump ahead", false, "0@1 .04@1+.04 99@1.05+.03 99.04@1.09+.03"},
             Case{"all at the same time", false, "0@1 0@1+.04 0@1.05+.03"},
             Case{"seek", false, "0@1 S60@1.5 60.04@1.5+.04"},
             Case{"loop", false, "7.96@1 L0@1+.04 .04@1.05+.03"},
             Case{"a long gap is waited for", false, "0@1 4@1.1+3.9 4.04@5+.04"},
             Case{"real time: nothing waits, unevenness is no delay", true,
                  "0@1 .04@1.01 .08@1.25 .12@1.26 50@1.3 3@1.4"},
             Case{"real time: what piled up is dropped", true, "0@1 .04@2.01 .08@2.02- .12@2.03- .9@2.04"},
             Case{"real time: what comes far too early is a recording", true,
                  "0@1 9@1.1 12@1.2 12.04@1.2+.04"},
             Case{"real time: catching up in vain ends", true,
                  "0@1 .04@4.04 1.04@5.04 2.04@6.05 2.08@6.09 2.12@6.13"},
         }) {
        SCOPED_TRACE(row.name);
        Pace pace(.04, row.realTime);
        expectMoments(pace, row.moments);
    }
}

TEST(Pace, APauseMovesWhatIsDue) {
    Pace pace(.04, false);
    pace.take(0, 1);
    pace.shown(1);
    pace.take(.04, 1.01);
    pace.pause(1.02);
    pace.resume(7.02);
    EXPECT_NEAR(pace.untilDue(7.02), .02, 1e-9) << "as long as when the pause began";
    EXPECT_NEAR(pace.untilOver(7.02), .06, 1e-9);
    pace.pause(7.02);
    pace.shown(8);
    pace.resume(9);
    pace.take(.08, 9);
    EXPECT_NEAR(pace.untilDue(9), .04, 1e-9) << "a frame shown in the pause lasts from its end";
}

}  // namespace
