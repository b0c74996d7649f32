// The screens of the 180-degree view: places on the surface, selection, matrices.
#include "Screens180VR.h"

#include <climits>
#include <vector>

#include "projection.h"

namespace fovix {
namespace {

/// Per screen: viewport, then the size of the projection.
std::vector<std::vector<int>> numbersOf(const Layout180VR& layout) {
    std::vector<std::vector<int>> numbers;
    for (int s = 0; s < layout.count; ++s) {
        const auto& [rect, width, height] = layout.screens[static_cast<std::size_t>(s)];
        numbers.push_back({rect.x, rect.y, rect.width, rect.height, width, height});
    }
    return numbers;
}

TEST(Screens180VR, DivideTheSurface) {
    using Numbers = std::vector<std::vector<int>>;
    const Numbers four = {{0, 50, 100, 50, 100, 50},
                          {100, 50, 100, 50, 100, 50},
                          {0, 0, 100, 50, 100, 50},
                          {100, 0, 100, 50, 100, 50}};
    const Numbers three = {{0, 33, 200, 66, 201, 66}, {0, 0, 100, 33, 100, 33}, {100, 0, 100, 33, 100, 33}};
    EXPECT_EQ(numbersOf(layout180VR(7, 201, 101)), four);
    EXPECT_EQ(numbersOf(layout180VR(10, 201, 101)), three);
    for (const int shape : {0, 3, 8, INT_MIN}) {
        EXPECT_EQ(numbersOf(layout180VR(shape, 201, 101)), (Numbers{{0, 0, 201, 101, 201, 101}}));
    }
    for (const int shape : {7, 10}) layout180VR(shape, INT_MIN, INT_MAX);  // nothing overflows
}

TEST(Screens180VR, FindTheScreenUnderAPoint) {
    const struct {
        int x, y, ofFour, ofThree;
    } cases[] = {{99, 49, 0, 0},  {100, 49, 1, 0}, {99, 50, 2, 1},
                 {100, 50, 3, 2}, {-9, 900, 2, 1}, {INT_MAX, INT_MIN, 1, 0}};
    for (const auto& c : cases) {
        EXPECT_EQ(screenAt180VR(7, c.x, c.y, 201, 101), c.ofFour) << c.x << ", " << c.y;
        EXPECT_EQ(screenAt180VR(10, c.x, c.y, 201, 101), c.ofThree) << c.x << ", " << c.y;
        EXPECT_EQ(screenAt180VR(8, c.x, c.y, 201, 101), 0);
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
    const Point flat = {0.5, 0.25, 0.0}, bent = {0.2, 0.1, 0.1};
    const Case cases[] = {
        {"disc", {1, 0, 0, 0}, {0, 9, 0, 0, 0}, flat, {-0.5, 0.5}},
        {"disc, y", {1, 0, 180, 0}, {0, 9, 0, 0, 0}, flat, {-2.0, 1.0}},
        {"disc, x", {1, 180, 0, 0}, {0, 9, 0, 0, 0}, flat, {-0.5 / 0.75, 2.0 / 0.75}},
        {"disc, z is kept, not drawn", {1, 0, 0, 90}, {0, 9, 0, 0, 0}, flat, {-0.5, 0.5}},
        {"disc of a mode without a mesh", {1, 0, 180, 0}, {-7, 9, 0, 0, 0}, flat, {-2.0, 1.0}},
        {"stretch", {1, 20, 50, 90}, {1, 9, 0, 0, 0}, {0.5, 0.25, -0.26}, {-1.0 / 1.26, 0.9 / 1.26}},
        {"cylinder, y", {1, 0, 90, 0}, {2, 9, 0, 0, 0}, {0.6, 0.1, 0.0}, {0.0, 0.25}},
        {"cylinder, x", {1, 180, 0, 0}, {2, 9, 0, 0, 0}, {0.6, 0.1, 0.2}, {-0.6 / 1.1, 0.6 / 1.1}},
        {"curved, y", {1, 0, 90, 0}, {3, 0.5, 0, 0, 0}, bent, {-0.4 / 0.3, 0.2 / 0.3}},
        {"curved, z", {1, 0, 0, 90}, {3, 0.5, 0, 0, 0}, bent, {0.1 / 0.9, 0.4 / 0.9}},
        {"curved, x", {1, 180, 0, 0}, {3, 0.5, 0, 0, 0}, bent, {-0.2 / 0.9, 3.4 / 0.9}},
        {"roll", {1, 0, 0, 0}, {0, 0, 0, 0, 90}, flat, {0.25, 1.0}},
        {"roll switched off", {1, 0, 0, 0}, {0, 0, 0, 0, -90}, flat, {-0.5, 0.5}},
        {"lens offset", {1, 0, 0, 0}, {0, 0, 0.1, -0.2, 0}, flat, {-0.4, 0.1}},
        {"lens offset before the view", {1, 0, 180, 0}, {0, 0, 0.1, 0, 0}, flat, {-1.0 / 0.6, 0.5 / 0.6}},
        {"zoom 0.25: 100 degrees", {0.25, 0, 0, 0}, {0, 0, 0, 0, 0}, flat, {-0.4195498, 0.4195498}},
        {"zoom 10: 56.84 degrees", {10, 0, 0, 0}, {0, 0, 0, 0, 0}, flat, {-0.9239191, 0.9239191}},
        {"zoom 20: 20 degrees", {20, 0, 0, 0}, {0, 0, 0, 0, 0}, flat, {-2.8356409, 2.8356409}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        expectAt(project(c.point, screenMatrix180VR(c.view, c.scene, 200, 100)), c.expected);
    }
}

}  // namespace
}  // namespace fovix
