// What a frame draws and prints besides one picture: background, order of refusals, grid cells, lenses.
#include <gtest/gtest.h>

#include "FovixContext.h"
#include "HeadlessGl.h"
#include "PlainPicture.h"

namespace fovix_test {
namespace {

TEST(Frame, ShowsTheBackgroundInSilenceBeforeAnyPicture) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    for (const unsigned colour : {0x00FF8000u, 0xFFFF8000u, 0x00010203u, 0xFFFFFFFFu, 0u}) {
        Fovix_SetBackground(stage.view, colour);
        EXPECT_TRUE(looksLike(stage.draw(), Image(40, 30, rgb(colour)), 1));
        EXPECT_EQ(stage.lines, "");
    }
}

TEST(Frame, WithoutPrepareClearsAndSaysSo) {
    const HeadlessGl gl(16, 16);
    const View view;
    const Image picture = quadrants(16, 16);
    printedBy([&] {
        Fovix_Init(view, 16, 16);
        Fovix_SetRGBTexture(view, picture.bytes.data(), picture.size(), 16, 16);
    });
    Fovix_SetBackground(view, 0x405060);
    EXPECT_EQ(printedBy([&] { Fovix_Drawself(view); }),
              "Fovix_Drawself() Error : Fovix_Prepare has not run\n");
    EXPECT_TRUE(looksLike(gl.readPixels(), Image(16, 16, rgb(0x405060))));
}

TEST(Frame, HonoursTheHostsScissorAndMask) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 32, 32);
    stage.show(Image(8, 8, rgb(0xFFFFFF)));
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glEnable(GL_SCISSOR_TEST);
    glScissor(8, 8, 16, 16);
    glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_TRUE);
    EXPECT_TRUE(looksLike(stage.draw(), Image::of(32, 32, [](int x, int y) {
                              const bool inside = x >= 8 && x < 24 && y >= 8 && y < 24;
                              return rgb(inside ? 0xFF00FF : 0);
                          })));
}

TEST(Frame, ReportsTheHostsPendingGlError) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 16, 16);
    stage.show(quadrants(16, 16));
    glEnable(GL_TEXTURE0);  // no such capability
    stage.draw();
    EXPECT_NE(stage.lines.find("OpenGLError: 1280 , Multi/FovixFrame:"), std::string::npos) << stage.lines;
    EXPECT_EQ(printedBy([] { EXPECT_EQ(checkOpenGLError("host.c", 12), 1); }), "");
    glEnable(GL_TEXTURE0);
    EXPECT_EQ(printedBy([] { EXPECT_EQ(checkOpenGLError("host.c", 12), 0); }),
              "OpenGLError: 1280 , host.c:12\n");
    EXPECT_EQ(Fovix_NeedContinue(), 0);
}

void handIn(const Stage& stage, int index, const Image& picture) {
    printedBy([&] {
        Fovix_Multi_SetRGBTexture(stage.view, index, picture.bytes.data(), picture.size(), picture.width,
                                  picture.height);
    });
}

/// A surface in cells of one colour each; what is left over on the right and on top is background.
Image cells(int width, int height, int rows, int columns, const std::vector<unsigned>& colours,
            unsigned background) {
    const int cellWidth = width / columns, cellHeight = height / rows;
    return Image::of(width, height, [&](int x, int y) {
        const int column = x / cellWidth, fromBottom = (height - 1 - y) / cellHeight;
        if (column >= columns || fromBottom >= rows) return rgb(background);
        return rgb(colours.at(static_cast<std::size_t>((rows - 1 - fromBottom) * columns + column)));
    });
}

TEST(Grid, CellsStandInTheirPlaces) {
    struct Case {
        int rows, columns, width, height, ppi;
    };
    for (const auto& [rows, columns, width, height, ppi] :
         {Case{2, 3, 120, 80, 1}, Case{3, 2, 61, 80, 1}, Case{1, 1, 30, 30, 1}, Case{2, 3, 120, 80, 2},
          Case{5, 7, 77, 62, 1}}) {
        SCOPED_TRACE(testing::Message() << rows << " x " << columns << " on " << width << "x" << height);
        Stage stage(FOVIX_TYPE_MULTI_IMAGE, width, height);
        Fovix_SetBackground(stage.view, 0x101820);
        Fovix_SetPPIZoom(ppi);
        printedBy([&] {
            Fovix_Init(stage.view, width / ppi, height / ppi);
            Fovix_Multi_SetScreenNumber(stage.view, rows, columns);
        });
        std::vector<unsigned> colours;
        for (unsigned i = 0; i < static_cast<unsigned>(rows * columns); ++i) {
            const bool empty = i == 4;  // no picture for this cell
            colours.push_back(empty ? 0x101820 : 0x30FF10 + i * 0x060007 - (i << 10));
            // A picture in the surface's proportions fills its cell, whatever its size.
            if (!empty) handIn(stage, static_cast<int>(i), Image(width, height, rgb(colours.back())));
        }
        EXPECT_TRUE(looksLike(stage.draw(), cells(width, height, rows, columns, colours, 0x101820)));
        Fovix_SetPPIZoom(1);
    }
}

