// What every kind of view looks like. To store the pictures of views that have changed, run
// FOVIX_UPDATE=1 build/PRESET/tests/gl/gl_test --gtest_filter='Views.*', and look at what git shows.
#include <gtest/gtest.h>

#include "HeadlessGl.h"
#include "ViewTable.h"

namespace fovix_test {
namespace {

TEST(Views, LookLikeTheirStoredPictures) {
    for (const ViewRow& row : viewRows()) {
        Stage stage(row.type, row.width * row.ppi, row.height * row.ppi,
                    row.hasControllers ? Fovix_Create : Fovix_CreateNoTouchEvent);
        Fovix_SetPPIZoom(row.ppi);
        printedBy([&] { setUp(stage.view, row, [&] { Fovix_Drawself(stage.view); }); });
        EXPECT_TRUE(isAsStored(row, stage.draw())) << row.name;
        Fovix_SetPPIZoom(1);
        EXPECT_EQ(stage.lines.find("OpenGLError"), std::string::npos) << row.name;
    }
}

}  // namespace
}  // namespace fovix_test
