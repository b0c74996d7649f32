// fovix-view without its window: which calls gestures become, which steps are due, what keys and choices
// offer.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <set>
#include <sstream>

#include "viewer/aim/PositionMap.h"
#include "viewer/options/ViewerOptions.h"
#include "viewer/pointer/Gestures.h"
#include "viewer/state/Keys.h"
#include "viewer/state/ViewChoices.h"
#include "viewer/window/StepClock.h"
#include "viewer/window/SurfaceScale.h"

using namespace fovix_host;

namespace {

using Kind = PointerEvent::Kind;

// Keeps the calls as words: "down 10,20", "fling 600,0".
class Recorder final : public ViewCalls {
  public:
    explicit Recorder(int type, double zoom = 1) : _type(type), _zoom(zoom) {}

    int type() const override { return _type; }
    double zoom() const override { return _zoom; }
    void touchDown(SurfacePosition p) override { add("down", p); }
    void touchMove(SurfacePosition p) override { add("move", p); }
    void touchUp(SurfacePosition p) override { add("up", p); }
    void pinch(SurfacePosition a, SurfacePosition b) override { add("pinch", a, b); }
    void pinchScale(float scale) override { _calls << "scale " << std::lround(scale * 100) << "; "; }
    void fling(float x, float y) override { add("fling", SurfacePosition{x, y}); }
    void autoAdjust() override { _calls << "adjust; "; }
    void lookAt(SurfacePosition p) override { add("look", p); }
    void showRectangle(SurfacePosition a, SurfacePosition b) override { add("rectangle", a, b); }

    std::string calls() const { return _calls.str(); }

  private:
    void write(SurfacePosition p) { _calls << ' ' << std::lround(p.x) << ',' << std::lround(p.y); }
    template <typename... Points>
    void add(const char* name, Points... points) {
        _calls << name;
        (write(points), ...);
        _calls << "; ";
    }