TEST(Grid, ShowsNewPicturesCellByCellAndTheGridsNewSize) {
    Stage stage(FOVIX_TYPE_MULTI_IMAGE, 80, 80);
    Fovix_Multi_SetScreenNumber(stage.view, 2, 2);
    std::vector<unsigned> colours = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFF00};
    for (int i = 0; i < 4; ++i) handIn(stage, i, Image(10, 10, rgb(colours[static_cast<std::size_t>(i)])));
    EXPECT_TRUE(looksLike(stage.draw(), cells(80, 80, 2, 2, colours, 0)));
    colours[2] = 0x804020;
    handIn(stage, 2, Image(30, 30, rgb(colours[2])));
    EXPECT_EQ(stage.view->fishEye.TextureWidth, 10) << "only the first slot tells the picture size";
    EXPECT_TRUE(looksLike(stage.draw(), cells(80, 80, 2, 2, colours, 0)));
    EXPECT_EQ(stage.lines, "");
    Fovix_Multi_SetScreenNumber(stage.view, 1, 2);
    const Image wide = stage.draw();
    EXPECT_TRUE(showsAt(wide, {{20, 40, rgb(0xFF0000)}, {60, 40, rgb(0x00FF00)}}));
    for (const int lowest : {0, -3}) {
        Fovix_Multi_SetScreenNumber(stage.view, lowest, 5);
        stage.draw();
        EXPECT_EQ(stage.lines, "parameter error in drawSelf()\n");
    }
}

TEST(Grid, MixedFormatsFollowTheLastPictureHandedIn) {
    // One flag for all cells says whether the shader reads RGBA or planes: the last setter's.
    Stage stage(FOVIX_TYPE_MULTI_IMAGE, 80, 40);
    Fovix_Multi_SetScreenNumber(stage.view, 1, 2);
    handIn(stage, 0, Image(40, 40, rgb(0xFF0000)));
    const std::vector<std::uint8_t> grey(16 * 16 * 3 / 2, 128);
    printedBy([&] { Fovix_Multi_SetYUV420PTexture(stage.view, 1, grey.data(), 384, 16, 16); });
    // 1.1643 * (128 / 255 - 0.0625) and chroma of 128 in place of 127.5
    EXPECT_TRUE(showsAt(stage.draw(), {{60, 20, {131, 130, 131, 255}}}));
    handIn(stage, 0, Image(40, 40, rgb(0x00FF00)));
    EXPECT_TRUE(showsAt(stage.draw(), {{20, 20, rgb(0x00FF00)}}));
}

TEST(Lenses, SwitchingShowsTheLensAtOnceAndKeepsTheView) {
    Stage stage(FOVIX_TYPE_MULTI_LENS, 60, 40);
    Fovix_Multi_SetLens(stage.view, 4);
    const auto drawLens = [&](int lens) {
        Fovix_Multi_SwitchLens(stage.view, lens);
        return stage.draw();
    };
    Image marked(30, 20, rgb(0xC01010));
    marked.set(5, 5, rgb(0xFFFFFF));
    handIn(stage, 0, marked);
    handIn(stage, 1, Image(30, 20, rgb(0x10C010)));
    handIn(stage, 3, Image(64, 64, rgb(0x1010C0)));
    const FlatSight sight = {20.0 / 30, 95.0, 30.0, 0.0};
    Fovix_SetRotateZoom(stage.view, 30.0, 0.0, 0.0, 0.625);
    const Image first = flatPicture(sampled(marked), sight, 60, 40, rgb(0));
    EXPECT_TRUE(looksLike(drawLens(0), first));
    EXPECT_TRUE(
        looksLike(drawLens(3), flatPicture(sampled(Image(2, 2, rgb(0x1010C0))), sight, 60, 40, rgb(0))));
    EXPECT_EQ(stage.lines, "") << "one mesh for all lenses";
    EXPECT_TRUE(looksLike(drawLens(0), first)) << "uploaded again without a new picture";
    const std::string nothing = "refreshTexture no data\ntexture not useful 2\n";
    for (int frame = 0; frame < 2; ++frame) {
        EXPECT_TRUE(looksLike(drawLens(2), Image(60, 40)));
        EXPECT_EQ(stage.lines, nothing);
        EXPECT_EQ(stage.view->uploadedLensIndex, 0);
    }
    handIn(stage, 2, Image(30, 20, rgb(0x808080)));
    EXPECT_TRUE(showsAt(drawLens(2), {{30, 20, rgb(0x808080)}}));
    EXPECT_TRUE(showsAt(drawLens(1), {{30, 20, rgb(0x10C010)}}));
}

}  // namespace
}  // namespace fovix_test
