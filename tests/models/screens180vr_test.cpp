// The screens of the 180-degree view: where they are on the surface, and where they look.
#include "view/Screens180VR.h"

#include <climits>

#include "projection.h"

namespace fovix {
namespace {

TEST(Screens180VR, LieUnderTheirPoints) {
    for (const int shape : {7, 10}) layout180VR(shape, INT_MIN, INT_MAX);  // nothing overflows
    EXPECT_EQ(layout180VR(10, 201, 101).screens[0].width, 201) << "the projection's, not the viewport's";
    const struct {
        int x, y, ofFour, ofThree;
    } points[] = {{99, 49, 0, 0},  {100, 49, 1, 0}, {99, 50, 2, 1},
                  {100, 50, 3, 2}, {-9, 900, 2, 1}, {INT_MAX, INT_MIN, 1, 0}};
    for (const auto& [x, y, ofFour, ofThree] : points) {
        EXPECT_EQ(screenAt180VR(7, 201, 101, x, y), ofFour) << x << ", " << y;
        EXPECT_EQ(screenAt180VR(10, 201, 101, x, y), ofThree) << x << ", " << y;
        EXPECT_EQ(screenAt180VR(8, 201, 101, x, y), 0);
    }
}

// Worked out by hand on a surface twice as wide as high, where a height counts double; the mesh's point
// stands at (−x, y, z) before the view turns it, and the eye one unit before the origin.
TEST(Screens180VR, MatricesMoveThePictureAsTheModeWants) {
    struct Case {
        const char* name;
        RotateZoomView view;  // zoom, xAngle, yAngle, zAngle
        Scene180VR scene;
        Point point;
        SurfacePoint expected;
    };
    const Point flat = {0.5, 0.25, 0.0};
    const Case cases[] = {
        {"mode without a mesh", {1, 0, 180, 0}, {-7, 9, 0, 0, 0}, flat, {-2.0, 1.0}},
        {"disc, x", {1, 180, 0, 0}, {0, 9, 0, 0, 0}, flat, {-0.5 / 0.75, 2.0 / 0.75}},
        {"stretch", {1, 20, 50, 90}, {1, 9, 0, 0, 0}, {0.5, 0.25, -0.26}, {-1.0 / 1.26, 0.9 / 1.26}},
        {"cylinder", {1, 0, 90, 0}, {2, 9, 0, 0, 0}, {0.6, 0.1, 0.0}, {0.0, 0.25}},
        {"curved", {1, 180, 0, 0}, {3, 0.5, 0, 0, 0}, {0.2, 0.1, 0.1}, {-0.2 / 0.9, 3.4 / 0.9}},
        {"roll", {1, 0, 0, 0}, {0, 0, 0, 0, 90}, flat, {0.25, 1.0}},
        {"roll switched off", {1, 0, 0, 0}, {0, 0, 0, 0, -90}, flat, {-0.5, 0.5}},
        {"lens offset before the view", {1, 0, 180, 0}, {0, 0, 0.1, 0, 0}, flat, {-1.0 / 0.6, 0.5 / 0.6}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        expectSeenAt(c.expected, c.point, screenMatrix180VR(c.view, c.scene, 200, 100));
    }
}

}  // namespace
}  // namespace fovix
