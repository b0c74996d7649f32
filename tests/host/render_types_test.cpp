// What fovix-render shows with each display type: the sample's landmarks where the type's projection puts
// them, names and numbers alike, views that the options set, and the options that do not fit.

#include <algorithm>
#include <map>
#include <optional>

#include "Drawn.h"
#include "ProgramRun.h"
#include "sample/SampleScene.h"

using namespace fovix_host;

namespace {

using Camera = SampleScene::Camera;
using Words = std::vector<std::string>;

Drawn draw(Words words, const std::string& file = "view.png") {
    words.insert(words.end(), {"--quiet", "-o", file});
    const ProgramRun run = runFovixRender(words);
    EXPECT_EQ(run.status, 0) << run.errors;
    // The small pictures of these tests show no lens circle, which is worth a line.
    EXPECT_TRUE(run.errors.empty() || run.errors.starts_with("fovix-render: no lens circle found"))
        << run.errors;
    EXPECT_LE(std::count(run.errors.begin(), run.errors.end(), '\n'), 1) << run.errors;
    return Drawn(file);
}

// A landmark on the way to the surface: its direction, and its place in the picture from -1 to 1, right and
// down, with the shorter side of the picture from -1 to 1.
struct Mark {
    CameraDirection direction;
    double x, y;
};

// A picture of half this size round a point of the surface.
struct FlatPlace {
    double x, y, half;
};

struct LandmarkCase {
    const char* words;
    Camera camera;
    int atLeast;  // so many landmarks are on the surface
    std::optional<FlatPlace> place;
};

// The eye stands one unit before the hemisphere of radius 1.09, with a field of view of 90 degrees.
FramePoint inOverview(const Mark& mark) {
    const double nearer = 1.09 / (1.0 + 1.09 * mark.direction.z);
    return {200 + 200 * nearer * mark.direction.x, 200 + 200 * nearer * mark.direction.y};
}

FramePoint placeOf(const LandmarkCase& shown, const Mark& mark) {
    if (!shown.place) return inOverview(mark);
    return {shown.place->x + shown.place->half * mark.x, shown.place->y + shown.place->half * mark.y};
}

int landmarksFound(const Drawn& drawn, const LandmarkCase& shown) {
    const SampleScene scene(shown.camera, 1280, 1280);
    int found = 0;
    for (const auto& mark : scene.visibleLandmarks()) {
        const FramePoint inPicture = project(scene.lens(), mark.direction);
        const auto [x, y] =
            placeOf(shown, {mark.direction, inPicture.x / 640.0 - 1.0, inPicture.y / 640.0 - 1.0});
        if (x < 2 || y < 2 || x > drawn.width() - 3 || y > drawn.height() - 3) continue;
        ++found;
        expectColour(drawn.at(x, y), {mark.colour[0], mark.colour[1], mark.colour[2]}, 12, mark.name);
    }
    return found;
}

TEST(RenderTypes, ShowTheSamplesLandmarksWhereTheyBelong) {
    for (const LandmarkCase& shown :
         {LandmarkCase{"--sample --type 360 --size 400x400", Camera::kCeiling, 6, {}},
          LandmarkCase{"--sample --type fisheye --size 800x400", Camera::kCeiling, 6, {{400, 200, 200}}},
          LandmarkCase{
              "--sample --type grid --grid 1x2 --size 800x400", Camera::kCeiling, 6, {{200, 200, 200}}},
          LandmarkCase{"--sample --type grid --size 800x400", Camera::kWall, 5, {{600, 100, 100}}},
          LandmarkCase{
              "--sample --type lenses --show-lens 1 --size 400x400", Camera::kWall, 5, {{200, 200, 200}}},
          // Both pictures are 0.49 times as wide as the surface, 1.004 of such halves off its middle.
          LandmarkCase{"--sample --type two-lenses --two-lenses both",
                       Camera::kCeiling,
                       6,
                       {{640 * (1 - 0.49196), 360, 0.49 * 360}}},
          LandmarkCase{
              "--sample --type two-lenses --two-lenses both,second", Camera::kWall, 5, {{640, 360, 360}}},
          LandmarkCase{
              "--sample --type two-lenses --logic-zoom 1,10,3,6", Camera::kWall, 2, {{640, 360, 720}}},
          // The inset: 0.6 times as wide as the surface, round (0.3, -0.7).
          LandmarkCase{"--sample=wall --type pip --size 400x400", Camera::kWall, 5, {{260, 340, 120}}}}) {
        SCOPED_TRACE(shown.words);
        EXPECT_GE(landmarksFound(draw(wordsOf(shown.words)), shown), shown.atLeast);
    }
}

// The wall camera has a red panel on its left and a blue one on its right, both above the middle.
TEST(RenderTypes, StraightenedPicturesAreUprightAndNotMirrored) {
    draw({"--sample=wall", "--size", "640x640"}, "wall.png");
    for (const Words& words : {Words{"--type", "180"}, Words{"--type", "180", "--shape", "stretch"},
                               Words{"--type", "180", "--draw-mode", "curved"}, Words{"--type", "korvel"},
                               Words{"--type", "360", "--mount", "wall", "--shape", "strip"}}) {
        SCOPED_TRACE(words.back());
        Words all{"wall.png", "--lens", "320,320,312,640,640", "--size", "640x360"};
        all.insert(all.end(), words.begin(), words.end());
        const Drawn drawn = draw(all);
        std::map<char, std::vector<int>> columns;
        for (int y = 0; y < 360; ++y)
            for (int x = 0; x < 640; ++x) {
                const Rgb c = drawn.at(x, y);
                if (c.r > 200 && c.g < 60 && c.b < 60 && y > 150) columns['r'].push_back(x);
                if (c.b > 200 && c.g < 100 && c.r < 60 && y > 150) columns['b'].push_back(x);
            }
        ASSERT_GT(columns['r'].size(), 10u);
        ASSERT_GT(columns['b'].size(), 10u);
        EXPECT_LT(columns['r'][columns['r'].size() / 2], 310);
        EXPECT_GT(columns['b'][columns['b'].size() / 2], 330);
    }
}

class RenderSmall : public testing::Test {
  protected:
    RenderSmall() { writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 64, 64, 1); }

