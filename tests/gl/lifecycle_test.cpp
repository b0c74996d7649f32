// From Fovix_Prepare to the next GL context: what is printed in which order, what is kept and what is made
// anew.
#include <gtest/gtest.h>

#include <memory>

#include "FovixContext.h"
#include "HeadlessGl.h"
#include "PlainPicture.h"

namespace fovix_test {
namespace {

constexpr char kOriginalLines[] =
    "createVertices()\nGridMesh_Create_Original()\nbacking : 80 x 60\n"
    "original : 40.000000 x 30.000000, length = 2.000000\n"
    "display as : 40.000000 x 30.000000, ratio : 1.000000\n";

TEST(Lifecycle, PrintsItsStepsInOrder) {
    const HeadlessGl gl(80, 60);
    const View view;
    const Image picture = quadrants(40, 30);
    const std::string centred =
        "RefreshConfig\n    TextureUseful : 1\n    isFecValid : 0\n"
        "FishEyeConfig_init(20, 15, 170.000000, 170.000000, 20.000000)\n";
    const std::string without = "RefreshConfig\n    TextureUseful : 0\n    isFecValid : 0\n";
    EXPECT_EQ(printedBy([&] { Fovix_SetType(view, FOVIX_TYPE_ORIGINAL); }), without);
    EXPECT_EQ(
        printedBy([&] { Fovix_Prepare(view); }),
        "Fovix_Prepare()\nbackingWidth = 0, backingHeight = 0\nset backingWidth = 0, backingHeight = 0\n");
    EXPECT_EQ(
        printedBy([&] { Fovix_Init(view, 80, 60); }),
        "Fovix_Init()\nbackingWidth = 0, backingHeight = 0\nset backingWidth = 80, backingHeight = 60\n");
    EXPECT_EQ(printedBy([&] { Fovix_Drawself(view); }), "");
    const auto show = [&] { Fovix_SetRGBTexture(view, picture.bytes.data(), picture.size(), 40, 30); };
    EXPECT_EQ(printedBy(show), centred);
    EXPECT_EQ(printedBy(show), "") << "the same size again";
    EXPECT_EQ(printedBy([&] { Fovix_Drawself(view); }), std::string("config changed\n") + kOriginalLines);
    EXPECT_EQ(printedBy([&] { Fovix_Drawself(view); }), "");
    EXPECT_EQ(printedBy([&] { Fovix_SetFecParams(view, 10, 20, 30, 80, 60); }),
              "RefreshConfig\n    TextureUseful : 1\n    isFecValid : 1\n    radiusX : 15.000000\n"
              "    radiusY : 15.000000\n    TextureWidht : 40\n    TextureHeight : 30\n    Fec_xCenter : 10\n"
              "    Fec_yCenter : 20\n    Fec_imgWidth : 80\n    Fec_imgHeight : 60\n    Fec_radius : 30\n"
              "    xCenter : 5.000000\n    yCenter : 10.000000\n    radius : 15.000000\n"
              "FishEyeConfig_init(5, 10, 170.000000, 170.000000, 15.000000)\n");
    EXPECT_EQ(printedBy([&] { Fovix_SetFecParams(view, 10, 20, 30, 80, 60); }), "") << "the same values";
    EXPECT_EQ(printedBy([&] { Fovix_Drawself(view); }), std::string("config changed\n") + kOriginalLines);
    printedBy([&] { Fovix_Init(view, 80, 60); });
    EXPECT_EQ(printedBy([&] { Fovix_Drawself(view); }), std::string("config changed\n") + kOriginalLines)
        << "types 2 and 3 build their mesh anew for a new size";
    Fovix_CleanUp(view);
    EXPECT_EQ(printedBy([&] { Fovix_Drawself(view); }), "");
    EXPECT_TRUE(looksLike(gl.readPixels(), Image(80, 60)));
    EXPECT_EQ(printedBy([&] { Fovix_SetFecParams(view, 1, 1, 1, 1, 1); }),
              "RefreshConfig\n    TextureUseful : 0\n    isFecValid : 1\n");
}

TEST(Lifecycle, PrepareForgetsThePicturesAndKeepsTheirSize) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 80, 60);
    Fovix_SetBackground(stage.view, 0x123456);
    const Image picture = quadrants(40, 30);
    stage.show(picture);
    stage.draw();
    EXPECT_EQ(
        printedBy([&] { Fovix_Prepare(stage.view); }),
        "Fovix_Prepare()\nbackingWidth = 0, backingHeight = 0\nset backingWidth = 80, backingHeight = 60\n")
        << "the mesh is still there";
    for (int frame = 0; frame < 2; ++frame) {
        EXPECT_TRUE(looksLike(stage.draw(), Image(80, 60, rgb(0x123456))));
        EXPECT_EQ(stage.lines, "texture not useful 2\n");
    }
    stage.show(picture);
    EXPECT_EQ(stage.lines, "");
    EXPECT_TRUE(looksLike(stage.draw(), flatPicture(sampled(picture), {0.75}, 80, 60, rgb(0x123456))));
}

