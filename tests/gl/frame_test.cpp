// What a frame draws and prints besides one picture: background, order of refusals, grid cells, lenses.
#include <gtest/gtest.h>

#include "HeadlessGl.h"
#include "PlainPicture.h"
#include "handle/FovixContext.h"

namespace fovix_test {
namespace {

TEST(Frame, ShowsTheBackgroundInSilenceBeforeAnyPicture) {
    Stage stage(FOVIX_TYPE_ORIGINAL, 40, 30);
    for (const unsigned colour : {0x00FF8000u, 0xFF408000u, 0x00010203u, 0xFFFFFFFFu, 0u}) {
        Fovix_SetBackground(stage.view, colour);
        EXPECT_TRUE(looksLike(stage.draw(), Image(40, 30, rgb(colour)), 1));
        EXPECT_EQ(stage.lines, "");
    }
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
                              return rgb(x >= 8 && x < 24 && y >= 8 && y < 24 ? 0xFF00FF : 0);
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

using Colours = std::vector<unsigned>;

/// A surface in cells of one colour each; what is left over on the right and on top is black.
Image cells(int width, int height, int rows, int columns, const Colours& colours) {
    return Image::of(width, height, [&](int x, int y) {
        const int column = x / (width / columns), fromBottom = (height - 1 - y) / (height / rows);
        if (column >= columns || fromBottom >= rows) return rgb(0);
        return rgb(colours.at(static_cast<std::size_t>((rows - 1 - fromBottom) * columns + column)));
    });
}

TEST(Grid, CellsStandInTheirPlacesAndChangeOneByOne) {
    const struct {
        int rows, columns, width, height, ppi;
    } cases[] = {{2, 3, 120, 80, 1}, {3, 2, 61, 80, 1}, {2, 3, 120, 80, 2}, {5, 7, 77, 62, 1}};
    for (const auto& [rows, columns, width, height, ppi] : cases) {
        SCOPED_TRACE(testing::Message() << rows << " x " << columns << " on " << width << "x" << height);
        Stage stage(FOVIX_TYPE_MULTI_IMAGE, width, height);
        Fovix_SetPPIZoom(ppi);
        printedBy(Fovix_Init, stage.view, width / ppi, height / ppi);
        Fovix_Multi_SetScreenNumber(stage.view, rows, columns);
        Colours colours(static_cast<std::size_t>(rows * columns));
        for (int i = 0; i < rows * columns; ++i) {
            if (i == 4) continue;  // no picture for this cell
            colours[static_cast<std::size_t>(i)] = 0x30FF10u + static_cast<unsigned>(i) * 0x05FC07u;
            // A picture in the surface's proportions fills its cell, whatever its size.
            stage.show(i, Image(width, height, rgb(colours[static_cast<std::size_t>(i)])));
        }
        EXPECT_TRUE(looksLike(stage.draw(), cells(width, height, rows, columns, colours)));
        colours[2] = 0x804020;
        stage.show(2, Image(30, 20, rgb(colours[2])));
        EXPECT_EQ(stage.view->fishEye.TextureWidth, width) << "only the first slot tells the picture size";
        EXPECT_TRUE(looksLike(stage.draw(), cells(width, height, rows, columns, colours)));
        EXPECT_EQ(stage.lines, "");
        Fovix_Multi_SetScreenNumber(stage.view, 1, 1);
        EXPECT_TRUE(looksLike(stage.draw(), Image(width, height, rgb(colours[0]))));
        Fovix_SetPPIZoom(1);
    }
}

TEST(Grid, MixedFormatsFollowTheLastPictureHandedIn) {
    // One flag for all cells says whether the shader reads RGBA or planes: the last setter's.
    Stage stage(FOVIX_TYPE_MULTI_IMAGE, 80, 40);
    Fovix_Multi_SetScreenNumber(stage.view, 1, 2);
    stage.show(0, Image(40, 40, rgb(0xFF0000)));
    const Bytes grey(16 * 16 * 3 / 2, 128);
    printedBy(Fovix_Multi_SetYUV420PTexture, stage.view, 1, grey.data(), 384, 16, 16);
    // 1.1643 * (128 / 255 - 0.0625) and chroma of 128 in place of 127.5; then all of 16.
    EXPECT_TRUE(showsAt(stage.draw(), {{60, 20, {131, 130, 131, 255}}}));
    const Bytes black(16 * 16 * 3 / 2, 16);
    printedBy(Fovix_Multi_SetYUV420PTexture, stage.view, 0, black.data(), 384, 16, 16);
    EXPECT_TRUE(showsAt(stage.draw(), {{20, 20, {0, 134, 0, 255}}, {60, 20, {131, 130, 131, 255}}}));
    stage.show(0, Image(40, 40, rgb(0x00FF00)));
    EXPECT_TRUE(showsAt(stage.draw(), {{20, 20, rgb(0x00FF00)}}));
}

TEST(Lenses, SwitchingShowsTheLensAtOnceAndKeepsTheView) {
    Stage stage(FOVIX_TYPE_MULTI_LENS, 60, 40);
    Fovix_Multi_SetLens(stage.view, 4);
    Fovix_SetRotateZoom(stage.view, 30.0, 0.0, 0.0, 0.625);
    const auto drawLens = [&](int lens) {
        Fovix_Multi_SwitchLens(stage.view, lens);
        return stage.draw();
    };
    const Image marked = quadrants(30, 20);
    stage.show(0, marked);
    stage.show(3, Image(64, 64, rgb(0x1010C0)));
    const FlatSight sight = {20.0 / 30, 95.0, 30.0, 0.0};
    const Image first = flatPicture(sampled(marked), sight, 60, 40);
    const Image third = flatPicture(sampled(Image(2, 2, rgb(0x1010C0))), sight, 60, 40);
    EXPECT_TRUE(looksLike(drawLens(0), first));
    EXPECT_TRUE(looksLike(drawLens(3), third));
    EXPECT_EQ(stage.lines, "") << "one mesh for all lenses";
    EXPECT_TRUE(looksLike(drawLens(0), first)) << "uploaded again without a new picture";
    for (int frame = 0; frame < 2; ++frame) {
        EXPECT_TRUE(looksLike(drawLens(2), Image(60, 40)));
        EXPECT_EQ(stage.lines, "refreshTexture no data\ntexture not useful 2\n");
        EXPECT_EQ(stage.view->uploadedLensIndex, 0);
    }
    stage.show(2, Image(30, 20, rgb(0x808080)));
    EXPECT_TRUE(showsAt(drawLens(2), {{30, 20, rgb(0x808080)}}));
}

}  // namespace
}  // namespace fovix_test
