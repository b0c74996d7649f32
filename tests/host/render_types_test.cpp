// What fovix-render shows with each display type: the sample's landmarks where they belong, and views that
// options set.

#include <algorithm>
#include <set>

#include "Drawn.h"
#include "ProgramRun.h"
#include "circle/LensText.h"
#include "options/ViewOptions.h"
#include "sample/SampleScene.h"

using namespace fovix_host;

namespace {

using Camera = SampleScene::Camera;

Drawn draw(const std::string& arguments) {
    const ProgramRun run = runFovixRender(arguments + " -o view.png --quiet");
    EXPECT_EQ(run.status, 0) << arguments << '\n' << run.errors;
    EXPECT_EQ(run.errors, "");
    return Drawn("view.png");
}

std::string bytes(const std::string& arguments) {
    draw(arguments);
    return readText(fileInTest("view.png"));
}

TEST(RenderTypes, ShowTheSamplesLandmarksWhereTheyBelong) {
    struct Shown {
        const char* arguments;
        Camera camera;
        std::size_t atLeast;  // landmarks on the surface
        double x, y, half;    // of the image on the surface: its middle, and half its size
    };
    for (const Shown& shown :
         {Shown{"--type fisheye --size 800x400", Camera::kCeiling, 6, 400, 200, 200},
          Shown{"--type grid --grid 1x2 --size 800x400", Camera::kCeiling, 6, 200, 200, 200},
          Shown{"--type grid --size 800x400", Camera::kWall, 5, 600, 100, 100},
          Shown{"--type lenses --show-lens 1 --size 400x400", Camera::kWall, 5, 200, 200, 200},
          // Both images are 0.49 times as wide as the surface, 1.004 of such halves off its middle.
          Shown{"--type two-lenses --two-lenses both", Camera::kCeiling, 6, 640 * (1 - 0.49196), 360,
                0.49 * 360},
          Shown{"--type two-lenses --two-lenses both,second", Camera::kWall, 5, 640, 360, 360},
          Shown{"--type two-lenses --logic-zoom 1,10,3,6", Camera::kWall, 2, 640, 360, 720},
          // The inset: 0.6 times as wide as the surface, around (0.3, -0.7).
          Shown{"--sample=wall --type pip --size 400x400", Camera::kWall, 5, 260, 340, 120}}) {
        SCOPED_TRACE(shown.arguments);
        const std::string sample = std::string(shown.arguments).starts_with("--sample") ? "" : "--sample ";
        const Drawn drawn = draw(sample + shown.arguments);
        const SampleScene scene(shown.camera, 1280, 1280);
        std::size_t found = 0;
        for (const auto& mark : scene.visibleLandmarks()) {
            const FramePoint in = project(scene.lens(), mark.direction);
            const double x = shown.x + shown.half * (in.x / 640 - 1),
                         y = shown.y + shown.half * (in.y / 640 - 1);
            if (x < 2 || y < 2 || x > drawn.width() - 3 || y > drawn.height() - 3) continue;
            ++found;
            expectColour(drawn.at(x, y), {mark.colour[0], mark.colour[1], mark.colour[2]}, 12, mark.name);
        }
        EXPECT_GE(found, shown.atLeast);
    }
}

TEST(RenderTypes, TakeTheSamplesOwnLensCircle) {
    const LensCircle lens = SampleScene(Camera::kCeiling, 1280, 1280).lens();
    const auto with = [](const std::string& more) {
        return bytes("--sample --type 360 --size 64x64 " + more);
    };
    const std::string own = with("");
    EXPECT_EQ(own, with("--lens " + textOf(lens)));
    EXPECT_NE(own, with("--lens 640,640,640,1280,1280"));
}

// The wall camera has a red panel on its left and a blue one on its right, both above the middle.
TEST(RenderTypes, StraightenedViewsAreUprightAndNotMirrored) {
    draw("--sample=wall --size 640x640");
    std::filesystem::rename(fileInTest("view.png"), fileInTest("wall.png"));
    std::set<std::string> seen;
    for (const std::string view :
         {"--type 180", "--type 180 --shape stretch", "--type 180 --draw-mode curved", "--type korvel",
          "--type 360 --mount wall --shape strip"}) {
        SCOPED_TRACE(view);
        const Drawn drawn = draw("wall.png --lens 320,320,312,640,640 --size 640x360 " + view);
        EXPECT_TRUE(seen.insert(readText(fileInTest("view.png"))).second) << "as another one";
        std::vector<int> red, blue;  // columns
        for (int y = 151; y < 360; ++y)
            for (int x = 0; x < 640; ++x) {
                const Rgb c = drawn.at(x, y);
                if (c.r > 200 && c.g < 60 && c.b < 60) red.push_back(x);
                if (c.b > 200 && c.g < 100 && c.r < 60) blue.push_back(x);
            }
        ASSERT_GT(std::min(red.size(), blue.size()), 10u);
        EXPECT_LT(red[red.size() / 2], 310);
        EXPECT_GT(blue[blue.size() / 2], 330);
    }
}

TEST(RenderTypes, NamesStandForTheLibrarysNumbers) {
    struct Named {
        const char* type;
        std::string ViewTexts::*option;
        std::optional<int> ViewOptions::*value;
        const char *name, *number;
        int code;
    };
    using Texts = ViewTexts;
    using View = ViewOptions;
    for (const Named& named :
         {Named{"360", &Texts::shape, &View::shape, "single", "0", 0},
          Named{"360", &Texts::shape, &View::shape, "dome", "1", 1},
          Named{"360", &Texts::shape, &View::shape, "cylinder-inside", "4", 4},
          Named{"0", &Texts::shape, &View::shape, "four-screens", "7", 7},
          Named{"0", &Texts::mount, &View::mount, "wall-inverted", "2", 2},
          Named{"180", &Texts::shape, &View::shape, "large-and-two", "10", 10},
          Named{"1", &Texts::drawMode, &View::drawMode, "stretch", "1", 1},
          Named{"1", &Texts::drawMode, &View::drawMode, "curved", "3", 3},
          Named{"two-lenses", &Texts::twoLenses, &View::twoLensesMode, "lower", "3", 3},
          Named{"24", &Texts::twoLenses, &View::twoLensesScreen, "both,first", "1,1", 1}})
        for (const char* text : {named.name, named.number}) {
            ViewTexts texts;
            texts.type = named.type;
            texts.*named.option = text;
            EXPECT_EQ(readViewOptions(texts).*named.value, named.code) << text;
        }
}

class RenderSmall : public testing::Test {
  protected:
    RenderSmall() { writeMedia(fileInTest("in.mkv"), "ffv1", AV_PIX_FMT_YUV420P, 64, 64, 1); }
};

TEST_F(RenderSmall, AnimationsEndBeforeTheFrameUnlessFramesAreAsked) {
    for (const std::string view : {"--type 360 --shape cylinder", "--type 180 --shape four-screens",
                                   "--type 24 --two-lenses both,second"}) {
        SCOPED_TRACE(view);
        const std::string all = "in.mkv --size 96x64 " + view;
        const std::string settled = bytes(all);
        EXPECT_EQ(settled, bytes(all + " --frames 300 --every last"));
        EXPECT_NE(settled, bytes(all + " --frames 1"));
    }
}

TEST_F(RenderSmall, OptionsSetTheViewsOfScreens) {
    const auto pixel = [](const std::string& view, int x, int y) {
        return draw("in.mkv --size 64x64 " + view).at(x, y);
    };
    const auto is = [](Rgb seen, std::size_t quadrant, const char* why) {
        expectColour(seen, fromLimitedRange(kQuadrants[quadrant]), 4, why);
    };
    is(pixel("--type 360 --ptz 0:90,0,90", 20, 20), 0, "as the camera has it");
    is(pixel("--type 360 --ptz 0:270,0,90", 20, 20), 3, "half a turn further");
    // Two lenses above each other: the zoom says which half is seen, the offset where.
    is(pixel("--type two-lenses --logic-zoom 1,10,3,4", 5, 30), 2, "left in the lower image");
    is(pixel("--rotate-zoom 0:0,180,0,1", 10, 10), 1, "moved left by half its width");

    const std::string four = "in.mkv --type 360 --shape four-screens --size 64x64 ";
    const auto isFramed = [](const Drawn& drawn, double x, double y) {
        const Rgb c = drawn.at(x, y);
        return c.r > 200 && c.g < 60 && c.b < 60;
    };
    const Drawn untouched = draw(four);
    EXPECT_TRUE(isFramed(untouched, 16, 0) && !isFramed(untouched, 48, 63)) << "the first screen is selected";
    const Drawn tapped = draw(four + "--select 50,50");
    EXPECT_TRUE(!isFramed(tapped, 16, 0) && isFramed(tapped, 48, 63)) << "the last screen was tapped";
}

}  // namespace