TEST(Lifecycle, ResizesBySecondInit) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 120, 60);
    const Image picture = quadrants(40, 30);
    stage.show(picture);
    EXPECT_TRUE(looksLike(stage.draw(), flatPicture(sampled(picture), {0.75}, 120, 60, rgb(0))));
    printedBy([&] { Fovix_Init(stage.view, 50, 60); });
    int width = 0, height = 0;
    Fovix_getViewSize(stage.view, &width, nullptr);
    Fovix_getViewSize(stage.view, nullptr, &height);
    EXPECT_EQ(width, 50);
    EXPECT_EQ(height, 60);
    const Image part = flatPicture(sampled(picture), {0.75}, 50, 60, rgb(0));
    EXPECT_TRUE(looksLike(stage.draw(),
                          Image::of(120, 60, [&](int x, int y) { return x < 50 ? part.at(x, y) : rgb(0); })));
}

TEST(Lifecycle, PpiZoomMultipliesTheViewports) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 160, 120);
    const Image picture = quadrants(40, 30);
    stage.show(picture);
    printedBy([&] { Fovix_Init(stage.view, 80, 60); });
    const auto shownOn = [&](int width, int height) {
        const Image shown = flatPicture(sampled(picture), {0.75}, width, height, rgb(0));
        return looksLike(stage.draw(), Image::of(160, 120, [&](int x, int y) {
                             const int row = y - (120 - height);  // the origin is at the bottom left
                             return x < width && row >= 0 ? shown.at(x, row) : rgb(0);
                         }));
    };
    EXPECT_TRUE(shownOn(80, 60));
    for (const int refused : {0, -2}) Fovix_SetPPIZoom(refused);
    EXPECT_TRUE(shownOn(80, 60));
    Fovix_SetPPIZoom(2);
    EXPECT_TRUE(shownOn(160, 120));
    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 160);
    int width = 0, height = 0;
    Fovix_getViewSize(stage.view, &width, &height);
    EXPECT_EQ(width * 1000 + height, 80060);
    Fovix_SetPPIZoom(1);
    EXPECT_TRUE(shownOn(80, 60));
}

TEST(Lifecycle, StrangeSurfaceSizesDrawNothingAndHarmNothing) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 32, 32);
    const Image picture = quadrants(32, 32);
    for (const int type :
         {FOVIX_TYPE_ORIGINAL, FOVIX_TYPE_KORVEL, FOVIX_TYPE_MULTI_IMAGE, FOVIX_TYPE_MULTI_LENS}) {
        printedBy([&] { Fovix_SetType(stage.view, type); });
        for (const int side : {0, -1, -2147483647 - 1, 2147483647}) {
            printedBy([&] { Fovix_Init(stage.view, side, side); });
            stage.show(picture);
            Fovix_SetPPIZoom(3);
            stage.draw();
            Fovix_SetPPIZoom(1);
        }
    }
    printedBy([&] {
        Fovix_Init(stage.view, 32, 32);
        Fovix_SetType(stage.view, 23);
    });
    stage.draw();
    EXPECT_TRUE(looksLike(stage.draw(), flatPicture(sampled(picture), {1.0}, 32, 32, rgb(0))));
}

TEST(TypeChange, KeepsThePictureAndForgetsTheLens) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 80, 60);
    const Image picture = quadrants(40, 30);
    const Image expected = flatPicture(sampled(picture), {0.75}, 80, 60, rgb(0));
    stage.show(picture);
    printedBy([&] { Fovix_SetFecParams(stage.view, 20, 15, 15, 40, 15); });
    for (const int type :
         {int{FOVIX_TYPE_KORVEL}, 23, int{FOVIX_TYPE_MULTI_LENS}, int{FOVIX_TYPE_ORIGINAL}}) {
        printedBy([&] { Fovix_SetType(stage.view, type); });
        EXPECT_EQ(Fovix_GetType(stage.view), type);
        EXPECT_EQ(stage.view->fishEye.Fec_radius, -1);
        EXPECT_EQ(stage.view->fishEye.TextureWidth, 40);
        const Image shown = stage.draw();
        EXPECT_NE(stage.lines.find("config changed\n"), std::string::npos);
        if (type == FOVIX_TYPE_KORVEL) {
            EXPECT_TRUE(showsAt(shown, {{20, 45, rgb(0x2030F0)}, {60, 45, rgb(0xE0D020)}}));
        } else {
            EXPECT_TRUE(looksLike(shown, expected)) << "type " << type;
        }
    }
    EXPECT_EQ(printedBy([&] { Fovix_SetType(stage.view, FOVIX_TYPE_ORIGINAL); }), "");
}

TEST(TypeChange, Type3IsRefusedOnceThreeChangesWereAccepted) {
    struct Step {
        int wanted, type, count;
    };
    const Step fromPanoramas[] = {{0, 0, 2}, {0, 0, 2}, {1, 1, 3}, {3, 1, 3}, {3, 1, 3}, {20, 20, 4},
                                  {3, 3, 5}, {0, 0, 6}, {3, 0, 6}, {2, 2, 7}, {3, 3, 8}};
    const Step early[] = {{3, 3, 2}, {1, 1, 3}, {3, 1, 3}, {-5, -5, 4}, {3, 3, 5}, {65535, 65535, 6}};
    const auto walk = [](const Step* steps, std::size_t count) {
        const View view(Fovix_Create);
        for (const Step* step = steps; step != steps + count; ++step) {
            printedBy([&] { Fovix_SetType(view, step->wanted); });
            EXPECT_EQ(Fovix_GetType(view), step->type);
            EXPECT_EQ(view->typeSwitchCount, step->count);
        }
    };
    walk(fromPanoramas, std::size(fromPanoramas));
    walk(early, std::size(early));
}

