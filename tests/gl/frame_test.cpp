// What a frame draws and prints besides its picture: background, the host's scissor and mask, GL errors.
#include <gtest/gtest.h>

#include "HeadlessGl.h"

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
    stage.show(Image::chequered(16, 16));
    glEnable(GL_TEXTURE0);  // no such capability
    stage.draw();
    EXPECT_NE(stage.lines.find("OpenGLError: 1280 , Multi/FovixFrame:"), std::string::npos) << stage.lines;
    EXPECT_EQ(printedBy([] { EXPECT_EQ(checkOpenGLError("host.c", 12), 1); }), "");
    glEnable(GL_TEXTURE0);
    EXPECT_EQ(printedBy([] { EXPECT_EQ(checkOpenGLError("host.c", 12), 0); }),
              "OpenGLError: 1280 , host.c:12\n");
    EXPECT_EQ(Fovix_NeedContinue(), 0);
}

}  // namespace
}  // namespace fovix_test
