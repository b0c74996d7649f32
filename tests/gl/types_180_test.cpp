// The 180-degree view on the surface: landmarks of the lens picture appear where each of the four forms puts
// them.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "HeadlessGl.h"
#include "Landmarks.h"

namespace fovix_test {
namespace {

constexpr double kPi = std::numbers::pi;

enum Form { Disc, Stretch, Cylinder, Curved };

struct Sight {
    int screen;
    Viewport viewport;  ///< with ppiZoom
    int atLeast;        ///< landmarks that lie there whole
    int width, height;  ///< of the projection
    double x = 0, y = 0, z = 0, zoom = 1;
};

struct Case {
    const char* name;
    int shape;
    Form form;
    int width, height, ppi;
    Lens lens;
    int imageWidth, imageHeight;  ///< the camera's image that the host reports; 0: nothing reported
    std::vector<Sight> sights;
};

/// The lens as the mesh knows it: in the picture's width, heights corrected to the camera's proportions.
struct Circle {
    double width, height, xCenter, yCenter, radius;
    double m = 2 * radius / width;
};

struct OnMesh {
    Vec p;
    double extent = 0;
};

/// Share of the way from the topmost to the lowest chord of the picture; down counts in radii.
double share(double down, double above, double below) {
    const double top = std::asin(std::min(above, 1.0)), bottom = std::asin(std::min(below, 1.0));
    return (std::asin(down) + top) / (top + bottom);
}

/// A wide form: chords run level, q along them from −1 (the picture's right) to 1.
OnMesh onWideForm(Form form, const Circle& c, const PicturePoint& disc, double yOffset) {
    const double chord = std::sqrt(1 - disc.y * disc.y), q = -disc.x / chord;
    const double offset = c.xCenter / c.width - 0.5;
    const double row = 50 * share(disc.y, c.yCenter / c.radius, (c.height - c.yCenter) / c.radius);
    const double rho = 1.06 * c.m, bent = 2.12 * std::asin(1 / 1.06) * c.height / c.width;
    if (form == Disc) {
        const double radius = 2 * c.radius / std::max(c.width, c.height);
        return {{-disc.x * radius - offset, -disc.y * radius, 0}};
    }
    if (form == Stretch) {
        const double target = (4 * c.m / bent) * c.height / c.width * (0.95 / c.m);
        const double y = (49 - row) * target / 50 - 0.485 * (1 - yOffset) * target;
        return {{(rho * std::asin(q / 1.06) - offset) / c.m, y, -0.26}};
    }
    if (form == Cylinder) {
        const double radius = 0.6 * c.m, high = 0.35 * kPi * c.height / c.width, turn = 2 * std::asin(q);
        const Vec p = {-std::sin(turn) * radius, (49 - row) * high / 50 - high / 2, std::cos(turn) * radius};
        return {p, c.m};
    }
    const double radius = 1.15 * rho, angle = std::asin(q / 1.06) / 1.15;
    return {{radius * std::sin(angle), (49 - row) * bent / 50 - bent / 2, radius - radius * std::cos(angle)},
            radius};
}

/// A picture not wider than high is stretched in upright chords.
OnMesh onTallStretch(const Circle& c, const PicturePoint& disc) {
    const double right = std::acos(std::min((c.width - c.xCenter) / c.radius, 1.0));
    const double left = std::acos(std::min(c.xCenter / c.radius, 1.0));
    const double column = 50 * (std::acos(disc.x) - right) / (kPi - left - right);
    const double target = 2.4 * c.width / c.height, m = 2 * c.radius / c.height;
    const double down = 1 + disc.y / std::sqrt(1 - disc.x * disc.x);
    return {{target / 2 - (50 - column) * target / 50, (m - down) / m + 1 - m, -0.26}};
}

Vec turned(const Case& c, const Sight& s, Vec p, double extent) {
    switch (c.form) {
        case Curved:
            p = moved(turnedZ(turnedY(moved(p, 0, 0, -extent), s.y), s.z), 0, 0, extent);
            return moved(turnedX(p, -s.x / 2), 0, s.x / 100, 0);
        case Stretch:
            return moved(p, -s.y / 100, s.x / 100, 0);
        case Cylinder:
            return moved(turnedX(turnedY(p, -s.y), s.x / 2), 0, 0.1, 0);
        default:
            return moved(turnedX(turnedY(p, s.y / 2), -s.x / 2), -s.y / 180, s.x / 180, 0);
    }
}

Projection projectionOf(const Case& c, const Sight& s) {
    const Lens& lens = c.lens;
    const bool known = c.imageWidth > 0;
    const double shownHeight = known ? 1.0 * c.imageHeight * lens.width / c.imageWidth : lens.height;
    const double rate = lens.height / shownHeight;
    const Circle circle = {1.0 * lens.width, shownHeight, 1.0 * lens.xCenter, lens.yCenter / rate, lens.rx};
    const double offsetX = known ? 0.5 - 1.0 * lens.xCenter / lens.width : 0;
    const double offsetY = known ? 0.5 - 1.0 * lens.yCenter / lens.height : 0;
    const double fieldOfView = s.zoom < 1 ? 100 - (s.zoom - 0.25) * 40 / 3 : 90 - (s.zoom - 1) * 70 / 19;
    return [=](const PicturePoint& point) -> Places {
        const PicturePoint disc = lens.onDisc(point);
        const bool tall = c.form == Stretch && lens.width <= lens.height;
        const OnMesh mesh = tall ? onTallStretch(circle, disc)
                                 : onWideForm(c.form, circle, disc, 1.0 * lens.yCenter / lens.height - 0.5);
        const auto eyed = [&](const Vec& p) {
            return moved(turned(c, s, {offsetX - p.x, p.y + offsetY, p.z}, mesh.extent), 0, 0, -1);
        };
        const Vec p = eyed(mesh.p);
        Place place = seen(p, fieldOfView, 1, 1.0 * s.width / s.height);
        if (c.form == Cylinder) {  // its near half is seen
            const Vec axis = eyed({0, mesh.p.y, 0});
            const double towards = p.x * (axis.x - p.x) + p.y * (axis.y - p.y) + p.z * (axis.z - p.z);
            place.sure = place.sure && towards > 0.05;
        }
        return {place};
    };
}

constexpr Lens kRound = {600, 600, 300, 300, 300};  // as assumed when nothing is reported
constexpr Lens kWide = {800, 600, 430, 290, 280};
constexpr Lens kTall = {500, 640, 260, 330, 240};
constexpr Lens kSqueezed = {640, 360, 330, 176, 240, 180};  // 4:3 in a picture of square pixels

const std::vector<Sight> kFour = {{0, {0, 120, 160, 120}, 4, 160, 120, 5, 10, 15},
                                  {1, {160, 120, 160, 120}, 4, 160, 120, -10, 20, 0, 2},
                                  {2, {0, 0, 160, 120}, 4, 160, 120, 0, -25, 0, 0.5},
                                  {3, {160, 0, 160, 120}, 4, 160, 120}};
const std::vector<Sight> kLargeAndTwo = {{0, {0, 160, 400, 320}, 4, 201, 160, 4, -10, 0, 1.5},
                                         {1, {0, 0, 200, 160}, 4, 100, 80, 10, 20, -10},
                                         {2, {200, 0, 200, 160}, 4, 100, 80}};

const Case kCases[] = {
    {"disc", 0, Disc, 320, 240, 1, kRound, 0, 0, {{0, {0, 0, 320, 240}, 15, 320, 240}}},
    {"disc, moved",
     0,
     Disc,
     241,
     321,
     1,
     kWide,
     800,
     600,
     {{0, {0, 0, 241, 321}, 10, 241, 321, 10, 20, 30, 1.5}}},
    {"disc, squeezed", 0, Disc, 320, 240, 1, kSqueezed, 1280, 960, {{0, {0, 0, 320, 240}, 15, 320, 240}}},
    {"stretch", 5, Stretch, 321, 241, 1, kWide, 800, 600, {{0, {0, 0, 321, 241}, 15, 321, 241, 5, -8}}},
    {"stretch, squeezed",
     5,
     Stretch,
     320,
     240,
     1,
     kSqueezed,
     1280,
     960,
     {{0, {0, 0, 320, 240}, 15, 320, 240}}},
    {"stretch, square", 5, Stretch, 240, 320, 1, kRound, 0, 0, {{0, {0, 0, 240, 320}, 10, 240, 320}}},
    {"stretch, tall",
     5,
     Stretch,
     320,
     240,
     1,
     kTall,
     500,
     640,
     {{0, {0, 0, 320, 240}, 10, 320, 240, 0, 5, 0, 0.5}}},
    {"cylinder", 3, Cylinder, 320, 240, 1, kRound, 0, 0, {{0, {0, 0, 320, 240}, 5, 320, 240}}},
    {"cylinder, turned",
     3,
     Cylinder,
     320,
     240,
     1,
     kWide,
     800,
     600,
     {{0, {0, 0, 320, 240}, 3, 320, 240, 10, 60}}},
    {"four screens", 7, Curved, 321, 241, 1, kWide, 800, 600, kFour},
    {"large and two, dense", 10, Curved, 201, 241, 2, kTall, 500, 640, kLargeAndTwo},
};

void setUp(VRHANDLE view, const Case& c) {
    Fovix_Init(view, c.width, c.height);
    if (c.imageWidth > 0) {
        const double scale = 1.0 * c.imageWidth / c.lens.width, scaleY = 1.0 * c.imageHeight / c.lens.height;
        Fovix_SetFecParams(view, static_cast<int>(c.lens.xCenter * scale),
                           static_cast<int>(c.lens.yCenter * scaleY), static_cast<int>(c.lens.rx * scale),
                           c.imageWidth, c.imageHeight);
    }
    Fovix_SetShape(view, c.shape);
    for (int frame = 0; frame < 20; ++frame) Fovix_Drawself(view);
    for (const Sight& s : c.sights) Fovix_SetRotateZoom_SubScreen(view, s.screen, s.x, s.y, s.z, s.zoom);
}

TEST(HalfView, LandmarksAppearWhereTheyBelong) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        Stage stage(FOVIX_TYPE_180VR, c.width * c.ppi, c.height * c.ppi);
        Fovix_SetBackground(stage.view, 0x204060);
        const LandmarkPicture picture = c.lens.picture();
        stage.show(picture.image());
        Fovix_SetPPIZoom(c.ppi);
        printedBy([&] { setUp(stage.view, c); });
        const Image shown = stage.draw();
        Fovix_SetPPIZoom(1);
        for (const Sight& sight : c.sights) {
            EXPECT_TRUE(picture.isSeenIn(shown, sight.viewport, projectionOf(c, sight), sight.atLeast))
                << "screen " << sight.screen;
        }
    }
}