TEST(NewGlContext, WorksCompletelyAfterPrepareAndInit) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 80, 60);
    const Image first = quadrants(40, 30);
    stage.show(first);
    stage.draw();
    const HeadlessGl next(80, 60);
    printedBy([&] {
        Fovix_Prepare(stage.view);
        Fovix_Init(stage.view, 80, 60);
    });
    const YuvPicture second = YuvPicture::sample(80, 60);
    const std::vector<std::uint8_t> bytes = second.packed(3);
    printedBy([&] {
        Fovix_SetYUV420PTexture(stage.view, bytes.data(), static_cast<int>(bytes.size()), 80, 60);
        Fovix_Drawself(stage.view);
    });
    EXPECT_TRUE(looksLike(next.readPixels(), flatPicture(sampled(second), {0.75}, 80, 60, rgb(0))));
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

/// Textures of the host under the names that the library used in an earlier context.
class HostTextures {
  public:
    explicit HostTextures(const FovixContext& context) {
        for (const fovix::FrameSlot& slot : context.frames) {
            for (const unsigned name : slot.dewarperTextureName) {
                if (name != fovix::kNoTexture) names_.push_back(name);
            }
        }
        const Image mark(3, 5, rgb(0xABCDEF));
        for (const unsigned name : names_) {
            glBindTexture(GL_TEXTURE_2D, name);
            glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, 3, 5, 0, GL_RGBA, GL_UNSIGNED_BYTE, mark.bytes.data());
        }
    }

    std::size_t count() const { return names_.size(); }

    void expectUntouched() const {
        for (const unsigned name : names_) {
            glBindTexture(GL_TEXTURE_2D, name);
            GLint width = 0, filter = 0;
            glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
            glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, &filter);
            std::array<std::uint8_t, 4 * 64 * 64> bytes{};
            if (width <= 64) glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, bytes.data());
            EXPECT_EQ(width, 3) << "texture " << name;
            EXPECT_EQ(bytes[0], 0xAB) << "texture " << name;
        }
    }

  private:
    std::vector<unsigned> names_;
};

class SlotTypes : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(NewGlContext, SlotTypes,
                         testing::Values(FOVIX_TYPE_MULTI_IMAGE, FOVIX_TYPE_MULTI_LENS));

TEST_P(SlotTypes, SlotsMakeTheirTexturesAnewAndLeaveTheHostsAlone) {
    Stage stage(GetParam(), 60, 40);
    const auto handIn = [&](const std::array<Rgba, 4>& colours) {
        printedBy([&] {
            Fovix_Multi_SetScreenNumber(stage.view, 2, 2);
            for (int slot = 0; slot < 4; ++slot) {
                const Image picture(15, 10, colours[static_cast<std::size_t>(slot)]);
                Fovix_Multi_SetRGBTexture(stage.view, slot, picture.bytes.data(), picture.size(), 15, 10);
            }
        });
    };
    const auto expectShown = [&](const HeadlessGl& gl, const std::array<Rgba, 4>& colours) {
        if (GetParam() == FOVIX_TYPE_MULTI_IMAGE) {
            printedBy([&] { Fovix_Drawself(stage.view); });
            EXPECT_TRUE(looksLike(gl.readPixels(), Image::of(60, 40, [&](int x, int y) {
                                      return colours[static_cast<std::size_t>(y / 20 * 2 + x / 30)];
                                  })));
            return;
        }
        Fovix_Multi_SetLens(stage.view, 4);
        for (int lens = 3; lens >= 0; --lens) {
            printedBy([&] {
                Fovix_Multi_SwitchLens(stage.view, lens);
                Fovix_Drawself(stage.view);
            });
            EXPECT_TRUE(looksLike(gl.readPixels(), Image(60, 40, colours[static_cast<std::size_t>(lens)])));
        }
    };
    const std::array before = {rgb(0xC00000), rgb(0x00C000), rgb(0x0000C0), rgb(0xC0C000)};
    const std::array after = {rgb(0x102030), rgb(0x708090), rgb(0xFF00FF), rgb(0x00FFFF)};
    handIn(before);
    expectShown(stage.gl, before);

    const HeadlessGl next(60, 40);
    const HostTextures host(*stage.view);
    ASSERT_EQ(host.count(), 16u);
    printedBy([&] {
        Fovix_Prepare(stage.view);
        Fovix_Init(stage.view, 60, 40);
    });
    handIn(after);
    expectShown(next, after);
    host.expectUntouched();
    EXPECT_EQ(glGetError(), GLenum{GL_NO_ERROR});
}

}  // namespace
}  // namespace fovix_test
