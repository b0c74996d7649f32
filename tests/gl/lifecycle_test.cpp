// From Fovix_Prepare to the next GL context: what is printed in which order, what is kept and what is made
// anew.
#include <gtest/gtest.h>

#include <climits>

#include "HeadlessGl.h"
#include "handle/FovixContext.h"

namespace fovix_test {
namespace {

TEST(Lifecycle, PrintsItsStepsInOrder) {
    const HeadlessGl gl(80, 60);
    const View view, unprepared;
    const Image picture = Image::chequered(40, 30);
    const auto show = [&] { Fovix_SetRGBTexture(view, picture.bytes.data(), picture.size(), 40, 30); };
    const auto circle = [&] { Fovix_SetFecParams(view, 10, 20, 30, 80, 60); };
    const auto draw = [&] { Fovix_Drawself(view); };
    const auto init = [&] { Fovix_Init(view, 80, 60); };
    const auto prepare = [&] { Fovix_Prepare(view); };
    const std::string sized = "backingWidth = 0, backingHeight = 0\nset backingWidth = ";
    const std::string set = sized + "80, backingHeight = 60\n";
    const std::string refreshed = "RefreshConfig\n    TextureUseful : ";
    const std::string mesh =
        "config changed\ncreateVertices()\nGridMesh_Create_Original()\nbacking : 80 x 60\n";
    const struct {
        std::function<void()> call;
        std::string lines;  ///< the first ones; none where this is empty
    } steps[] = {
        {[&] { Fovix_SetType(view, 2); }, refreshed + "0\n    isFecValid : 0\n"},
        {prepare, "Fovix_Prepare()\n" + sized + "0, backingHeight = 0\n"},
        {init, "Fovix_Init()\n" + set},
        {draw, ""},
        {show, refreshed + "1\n    isFecValid : 0\nFishEyeConfig_init(20, 15, 170.000000, "},
        {show, ""},
        {draw, mesh},
        {draw, ""},
        {prepare, "Fovix_Prepare()\n" + set},  // forgets the picture, but not its size or mesh
        {draw, "texture not useful 2\n"},
        {draw, "texture not useful 2\n"},
        {show, ""},
        {draw, ""},
        {circle, refreshed + "1\n    isFecValid : 1\n    radiusX : 15.000000\n"},
        {circle, ""},
        {draw, mesh},
        {init, "Fovix_Init()\n" + set},
        {draw, mesh},  // types 2 and 3 build their mesh anew for a new size
        {[&] { Fovix_CleanUp(view); }, ""},
        {draw, ""},
        {circle, ""},
        {[&] { Fovix_SetFecParams(view, 1, 1, 1, 1, 1); }, refreshed + "0\n    isFecValid : 1\n"},
    };
    for (const auto& [call, lines] : steps) {
        const std::string printed = printedBy(call);
        EXPECT_EQ(printed.substr(0, lines.empty() ? printed.npos : lines.size()), lines);
    }
    EXPECT_TRUE(looksLike(gl.readPixels(), Image(80, 60))) << "cleaned up";
    printedBy(Fovix_SetRGBTexture, unprepared, picture.bytes.data(), picture.size(), 40, 30);
    Fovix_SetBackground(unprepared, 0x405060);
    EXPECT_EQ(printedBy(Fovix_Drawself, unprepared), "Fovix_Drawself() Error : Fovix_Prepare has not run\n");
    EXPECT_TRUE(looksLike(gl.readPixels(), Image(80, 60, rgb(0x405060))));
}

TEST(Lifecycle, InitAndPpiZoomSetTheViewport) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 160, 120);
    const struct {
        int width, height, zoom, factor;
    } cases[] = {{80, 60, 0, 1}, {80, 60, -2, 1}, {80, 60, 2, 2}, {50, 60, INT_MIN, 2}, {50, 60, 1, 1}};
    for (const auto& [width, height, zoom, factor] : cases) {
        const int right = factor * width, up = factor * height;
        printedBy(Fovix_Init, stage.view, width, height);
        Fovix_SetPPIZoom(zoom);
        stage.show(Image(width, height, rgb(0xC08040)));
        EXPECT_TRUE(looksLike(stage.draw(), Image::of(160, 120, [&](int x, int y) {
                                  return rgb(x < right && y >= 120 - up ? 0xC08040 : 0);
                              })));
        int read[2] = {};
        Fovix_getViewSize(stage.view, &read[0], nullptr);
        Fovix_getViewSize(stage.view, nullptr, &read[1]);
        EXPECT_EQ(std::to_array(read), (std::array{width, height}));
    }
}

