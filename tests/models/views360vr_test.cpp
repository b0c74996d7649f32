// Views of the 360-degree panorama: landmarks of the mesh must appear where each mount and shape looks,
// limits hold, screens lie where a touch finds them.
#include "Views360VR.h"

#include <cmath>
#include <numbers>
#include <string>
#include <utility>

#include "Fovix.h"
#include "Layouts360VR.h"
#include "projection.h"

namespace fovix {

namespace {

double sine(double degrees) {
    return std::sin(degrees * std::numbers::pi / 180.0);
}

double cosine(double degrees) {
    return std::cos(degrees * std::numbers::pi / 180.0);
}

/// Horizontal factor of the projection on a surface twice as wide as high; the vertical one is twice that.
double factor(double fov) {
    return 0.5 * cosine(fov / 2.0) / sine(fov / 2.0);
}

View360VR view(double pan, double tilt, double zoom, double roll = 0.0, double ptzFifth = 0.0) {
    return {pan, roll, tilt, ptzFifth, zoom};
}

struct Landmark {
    std::string name;
    int mount, shape, screen;
    View360VR view;
    Point point;
    SurfacePoint expected;
    double extraPan = 0.0;
};

Scene360VR sceneOf(const Landmark& landmark) {
    Scene360VR scene = {landmark.mount, landmark.shape, 200, 100, {}, {}};
    scene.views.fill(view(33.0, 44.0, 55.0));
    scene.views[static_cast<std::size_t>(landmark.screen)] = landmark.view;
    return scene;
}

void expectView(const View360VR& found, const View360VR& expected) {
    EXPECT_EQ(found.mPan, expected.mPan);
    EXPECT_EQ(found.mTilt, expected.mTilt);
    EXPECT_EQ(found.mZoom, expected.mZoom);
    EXPECT_EQ(found.mRoll, expected.mRoll);
    EXPECT_EQ(found.mPtzFifth, expected.mPtzFifth);
}

/// The landmark's point through its screen's matrix.
void expectSeen(const Scene360VR& scene, const Landmark& landmark) {
    SCOPED_TRACE(landmark.name);
    expectAt(project(landmark.point, screenMatrix(scene, landmark.screen, landmark.extraPan)),
             landmark.expected);
}

}  // namespace

TEST(Views360VR, LandmarksAppearWhereTheScreenLooks) {
    const double pi = std::numbers::pi;
    const double rim = factor(540.0 / 7.0) / 12.0;  // moved aside by a sixth at 90 degrees
    const double closest = 55.0 * 75.5 / 90.0, low = 0.34 * 90.61 / 90.0;
    const Point ahead = {0.5, 0.25, 1.0};
    const Landmark landmarks[] = {
        {"ceiling, straight down", 0, 0, 0, view(90, 0, 90), ahead, {0.125, 0.125}},
        {"ceiling, rolled", 0, 0, 0, view(90, 0, 90, 90), {0.5, 0, 1}, {0, -0.25}},
        {"ceiling, pan 0", 0, 0, 0, view(0, 60, 90), {-sine(60), 0, 0.5}, {0, 0}},
        {"ceiling, pan 210", 0, 7, 1, view(210, 60, 90), {0.75, -sine(60) / 2, 0.5}, {0, 0}},
        {"ceiling, pan by extra", 0, 9, 1, view(200, 60, 90), {0.75, -sine(60) / 2, 0.5}, {0, 0}, 10},
        {"ceiling, zoom 65", 0, 0, 0, view(90, 36.5, 65), {0, sine(37.375), cosine(37.375)}, {0, 0}},
        {"ceiling, zoom 65: eye", 0, 0, 0, view(90, -8.5, 65), {0.5, 0, 1.06}, {0.25 / 1.5, 0}},
        {"ceiling, zoom 40", 0, 0, 0, view(90, 28, 40), {0, sine(29.75), cosine(29.75)}, {0, 0}},
        {"ceiling, zoom 40: eye", 0, 0, 0, view(90, -17, 40), {0.5, 0, 1.12}, {0.25, 0}},
        {"ceiling, zoom 20: field", 0, 0, 0, view(90, 1 / 7.0, 20), {0.5, 0, 1.12}, {0.5 * factor(70), 0}},
        {"ceiling, zoom 5", 0, 7, 0, view(90, 68, 5), {0, sine(closest), cosine(closest)}, {0, 0}},
        {"dome", 0, 1, 0, view(90, 90, 90), {-0.45, -0.3, 0.6}, {0.075, 0.2}},
        {"bowl", 0, 2, 0, view(90, -90, 90), {-0.45, 0.3, -0.2}, {0.075, 0.2}},
        {"cylinder", 0, 3, 0, view(30, 0, 90), {0.654, 0.2, -1.308 * sine(60)}, {0, 0.2 / 0.892}},
        {"cylinder, tilted", 0, 3, 0, view(0, 30, 90), {0, 0, -1}, {0, -0.5 / (2.2 - sine(60))}},
        {"cylinder inside", 0, 4, 0, view(30, 0, 90), {0.545, 0.2, 1.09 * sine(60)}, {0, 0.2 / 0.89}},
        {"cylinder inside, tilted", 0, 4, 0, view(0, 10, 90), {0.2, sine(10), cosine(10)}, {0.125, 0}},
        {"strip", 0, 5, 0, view(150, 0, 90), {2.5, 0.3, 0}, {0.5, 0.3}},
        {"strip beyond the seam", 0, 6, 1, view(150, 0, 90), {2.5 + 2 * pi, 0.3, 0}, {0.5, 0.3}, kStripTurn},
        {"overview", 0, 8, 0, view(0, 60, 20), {0.5, -0.9776 * sine(low), 0.9776 * cosine(low)}, {0.125, 0}},
        {"round the overview", 0, 8, 3, view(0, 60, 90), {0, sine(60), 0.5}, {0, 0}},
        {"overview strip, left end", 0, 9, 2, view(5, 60, 20), {0, 0.5, 0}, {-1, 0.605}},
        {"overview strip, right end", 0, 9, 2, view(5, 60, 20), {2 * pi, 0.5, 0}, {1, 0.605}},
        {"nothing turned", 0, 10, 0, view(12, 34, 90, 56), {0.5, 0.25, 0}, {0.25, 0.25}},
        {"wall", 1, 3, 0, view(90, 90, 90), ahead, {0.125, 0.125}},
        {"wall, leant axis", 1, 7, 0, view(90, 80, 90, 0, 10), ahead, {0.125, 0.125}},
        {"wall, aside", 1, 9, 0, view(30, 90, 90), {sine(60), 0, 0.5}, {0, 0}},
        {"wall, rim left", 1, 0, 0, view(60, 90, 90), {0.5, 0, cosine(30)}, {rim, 0}},
        {"wall, rim right", 1, 0, 0, view(120, 90, 90), {-0.5, 0, cosine(30)}, {-rim, 0}},
        {"wall, rim above", 1, 0, 0, view(90, 60, 90), {0, 0.5, cosine(30)}, {0, 2 * rim}},
        {"wall, rim both",
         1,
         0,
         0,
         view(60, 75, 90),
         {sine(75) / 2, cosine(75), sine(60) * sine(75)},
         {rim, rim}},
        {"wall, rim at 64", 1, 0, 0, view(60, 90, 70), {0.5, 0, cosine(30)}, {factor(64) * 0.09375 / 2, 0}},
        {"wall, zoomed past the rim", 1, 0, 0, view(60, 90, 60), {0.5, 0, cosine(30)}, {0, 0}},
        {"wall, bowl", 1, 2, 0, view(90, -90, 90), {-0.45, 0.3, -0.2}, {0.1, -0.15}},
        {"wall, strip as built", 1, 5, 0, view(12, 34, 90), {0.5, 0.25, 0}, {0.25, 0.25}},
        {"wall, two strips", 1, 6, 0, view(150, 0, 90), {2.5, 0.3, 0}, {0.5, 0.3}},
        {"wall, round the overview", 1, 8, 2, view(0, 60, 90), {0, sine(60), 0.5}, {0, 0}},
        {"wall, upside down", 2, 0, 0, view(90, 90, 90), ahead, {-0.125, -0.125}},
        {"floor", 3, 0, 0, view(90, 0, 90), ahead, {0.125, 0.125}},
        {"floor, tilted", 3, 0, 0, view(90, 60, 90), {0, -sine(60), 0.5}, {0, 0}},
    };
    for (const Landmark& landmark : landmarks) expectSeen(sceneOf(landmark), landmark);
}

TEST(Views360VR, TheGlidingViewReplacesEveryScreensOwn) {
    const Landmark four = {"four screens", 0, 7, 2, view(10, 0, 40), {sine(60), 0, 0.5}, {0, 0}, 77.0};
    const Landmark strip = {"strip", 0, 5, 0, view(10, 0, 40), {2.5, 0.3, 0}, {0.5, 0.3}, 50.0};
    const Landmark overview = {"overview", 0, 8, 0, view(10, 0, 40), {-sine(60), 0, 0.5}, {0, 0}};
    for (const auto& [landmark, gliding] :
         {std::pair{four, view(0, 60, 90)}, {strip, view(100, 60, 90)}, {overview, view(0, 60, 90)}}) {
        Scene360VR scene = sceneOf(landmark);
        scene.blendView = gliding;
        expectSeen(scene, landmark);
    }
}

TEST(Views360VR, TallSurfacesShrinkTheHeight) {
    const Landmark landmark = {"100 x 200", 0, 0, 0, view(90, 0, 90), {0.5, 0.25, 1.0}, {0.125, 0.03125}};
    Scene360VR scene = sceneOf(landmark);
    std::swap(scene.width, scene.height);
    expectSeen(scene, landmark);
}

TEST(Views360VR, LimitsHoldPerMountAndShape) {
    const double far = 1000.0;  // where there is no limit
    const struct {
        int mount, shape;
        View360VR lowest, highest;
    } rows[] = {
        {0, 0, view(-far, 0, 5, -far), view(far, 90, 90, far)},
        {0, 1, view(-far, 60, 90, 0), view(far, 100, 90, 0)},
        {0, 2, view(-far, -100, 90, 0), view(far, -60, 90, 0)},
        {0, 3, view(-far, -45, 90, -far), view(far, 45, 90, far)},
        {0, 4, view(-far, -10, 90, -far), view(far, 10, 90, far)},
        {0, 9, view(-far, 0, 5, -far), view(far, 90, 40, far)},
        {0, 10, view(-far, 0, 5, -far), view(far, 90, 90, far)},
        {1, 0, view(15, 15, 5, -far), view(165, 165, 90, far)},
        {1, 2, view(-far, -100, 90, 0), view(far, -60, 90, 0)},
        {1, 5, view(-far, 0, 90, -far), view(far, 180, 90, far)},
        {1, 6, view(-far, 0, 5, -far), view(far, 90, 90, far)},
        {1, 8, view(-far, 0, 5, -far), view(far, 90, 40, far)},
        {2, 0, view(0, 0, 5, -far), view(180, 180, 90, far)},
        {3, 4, view(0, 0, 5, -far), view(180, 180, 90, far)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.mount << ", " << row.shape);
        expectView(limitedView(view(-far, -far, -far, -far), row.mount, row.shape), row.lowest);
        expectView(limitedView(view(far, far, far, far), row.mount, row.shape), row.highest);
    }
}

TEST(Views360VR, DefaultViews) {
    const struct {
        int mount, shape;
        View360VR expected;
    } rows[] = {
        {0, 0, view(90, 0, 90)},  {0, 1, view(90, 75, 90)},  {0, 2, view(90, -75, 90)},
        {0, 5, view(0, 33, 90)},  {0, 6, view(90, 0, 90)},   {0, 8, view(90, 0, 40)},
        {1, 0, view(90, 90, 90)}, {1, 2, view(90, -75, 90)}, {1, 5, view(90, 90, 90)},
        {1, 8, view(90, 90, 40)}, {2, 0, view(90, 90, 90)},  {3, 0, view(90, 0, 90)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.mount << ", " << row.shape);
        expectView(defaultView(view(11, 33, 44, 55, 66), row.mount, row.shape), row.expected);
    }
}

TEST(Layouts360VR, EveryPointIsOnTheScreenThatATouchFinds) {
    const int width = 60, height = 36;  // divides by two and by three
    const struct { int mount, shape; } layouts[] = {{0, 7}, {0, 8}, {1, 8}, {0, 9}};
    for (const auto& [mount, shape] : layouts) {
        Layout360VR layout = layoutOf(shape, width, height);
        if (shape == FOVIX_SHAPE_TWO_AND_STRIP) layout.screens[2] = overviewStripRect(width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const int screen = screenAt(mount, shape, width, height, x, y);
                const SurfaceRect& rect = layout.screens.at(static_cast<std::size_t>(screen));
                const int fromBottom = height - 1 - y;
                EXPECT_TRUE(x >= rect.x && x < rect.x + rect.width && fromBottom >= rect.y &&
                            fromBottom < rect.y + rect.height)
                    << "shape " << shape << ", screen " << screen << " at " << x << ", " << y;
            }
        }
    }
    EXPECT_EQ(screenAt(1, 7, width, height, 50, 30), 0);
    EXPECT_EQ(screenAt(1, 9, width, height, 50, 30), 0);
    EXPECT_EQ(screenAt(3, 8, width, height, 50, 30), 0);
}

