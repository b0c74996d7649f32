// Surfaces of any size, and a new GL context.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "HeadlessGl.h"
#include "ViewTable.h"
#include "handle/FovixContext.h"

namespace fovix_test {
namespace {

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
    stage.show(picture);
    Fovix_SetPPIZoom(3);
    for (const int type : {3, 2, 20, 21, 22, 24, 23, 1, 0}) {
        stage.play("type " + std::to_string(type));
        for (int shape = 0; shape < (type < 2 ? 11 : 1); ++shape) {
            stage.play("shape " + std::to_string(shape) +
                       " init 0 0 draw 1 init 0 9 draw 1 init 9 -1 draw 1 "
                       "init -2147483648 -2147483648 draw 1 init 2147483647 2147483647 draw 1 init "
                       "2147483647 1 draw 1");
            double view[4] = {};
            Fovix_GetPTZ_SubScreen(stage.view, 1, &view[0], &view[1], &view[2], &view[3]);
            for (const double value : view) EXPECT_TRUE(std::isfinite(value)) << type << ", shape " << shape;
        }
    }
    Fovix_SetPPIZoom(1);
    stage.play("type 2 init 32 32");
    EXPECT_TRUE(looksLike(stage.draw(), picture));
}

TEST(NewGlContext, SlotsRecreateTheirTexturesAndLeaveTheHostsAlone) {
    for (const bool isGrid : {true, false}) {
        Stage stage(isGrid ? FOVIX_TYPE_MULTI_IMAGE : FOVIX_TYPE_MULTI_LENS, 60, 40);
        Fovix_Multi_SetScreenNumber(stage.view, 2, 2);
        if (!isGrid) Fovix_Multi_SetLens(stage.view, 4);
        const auto expectShown = [&](const std::array<unsigned, 4>& colours) {
            const auto colour = [&](int slot) { return rgb(colours[static_cast<std::size_t>(slot)]); };
            for (int slot = 0; slot < 4; ++slot)
                printedBy([&] { submitTo(stage.view, slot, Image(15, 10, colour(slot))); });
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