    std::string bytes(Words words) {
        words.insert(words.begin(), {"in.mkv", "--size", "96x64"});
        draw(words);
        return readText(testFolder() / "view.png");
    }
};

struct SameCase {
    Words byName, byNumber;
};

TEST_F(RenderSmall, NamesAndNumbersMeanTheSameAndEachSomethingElse) {
    const std::vector<std::vector<SameCase>> families{
        {{{"--type", "360", "--shape", "single"}, {"--type", "0"}},
         {{"--type", "360", "--shape", "dome"}, {"--type", "0", "--shape", "1"}},
         {{"--type", "360", "--shape", "cylinder-inside"}, {"--type", "0", "--shape", "4"}},
         {{"--type", "360", "--shape", "four-screens"}, {"--type", "0", "--shape", "7"}},
         {{"--type", "360", "--mount", "wall-inverted"}, {"--type", "0", "--mount", "2"}}},
        {{{"--type", "180", "--shape", "stretch"}, {"--type", "1", "--draw-mode", "1"}},
         {{"--type", "180", "--draw-mode", "curved"}, {"--type", "1", "--draw-mode", "3"}},
         {{"--type", "180", "--shape", "large-and-two"}, {"--type", "1", "--shape", "10"}}},
        {{{"--type", "two-lenses", "--two-lenses", "lower"}, {"--type", "24", "--two-lenses", "3"}},
         {{"--type", "two-lenses", "--two-lenses", "both,first"}, {"--type", "24", "--two-lenses", "1,1"}}}};
    for (const auto& family : families) {
        std::vector<std::string> seen;
        for (const SameCase& same : family) {
            SCOPED_TRACE(same.byName[1] + " " + same.byName.back());
            seen.push_back(bytes(same.byName));
            EXPECT_EQ(bytes(same.byNumber), seen.back());
            EXPECT_EQ(std::count(seen.begin(), seen.end(), seen.back()), 1);
        }
    }
}

TEST_F(RenderSmall, AnimationsEndBeforeThePictureUnlessFramesAreAsked) {
    for (const Words& words :
         {Words{"--type", "360", "--shape", "cylinder"}, Words{"--type", "180", "--shape", "four-screens"},
          Words{"--type", "two-lenses", "--two-lenses", "both,second"}}) {
        SCOPED_TRACE(words[1]);
        const auto after = [&](const char* frames) {
            Words more = words;
            more.insert(more.end(), {"--frames", frames, "--every", "last"});
            return bytes(more);
        };
        const std::string settled = bytes(words);
        EXPECT_EQ(settled, after("300"));
        EXPECT_NE(settled, after("1"));
    }
}