TEST(Layouts360VR, OddSizesDivideDownwards) {
    const auto expectRect = [](const SurfaceRect& rect, int x, int y, int width, int height) {
        EXPECT_TRUE(rect.x == x && rect.y == y && rect.width == width && rect.height == height)
            << rect.x << ", " << rect.y << ", " << rect.width << " x " << rect.height;
    };
    expectRect(layoutOf(6, 101, 71).screens[0], 0, 35, 101, 35);
    expectRect(layoutOf(6, 101, 71).screens[1], 0, 0, 101, 35);
    expectRect(layoutOf(7, 101, 71).screens[1], 50, 35, 50, 35);
    expectRect(layoutOf(8, 101, 71).screens[0], 0, 23, 67, 47);
    expectRect(layoutOf(8, 101, 71).screens[1], 66, 46, 33, 23);
    expectRect(layoutOf(8, 101, 71).screens[4], 33, 0, 33, 23);
    expectRect(layoutOf(9, 101, 71).screens[1], 50, 23, 50, 47);
    expectRect(overviewStripRect(101, 71), 0, 0, 101, 23);
    expectRect(layoutOf(8, 2147483647, 2147483647).screens[0], 0, 715827882, 1431655764, 1431655764);
    EXPECT_EQ(layoutOf(0, 101, 71).count, 0);
    EXPECT_EQ(screenAt(0, 8, 101, 71, 66, 46), 0);
    EXPECT_EQ(screenAt(0, 8, 101, 71, 67, 46), 2);
    EXPECT_EQ(screenAt(0, 8, 101, 71, 66, 47), 3);
    EXPECT_EQ(screenAt(0, 8, 101, 71, 65, 47), 4);
    EXPECT_EQ(screenAt(0, 8, 2147483647, 2147483647, 0, 2147483647), 5);
}

TEST(Layouts360VR, StripsAreCentredAndWrapAround) {
    struct Step {
        double pan;
        int screen, width, height, expectedPan;
        bool showsSeam;
    };
    const Step rows[] = {
        {0, 0, 200, 100, -200, true},
        {0, 1, 200, 100, 114, true},
        {-1, 0, 100, 100, 527, false},
        {-630.9, 0, 100, 100, 526, false},
        {99.9, 0, 100, 100, -1, true},
        {200, 0, 100, 100, 100, false},
        {199, 0, 100, 100, 99, true},
        {1300, 1, 3, 7, 315, false},
        {1e300, 0, 100, 100, 495, false},
        {-1e300, 0, 100, 100, -68, true},
        {0, 0, 2147483647, 1, -2147483648, true},
    };
    for (const auto& row : rows) {
        const StripScroll scroll = scrollStrip(row.pan, row.screen, row.width, row.height);
        EXPECT_EQ(scroll.pan, row.expectedPan) << row.pan;
        EXPECT_EQ(scroll.showsSeam, row.showsSeam) << row.pan;
    }
}

}  // namespace fovix
