// Views of the 360-degree panorama: landmarks of the mesh must appear where each mount and shape looks,
// limits hold, screens lie where a touch finds them.
#include "view/Views360VR.h"

#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "projection.h"
#include "view/Layouts360VR.h"

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
    const char* name;
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

/// The landmark's point through its screen's matrix.
void expectSeen(const Scene360VR& scene, const Landmark& landmark) {
    SCOPED_TRACE(landmark.name);
    expectSeenAt(landmark.expected, landmark.point,
                 screenMatrix360VR(scene, landmark.screen, landmark.extraPan));
}

TEST(Views360VR, LandmarksAppearWhereTheScreenLooks) {
    const double pi = std::numbers::pi;
    const double rim = factor(540.0 / 7.0) / 12.0;  // moved aside by a sixth at 90 degrees
    const double closest = 55.0 * 75.5 / 90.0;
    const Point ahead = {0.5, 0.25, 1.0}, cornerwards = {sine(75) / 2, cosine(75), sine(60) * sine(75)};
    const Landmark landmarks[] = {
        {"ceiling, pan by extra", 0, 9, 1, view(200, 60, 90), {0.75, -sine(60) / 2, 0.5}, {0, 0}, 10},
        {"ceiling, zoom 65", 0, 0, 0, view(90, 36.5, 65), {0, sine(37.375), cosine(37.375)}, {0, 0}},
        {"ceiling, zoom 5", 0, 7, 0, view(90, 68, 5), {0, sine(closest), cosine(closest)}, {0, 0}},
        {"strip beyond the seam", 0, 6, 1, view(150, 0, 90), {2.5 + 2 * pi, 0.3, 0}, {0.5, 0.3}, kStripTurn},
        {"round the overview", 0, 8, 3, view(0, 60, 90), {0, sine(60), 0.5}, {0, 0}},
        {"overview strip, right end", 0, 9, 2, view(5, 60, 20), {2 * pi, 0.5, 0}, {1, 0.605}},
        {"nothing turned", 0, 10, 0, view(12, 34, 90, 56), {0.5, 0.25, 0}, {0.25, 0.25}},
        {"wall, leant axis", 1, 7, 0, view(90, 80, 90, 0, 10), ahead, {0.125, 0.125}},
        {"wall, rim above", 1, 0, 0, view(90, 60, 90), {0, 0.5, cosine(30)}, {0, 2 * rim}},
        {"wall, rim both", 1, 0, 0, view(60, 75, 90), cornerwards, {rim, rim}},
        {"wall, rim at 64", 1, 0, 0, view(60, 90, 70), {0.5, 0, cosine(30)}, {factor(64) * 0.09375 / 2, 0}},
        {"wall, zoomed past the rim", 1, 0, 0, view(60, 75, 60), cornerwards, {0, 0}},
        {"wall, bowl", 1, 2, 0, view(90, -90, 90), {-0.45, 0.3, -0.2}, {0.1, -0.15}},
        {"wall, upside down", 2, 0, 0, view(90, 90, 90), ahead, {-0.125, -0.125}},
    };
    for (const Landmark& landmark : landmarks) expectSeen(sceneOf(landmark), landmark);
}

TEST(Views360VR, TheGlidingViewReplacesEveryScreensOwn) {
    const std::pair<Landmark, View360VR> glides[] = {
        {{"four screens", 0, 7, 2, {}, {sine(60), 0, 0.5}, {0, 0}, 77.0}, view(0, 60, 90)},
        {{"strip", 0, 5, 0, {}, {2.5, 0.3, 0}, {0.5, 0.3}, 50.0}, view(100, 60, 90)},
        {{"overview", 0, 8, 0, {}, {-sine(60), 0, 0.5}, {0, 0}}, view(0, 60, 90)}};
    for (const auto& [landmark, gliding] : glides) {
        Scene360VR scene = sceneOf(landmark);
        scene.blendView = gliding;
        expectSeen(scene, landmark);
    }
}

TEST(Layouts360VR, TouchesFindTheScreensOfOddSizes) {
    constexpr int kMost = std::numeric_limits<int>::max();
    const std::array<int, 5> touches[] = {
        {0, 7, 49, 35, 2}, {0, 7, 50, 34, 1}, {0, 8, 66, 46, 0}, {0, 8, 67, 46, 2}, {0, 8, 67, 22, 1},
        {1, 8, 66, 47, 3}, {1, 8, 65, 47, 4}, {1, 8, 32, 47, 5}, {0, 9, 49, 46, 0}, {0, 9, 50, 46, 1},
        {0, 9, 99, 47, 2}, {1, 7, 99, 70, 0}, {1, 9, 99, 70, 0}, {3, 8, 99, 70, 0}};
    for (const auto& [mount, shape, x, y, screen] : touches) {
        EXPECT_EQ(screenAt360VR(mount, shape, 101, 71, x, y), screen) << shape << ": " << x << ", " << y;
    }
    EXPECT_EQ(screenAt360VR(0, 8, kMost, kMost, 0, kMost), 5);
    EXPECT_EQ(layout360VR(8, kMost, kMost).screens[0].width, 1431655764);
}

TEST(Layouts360VR, StripsAreCentredAndWrapAround) {
    const struct {
        double pan;
        int screen, width, height, expectedPan;
        bool showsSeam;
    } rows[] = {{0, 1, 200, 100, 114, true},       {-1, 0, 100, 100, 527, false},
                {-630.9, 0, 100, 100, 526, false}, {99.9, 0, 100, 100, -1, true},
                {200, 0, 100, 100, 100, false},    {199, 0, 100, 100, 99, true},
                {1300, 1, 3, 7, 315, false},       {1e300, 0, 100, 100, 495, false},
                {-1e300, 0, 100, 100, -68, true},  {0, 0, 2147483647, 1, -2147483648, true}};
    for (const auto& [pan, screen, width, height, expectedPan, showsSeam] : rows) {
        const StripScroll scroll = scrollStrip(pan, screen, width, height);
        EXPECT_TRUE(scroll.pan == expectedPan && scroll.showsSeam == showsSeam) << pan << ": " << scroll.pan;
    }
}

}  // namespace
}  // namespace fovix