    int _type;
    double _zoom;
    std::ostringstream _calls;
};

// Events in short, "P0,0@.05": a letter, the place, the time, and for wheel and fingers "*" with the notches
// or the finger. P press, D second press, S press with Shift, M move, R release, C cancel, W wheel; F, G, H
// of a finger.
std::vector<PointerEvent> eventsIn(const std::string& text) {
    static const std::string kLetters = "PMRCWZFGH";  // in the order of the kinds
    std::vector<PointerEvent> events;
    std::istringstream words(text);
    for (std::string word; words >> word;) {
        PointerEvent event;
        char letter = 0;
        std::sscanf(word.c_str(), "%c%f,%f@%lf*%f", &letter, &event.at.x, &event.at.y, &event.seconds,
                    &event.amount);
        if (letter == 'D') event.clicks = 2;
        event.shift = letter == 'S';
        event.kind = letter == 'D' || letter == 'S' ? Kind::kPress : static_cast<Kind>(kLetters.find(letter));
        event.finger = std::lround(event.amount);
        events.push_back(event);
    }
    return events;
}

struct GestureCase {
    const char* what;
    int type;
    double zoom;
    const char* events;
    const char* calls;
};

TEST(Gestures, BecomeTheCallsThatHandsMean) {
    constexpr int kPan = FOVIX_TYPE_360VR, kFlat = FOVIX_TYPE_ORIGINAL, kPip = FOVIX_TYPE_SINGLE_PIP;
    const GestureCase cases[] = {
        {"moves without a button steer nothing", kPan, 1, "M1,1@0", ""},
        {"a drag that is let go while moving flings", kPan, 1, "P0,0@0 M30,0@.05 M60,30@.1 R60,30@.11",
         "down 0,0; move 30,0; move 60,30; up 60,30; fling 600,600; adjust; "},
        {"a drag held still before it is let go does not", kPan, 1, "P0,0@0 M60,0@.05 R60,0@.3",
         "down 0,0; move 60,0; up 60,0; adjust; "},
        {"only the last tenth of a second counts", kPan, 1,
         "P0,0@0 M900,0@.5 M910,0@.6 M960,0@.65 R960,0@.65",
         "down 0,0; move 900,0; move 910,0; move 960,0; up 960,0; fling 1000,0; adjust; "},
        {"a flat view enlarged by the wheel stays so", kFlat, 2, "P5,5@0 R5,5@1", "down 5,5; up 5,5; "},
        {"one that is too small does not", kFlat, .5, "P5,5@0 R5,5@1", "down 5,5; up 5,5; adjust; "},
        {"quick notches are one pinch, that settles", kPan, 1,
         "W50,50@0*1 W50,50@.1*2 W50,50@.15*-1 W50,50@.34*0 W50,50@.36*0",
         "down 50,50; scale 115; scale 132; scale 152; scale 132; up 50,50; adjust; "},
        {"the wheel over another place restarts", kPan, 1, "W50,50@0*1 W500,50@.1*1",
         "down 50,50; scale 115; up 50,50; adjust; down 500,50; scale 115; "},
        {"the inset's type knows two fingers only", kPip, 1, "W50,50@0*1",
         "down 50,50; pinch -50,50 150,50; pinch -65,50 165,50; "},
        {"a trackpad reports ratios", kPan, 1, "Z50,50@0*1.1 Z50,50@.1*1.1",
         "down 50,50; scale 110; scale 121; "},
        {"a press ends the wheel's pinch first", kPan, 1, "W50,50@0*1 P1,1@.1",
         "down 50,50; scale 115; up 50,50; adjust; down 1,1; "},
        {"a double click looks there and drags nothing", kPan, 1, "D9,8@0 M90,8@.1 R90,8@.2", "look 9,8; "},
        {"a drag with Shift shows a rectangle", kPan, 1, "S90,80@0 M20,30@.1 R10,20@.2",
         "rectangle 10,20 90,80; "},
        {"too small a rectangle is ignored", kPan, 1, "S9,8@0 R10,90@.1", ""},
        {"the loss of the pointer ends a drag", kPan, 1, "P0,0@0 M60,0@.05 C60,0@.06 M99,0@.07",
         "down 0,0; move 60,0; up 60,0; adjust; "},
        {"a finger drags and flings", kPan, 1, "F0,0@0*7 G0,60@.05*7 H0,60@.06*7",
         "down 0,0; move 0,60; up 0,60; fling 0,1200; adjust; "},
        {"two fingers pinch, a third does not count, the remaining one continues, nothing is flung", kFlat, 2,
         "F0,0@0*7 F10,0@0*8 F5,5@.01*9 G6,6@.02*9 H6,6@.02*9 G40,0@.05*8 H0,0@.06*7 G90,0@.07*8 H90,0@.08*8",
         "down 0,0; pinch 0,0 10,0; pinch 0,0 40,0; up 40,0; move 90,0; up 90,0; adjust; "},
        {"a third finger takes the place of one that is lifted", kFlat, 2,
         "F0,0@0*7 F10,0@0*8 F50,5@.01*9 H0,0@.02*7 G60,5@.03*9",
         "down 0,0; pinch 0,0 10,0; up 10,0; pinch 10,0 50,5; pinch 10,0 60,5; "},
        {"two taps look there", kPan, 1, "F0,0@0*7 H0,0@.05*7 F4,3@.2*8 H4,3@.25*8",
         "down 0,0; up 0,0; adjust; look 4,3; "},
    };
    for (const GestureCase& gesture : cases) {
        Recorder view(gesture.type, gesture.zoom);
        Gestures gestures(view);
        for (const PointerEvent& event : eventsIn(gesture.events)) {
            gestures.tick(event.seconds);
            gestures.handle(event);
        }
        EXPECT_EQ(view.calls(), gesture.calls) << gesture.what;
    }
}

TEST(StepClock, MakesSixtyStepsASecondOnAnyDisplay) {
    struct Case {
        double framesPerSecond;
        int leastPerFrame, mostPerFrame, steps;  // in a second
    };
    for (const Case& display : {Case{60, 1, 1, 60}, Case{59.94, 1, 2, 60}, Case{144, 0, 1, 60},
                                Case{30, 2, 2, 60}, Case{20, 3, 3, 60}, Case{4, 6, 6, 24}}) {
        SCOPED_TRACE(display.framesPerSecond);
        StepClock clock;
        clock.restart(100);
        int steps = 0;
        for (int frame = 0; frame < display.framesPerSecond; ++frame) {
            const int due = clock.due(100 + frame / display.framesPerSecond);
            EXPECT_TRUE(frame == 0 || (due >= display.leastPerFrame && due <= display.mostPerFrame)) << due;
            steps += due;
        }
        EXPECT_NEAR(steps, display.steps, 5);
    }
    StepClock clock;
    clock.restart(5);
    EXPECT_EQ(clock.due(5), 1);
    EXPECT_NEAR(clock.untilNext(5), StepClock::kStep / 2, 1e-6) << "half a step early is early enough";
    EXPECT_EQ(clock.due(5 + clock.untilNext(5)), 1);
}

TEST(SurfaceScale, LeavesWholeMultiplesToTheLibraryAndScalesThePointerOtherwise) {
    EXPECT_EQ(scaleOf(640, 360, 640, 360), (SurfaceScale{640, 360, 1, 1, 1}));
    EXPECT_EQ(scaleOf(640, 360, 1280, 720), (SurfaceScale{640, 360, 2, 1, 1}));
    EXPECT_EQ(scaleOf(640, 360, 960, 540), (SurfaceScale{960, 540, 1, 1.5, 1.5}));
    EXPECT_EQ(scaleOf(0, 0, 0, 0), (SurfaceScale{1, 1, 1, 1, 1}));
}

TEST(Keys, EachDoesOneThingAndTheHelpListsAllOfThem) {
    std::set<std::string_view> names;
    std::set<Action> actions;
    for (const Key& key : keyTable()) {
        EXPECT_TRUE(names.insert(key.name).second) << key.name << " is there twice";
        EXPECT_EQ(keyNamed(key.name), &key);
        const bool isFirst = actions.insert(key.action).second;
        EXPECT_TRUE(!isFirst || !key.meaning.empty() || key.action == Action::kLeave) << key.name;
    }
    EXPECT_EQ(keyNamed("y"), nullptr);
    EXPECT_EQ(keyNamed("Q"), keyNamed("q")) << "Caps Lock is on";
    EXPECT_NE(keyNamed("T"), keyNamed("t"));
    for (int action = 0; action <= static_cast<int>(Action::kQuit); ++action)
        EXPECT_TRUE(actions.contains(static_cast<Action>(action))) << "no key does action " << action;
    for (const HelpLine& line : helpLines()) EXPECT_LT(line.meaning.size(), 60u) << line.meaning;
}

TEST(ViewChoices, CycleThroughEverythingThatFitsTogetherAndNothingElse) {
    ViewOptions view;
    view.type = FOVIX_TYPE_360VR;
    std::set<std::string> seen;
    for (int mount = 0; mount < 4; ++mount, view = withNextMount(view))
        for (int shape = 0; shape < 10; ++shape, view = withNextShape(view, 1))
            seen.insert(describe(view, 1));
    EXPECT_EQ(seen.size(), 10u + 5u + 1u + 1u) << "shapes of ceiling, wall, wall inverted and floor";
    EXPECT_TRUE(seen.contains("360 · wall · overview-five"));
    EXPECT_EQ(describe(view, 1), "360 · ceiling · single") << "round and back";
    EXPECT_EQ(describe(withNextShape(view, -1), 1), "360 · ceiling · two-and-strip");

    const std::vector<int> types{0, 1, 2, 3, 20, 21, 22, 24};
    ViewOptions next = view;
    for (std::size_t i = 0; i < types.size(); ++i, next = withNextType(next, 1)) {
        EXPECT_EQ(next.type, types[i]);
        EXPECT_EQ(withTypeNumber(view, static_cast<int>(i) + 1).type, types[i]);
    }
    EXPECT_EQ(next.type, view.type);
    EXPECT_EQ(withNextType(view, -1).type, FOVIX_TYPE_TWO_LENSES);
    EXPECT_EQ(describe(withNextMode(withTypeNumber(view, 2)), 1), "180 · stretch");
    EXPECT_EQ(describe(withNextLens(withTypeNumber(view, 6), 3), 3), "lenses · 2 of 3");
    EXPECT_EQ(describe(withNextLens(withNextLens(withTypeNumber(view, 8), 1), 1), 1),
              "two-lenses · both · first");
}

TEST(PositionMap, FindsThePlaceOfEveryColourThatIsDrawn) {
    for (const auto& [width, height] : {std::pair{3840, 2160}, std::pair{333, 57}, std::pair{1, 1}}) {
        const PositionMap map(width, height);
        const RgbaImage picture = map.image();
        for (int i = 0; i < 1000; ++i) {
            const int x = static_cast<int>(i * 7919LL % width), y = static_cast<int>(i * 104729LL % height);
            const std::uint8_t* p = picture.at(x, y);
            const auto spot = map.spot({p[0], p[1], p[2], p[3]});
            ASSERT_TRUE(spot);
            ASSERT_NEAR(spot->x, x + 0.5, width / 510.0 + 1e-6);
            ASSERT_NEAR(spot->y, y + 0.5, height / 510.0 + 1e-6);
        }
        EXPECT_FALSE(map.spot({0, 0, 0, 255})) << "the background";
        EXPECT_FALSE(map.spot({255, 255, 255, 255})) << "a line round the inset";
    }
}

TEST(ViewerOptions, ChooseASensibleTypeForTheInputs) {
    struct Case {
        std::vector<const char*> words;
        const char* view;
    };
    for (const Case& test :
         {Case{{"--sample"}, "360 · ceiling · single"}, Case{{"--sample=wall"}, "360 · wall · single"},
          Case{{"--sample=wall", "--mount", "floor"}, "360 · floor · single"},
          Case{{"a.mp4", "b.mp4"}, "grid"}, Case{{"a.mp4", "b.mp4", "--show-lens", "1"}, "lenses · 2 of 2"},
          Case{{"a.mp4", "--type", "180", "--draw-mode", "curved"}, "180 · curved"}}) {
        std::vector<const char*> words{"fovix-view"};
        words.insert(words.end(), test.words.begin(), test.words.end());
        EXPECT_EQ(describe(parseViewerOptions(static_cast<int>(words.size()), words.data()).view, 2),
                  test.view);
    }
}

}  // namespace