TEST(Lifecycle, StrangeSurfaceSizesDrawNothingAndHarmNothing) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 32, 32);
    const Image picture = Image::chequered(32, 32);
    Fovix_SetPPIZoom(3);
    for (const int type : {2, 3, 20, 21, 23}) {
        printedBy(Fovix_SetType, stage.view, type);
        for (const int side : {0, -1, INT_MIN, INT_MAX}) {
            printedBy(Fovix_Init, stage.view, side, side);
            stage.show(picture);
            stage.draw();
        }
    }
    Fovix_SetPPIZoom(1);
    printedBy(Fovix_Init, stage.view, 32, 32);
    EXPECT_TRUE(looksLike(stage.draw(), picture));
}

TEST(TypeChange, Type3IsRefusedOnceThreeChangesWereAccepted) {
    struct Step {
        int wanted, type, count;
    };
    const std::vector<Step> paths[] = {
        {{0, 0, 2}, {0, 0, 2}, {1, 1, 3}, {3, 1, 3}, {20, 20, 4}, {3, 3, 5}, {0, 0, 6}, {3, 0, 6}, {2, 2, 7}},
        {{3, 3, 2}, {1, 1, 3}, {3, 1, 3}, {-5, -5, 4}, {3, 3, 5}, {65535, 65535, 6}}};
    for (const std::vector<Step>& path : paths) {
        const View view(Fovix_Create);
        for (const Step& step : path) {
            printedBy(Fovix_SetType, view, step.wanted);
            EXPECT_EQ(Fovix_GetType(view), step.type);
            EXPECT_EQ(view->typeSwitchCount, step.count);
        }
    }
}

TEST(NewGlContext, SlotsMakeTheirTexturesAnewAndLeaveTheHostsAlone) {
    for (const bool isGrid : {true, false}) {
        Stage stage(isGrid ? FOVIX_TYPE_MULTI_IMAGE : FOVIX_TYPE_MULTI_LENS, 60, 40);
        Fovix_Multi_SetScreenNumber(stage.view, 2, 2);
        if (!isGrid) Fovix_Multi_SetLens(stage.view, 4);
        const auto expectShown = [&](const std::array<unsigned, 4>& colours) {
            const auto colour = [&](int slot) { return rgb(colours[static_cast<std::size_t>(slot)]); };
            for (int slot = 0; slot < 4; ++slot) stage.show(slot, Image(15, 10, colour(slot)));
            for (int lens = 3; lens >= 0; --lens) {
                printedBy(Fovix_Multi_SwitchLens, stage.view, lens);
                EXPECT_TRUE(looksLike(stage.draw(), Image::of(60, 40, [&](int x, int y) {
                                          return colour(isGrid ? y / 20 * 2 + x / 30 : lens);
                                      })));
            }
        };
        expectShown({0xC00000, 0x00C000, 0x0000C0, 0xC0C000});
        const HeadlessGl next(60, 40);  // current from here on, and what stage.draw() reads
        // The host's own textures under the names that the library used in the earlier context.
        const Image mark(3, 5, rgb(0xABCDEF));
        std::vector<unsigned> names;
        for (int slot = 0; slot < 4; ++slot) {
            for (const unsigned name :
                 stage.view->frames[static_cast<std::size_t>(slot)].dewarperTextureName) {
                names.push_back(name);
                glBindTexture(GL_TEXTURE_2D, name);
                glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 3, 5, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                             mark.bytes.data());
            }
        }
        printedBy(Fovix_Prepare, stage.view);
        printedBy(Fovix_Init, stage.view, 60, 40);
        expectShown({0x102030, 0x708090, 0xFF00FF, 0x00FFFF});
        for (const unsigned name : names) {
            Image found(64, 64);
            glBindTexture(GL_TEXTURE_2D, name);
            glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, found.bytes.data());
            EXPECT_TRUE(found.at(14, 0) == rgb(0xABCDEF) && found.at(15, 0) == rgb(0)) << "texture " << name;
        }
        EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
    }
}

}  // namespace
}  // namespace fovix_test