TEST(HalfView, CartoonsMoveFromFrameToFrameAndLandOnTheNewForm) {
    const Image picture = kWide.picture().image();
    const auto drawn = [&](int from, int to, int frames) {
        Stage stage(FOVIX_TYPE_180VR, 160, 120);
        stage.show(picture);
        printedBy([&] {
            Fovix_SetShape(stage.view, from);
            for (int frame = 0; frame < 25; ++frame) Fovix_Drawself(stage.view);
            Fovix_SetShape(stage.view, to);
        });
        std::vector<Image> shown;
        for (int frame = 0; frame < frames; ++frame) shown.push_back(stage.draw());
        return shown;
    };
    for (const auto& [from, to, lastBlend] : {std::array{0, 5, 18}, {5, 0, 18}, {0, 7, 0}, {5, 3, 0}}) {
        SCOPED_TRACE(testing::Message() << from << " to " << to);
        const std::vector<Image> shown = drawn(from, to, 20);
        const Image landed = drawn(to, to, 1).back();
        for (int frame = 0; frame < 20; ++frame) {
            const auto i = static_cast<std::size_t>(frame);
            if (frame >= lastBlend) {
                EXPECT_TRUE(looksLike(shown[i], landed, 0)) << frame;
            } else {
                EXPECT_NE(shown[i].bytes, shown[i + 1].bytes) << frame;
            }
        }
    }
}

}  // namespace
}  // namespace fovix_test