TEST_F(RenderSmall, OptionsSetTheViewsOfScreens) {
    const auto corner = [&](const char* view) {
        return draw({"in.mkv", "--type", "360", "--size", "64x64", "--ptz", view}).at(20, 20);
    };
    expectColour(corner("0:90,0,90"), fromLimitedRange(kQuadrants[0]), 4, "as the camera has it");
    expectColour(corner("0:270,0,90"), fromLimitedRange(kQuadrants[3]), 4, "half a turn further");

    const Words four{"--type", "360", "--shape", "four-screens", "--size", "64x64"};
    const auto frameAt = [&](const Words& select, double x, double y) {
        Words words{"in.mkv"};
        words.insert(words.end(), four.begin(), four.end());
        words.insert(words.end(), select.begin(), select.end());
        const Rgb c = draw(words).at(x, y);
        return c.r > 200 && c.g < 60 && c.b < 60;
    };
    EXPECT_TRUE(frameAt({}, 16, 0) && !frameAt({}, 48, 63)) << "the first screen is selected";
    const Words tap{"--select", "50,50"};
    EXPECT_TRUE(!frameAt(tap, 16, 0) && frameAt(tap, 48, 63)) << "the last screen was tapped";
    // Two lenses above each other: the zoom says which half is seen, the offset where.
    const Drawn lower =
        draw({"in.mkv", "--type", "two-lenses", "--logic-zoom", "1,10,3,4", "--size", "64x64"});
    expectColour(lower.at(5, 30), fromLimitedRange(kQuadrants[2]), 4, "left in the lower picture");
    const Drawn moved = draw({"in.mkv", "--rotate-zoom", "0:0,180,0,1", "--size", "64x64"});
    expectColour(moved.at(10, 10), fromLimitedRange(kQuadrants[1]), 4, "moved left by half its width");
}

TEST_F(RenderSmall, RefusesWhatDoesNotFit) {
    const std::pair<Words, const char*> refusals[] = {
        {{"--shape", "strip"}, "--shape does not fit --type original; it goes with --type 360 or 180"},
        {{"--type", "360", "--shape", ""}, "--shape lacks its value, SHAPE"},
        {{"--type", "180", "--shape", "disc", "--draw-mode", "disc"}, "choose the projection of type 180"},
        {{"--type", "pip", "--ptz", "0:1,1,1"}, "--ptz does not fit --type pip; it goes with --type 360"},
        {{"--type", "360", "--rotate-zoom", "0:1,1,1,1"}, "--ptz sets the views of that type"},
        {{"--type", "360", "--shape", "stretch"}, "one of single, dome, bowl"},
        {{"--type", "180", "--shape", "1"}, "one of disc, cylinder, stretch"},
        {{"--type", "360", "--mount", "wall", "--shape", "four-screens"},
         "--mount wall; that has single, bowl"},
        {{"--type", "360", "--mount", "roof"}, "one of ceiling, wall, wall-inverted, floor"},
        {{"--type", "180", "--draw-mode", "4"}, "one of disc, stretch, cylinder, curved"},
        {{"--type", "360", "--ptz", "0:1,1"}, "SCREEN:PAN,TILT,ZOOM[,ROLL]"},
        {{"--type", "360", "--ptz", "0:1,1,nan"}, "SCREEN:PAN,TILT,ZOOM[,ROLL]"},
        {{"--type", "360", "--ptz", "0:1,1,0"}, "a zoom above 0"},
        {{"--type", "360", "--ptz", "1:1,1,1"}, "screen 0, the only one here"},
        {{"--type", "360", "--shape", "7", "--ptz", "4:1,1,1"}, "a screen from 0 to 3"},
        {{"--type", "360", "--select", "5"}, "X,Y in pixels"},
        {{"--type", "360", "--size", "9x7", "--select", "9,0"}, "from 0,0 to 8,6"},
        {{"--rotate-zoom", "0:1,1,1"}, "SCREEN:X,Y,Z,ZOOM"},
        {{"--rotate-zoom", "0:1,1,1,-1"}, "a zoom above 0"},
        {{"--type", "two-lenses", "--two-lenses", "upper,first"}, "a screen only with the mode both"},
        {{"--type", "two-lenses", "--logic-zoom", "1,10,3"}, "four numbers above 0"},
        {{"--type", "grid", "--grid", "6x7"}, "at most 36 cells"},
        {{"--type", "grid", "--grid", "1x1", "b.png"}, "2 inputs are too many; there is room for 1"},
        {{"--type", "lenses", "--show-lens", "1"}, "the only input is 0"},
        {{"b.png"}, "'b.png' is one input too many for --type original; grid and lenses"},
        {{"--script", "a.txt", "--type", "360", "--ptz", "0:1,1,1"}, "make these calls in the script"},
    };
    for (const auto& [words, sentence] : refusals) {
        Words all{"in.mkv"};
        all.insert(all.end(), words.begin(), words.end());
        expectRefusal({all, 2, sentence});
    }
}

}  // namespace
