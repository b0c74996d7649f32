// The 360-degree panorama on the surface: landmarks of the lens picture appear where geometry puts them, for
// every mount and shape, on odd, tall and dense surfaces.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "HeadlessGl.h"
#include "Landmarks.h"

namespace fovix_test {
namespace {

constexpr double kPi = std::numbers::pi;

struct Sight {
    int screen;
    Viewport viewport;  ///< with ppiZoom
    int atLeast;        ///< landmarks that lie there whole
    double pan = 90, tilt = 0, zoom = 90, roll = 0, fifth = 0;
};

struct Case {
    const char* name;
    int mount, shape, width, height, ppi;
    Lens lens;
    std::vector<Sight> sights;
};

bool isOverviewStrip(const Case& c, const Sight& sight) {
    return c.shape == FOVIX_SHAPE_TWO_AND_STRIP && sight.screen == 2;
}

bool looksIntoHemisphere(const Case& c) {
    return (c.mount == 0 && (c.shape == 0 || c.shape >= 7)) || (c.mount == 1 && c.shape == 8);
}

enum class Surface { Hemisphere, Cylinder, Strip };

Surface surfaceOf(const Case& c, const Sight& sight) {
    if (c.shape == 6 || (c.mount == 0 && c.shape == 5) || isOverviewStrip(c, sight)) return Surface::Strip;
    return c.mount == 0 && (c.shape == 3 || c.shape == 4) ? Surface::Cylinder : Surface::Hemisphere;
}

/// Where the direction psi off the lens's axis and theta round it (clockwise from the right) lies on the
/// mesh.
Vec onMesh(const Case& c, const Sight& sight, double psi, double theta) {
    const double radius = c.shape == 3 ? 1.308 : 1.09, half = radians(42.5);
    switch (surfaceOf(c, sight)) {
        case Surface::Strip:
            if (c.shape == 6) return {theta, 2.3 * psi - 0.7625 * kPi, 0};
            return {theta, 1.4 * psi - 0.4 * kPi, 0};
        case Surface::Cylinder:
            return {radius * std::cos(theta), psi - half, radius * std::sin(theta)};
        default:
            break;
    }
    const double x = radius * std::sin(psi) * std::cos(theta), y = radius * std::sin(psi) * std::sin(theta);
    if (c.mount == 1 && c.shape == 5) {  // flattened
        return {radius * x / std::sqrt(radius * radius - y * y), -y, 0.5 * radius * std::cos(psi)};
    }
    return {x, -y, radius * std::cos(psi)};
}

/// A view into the hemisphere zooms by moving the eye first.
struct Zoomed {
    double tilt, z, fieldOfView;
};

Zoomed zoomInto(double tilt, double zoom) {
    const double wide = (zoom - 90) / 50, close = (zoom - 40) / 35;
    if (zoom > 40) return {(tilt - 17 * wide) * (90 + 30.5 * wide) / 90, -1 - 1.12 * wide, 90};
    return {(17 + 30 * close + tilt) * (59.5 - 16 * close) / 90, 0.12, 50 + zoom};
}

/// A wide view on a wall shifts the picture when it looks towards the rim, and narrows as far.
struct RimShift {
    double x, y, fieldOfView;
};

RimShift shiftAtRim(double pan, double tilt, double zoom) {
    const double a = (90 - pan) / 180, b = (90 - tilt) / 180;
    const double narrowed = std::max(zoom / (std::max(std::abs(a), std::abs(b)) + 1), 64.0);
    const double shift = std::max(zoom / narrowed - 1, 0.0);
    if (std::abs(a) > std::abs(b)) return {std::copysign(shift, a), b, narrowed};
    return {a, std::copysign(shift, b), narrowed};
}

/// A hemisphere seen from outside hides what lies behind its near side.
bool isHidden(const Vec& p, const Vec& centre, const Vec& pole) {
    const double nearer = (centre.x * centre.x + centre.y * centre.y + centre.z * centre.z - 1.1881) /
                          (p.x * p.x + p.y * p.y + p.z * p.z);
    if (nearer <= 0 || nearer >= 1) return false;
    const double along = (p.x * nearer - centre.x) * (pole.x - centre.x) +
                         (p.y * nearer - centre.y) * (pole.y - centre.y) +
                         (p.z * nearer - centre.z) * (pole.z - centre.z);
    return along > 0.03;
}

/// Turns and moves by mount and shape, the eye in the origin.
Vec turned(const Case& c, const Sight& s, Vec p, double* fieldOfView) {
    if (looksIntoHemisphere(c)) {
        Sight view = s;
        if (c.shape == FOVIX_SHAPE_OVERVIEW_FIVE) {
            view.pan += 90;
            if (s.screen == 0) view = {0, {}, 0, 90, 0, 91};
        }
        const Zoomed zoomed = zoomInto(view.tilt, view.zoom);
        *fieldOfView = s.screen == 0 && c.shape == FOVIX_SHAPE_OVERVIEW_FIVE ? 90 : zoomed.fieldOfView;
        p = turnedX(turnedZ(turnedZ(p, view.roll), 90 - view.pan), -zoomed.tilt);
        return {p.x, p.y, zoomed.z - p.z};
    }
    if (c.mount == 0 && (c.shape == 1 || c.shape == 2)) {
        const double side = c.shape == 1 ? -1 : 1;
        p = moved(turnedX(turnedZ(p, side * s.pan), s.tilt), 0, 0.2 * side, 0.55);
    } else if (c.mount == 0 && c.shape == 3) {
        p = moved(turnedX(turnedY(p, s.pan), s.tilt), 0, 0, 1.2);
    } else if (c.mount == 0) {
        p = moved(turnedX(turnedY(p, -s.pan), -s.tilt), 0, 0, -1.2);
    } else if (c.mount == 3) {
        p = turnedX(turnedZ(turnedZ(p, s.roll), 90 - s.pan), s.tilt);
    } else if (c.shape != 5) {
        p = turnedZ(p, c.mount == 2 ? s.roll - 180 : s.roll);
        p = turnedX(turnedZ(turnedX(p, s.fifth - 90), 90 - s.pan), s.tilt);
        if (c.mount == 1 && c.shape == 0 && s.zoom > 64) {
            const RimShift shift = shiftAtRim(s.pan, s.tilt, s.zoom);
            p = moved(p, shift.x, shift.y, 0);
            *fieldOfView = shift.fieldOfView;
        }
    }
    return {p.x, p.y, -1 - p.z};
}

/// The strip begins half of its visible part before the view's pan and goes on beyond its seam.
Places onStrip(const Case& c, const Sight& sight, const Vec& p, double scale, double aspect) {
    if (isOverviewStrip(c, sight)) {
        return {seen({(p.x - kPi) * aspect / kPi, 1.21 * p.y, -1}, 90, scale, aspect)};
    }
    const int strips = c.shape == 6 ? 2 : 1;
    const double visible = 200.0 * c.width / (c.height / strips);
    int pan = (static_cast<int>(sight.pan) + 314 * sight.screen) % 628;
    if (pan < 0) pan += 628;
    const double left = std::trunc(pan - visible / 2) / 100;
    Places places = {seen({p.x - left, p.y, -1}, 90, scale, aspect)};
    if (pan < visible) places.push_back(seen({p.x - 2 * kPi - left, p.y, -1}, 90, scale, aspect));
    return places;
}

Projection projectionOf(const Case& c, const Sight& sight) {
    const double aspect = static_cast<double>(c.width) / c.height;
    const double scale = std::min(aspect, 1 / aspect);
    return [=](const PicturePoint& point) -> Places {
        const PicturePoint disc = c.lens.onDisc(point);
        const double psi = radians(85) * std::hypot(disc.x, disc.y);
        double theta = std::atan2(disc.y, disc.x);
        if (theta < 0) theta += 2 * kPi;
        const Vec p = onMesh(c, sight, psi, theta);
        const Surface surface = surfaceOf(c, sight);
        if (surface == Surface::Strip) return onStrip(c, sight, p, scale, aspect);
        double fieldOfView = sight.zoom;
        const Vec eyed = turned(c, sight, p, &fieldOfView);
        Place place = seen(eyed, fieldOfView, scale, aspect);
        const Vec centre = turned(c, sight, {0, 0, 0}, &fieldOfView);
        if (surface == Surface::Hemisphere && !(c.mount == 1 && c.shape == 5)) {
            place.sure = place.sure && !isHidden(eyed, centre, turned(c, sight, {0, 0, 1}, &fieldOfView));
        } else if (c.shape == 3) {  // the cylinder from outside: the near half, the axis upright
            const Vec axis = turned(c, sight, {0, p.y, 0}, &fieldOfView);
            place.sure =
                eyed.x * (eyed.x - axis.x) + eyed.y * (eyed.y - axis.y) + eyed.z * (eyed.z - axis.z) < -0.1;
        }
        return {place};
    };
}

constexpr Lens kLens = {600, 600, 300, 300, 290};
constexpr Lens kAside = {701, 533, 320, 251, 240};

// Screen, viewport, landmarks; pan, tilt, zoom, roll, fifth.
const std::vector<Sight> kTwoStrips = {{0, {0, 120, 302, 120}, 5, 100, 0}, {1, {0, 0, 302, 120}, 5, 100, 0}};
const std::vector<Sight> kFourScreens = {{0, {0, 120, 160, 120}, 2, 0, 20, 40},
                                         {1, {160, 120, 160, 120}, 2, 100, 30, 40},
                                         {2, {0, 0, 160, 120}, 2, 190, 40, 35},
                                         {3, {160, 0, 160, 120}, 2, 280, 50, 40}};
const std::vector<Sight> kOverviewAndFive = {{0, {0, 100, 260, 200}, 20},
                                             {1, {260, 200, 130, 100}, 1, 10, 20, 40},
                                             {2, {260, 100, 130, 100}, 1, 90, 30, 39},
                                             {3, {260, 0, 130, 100}, 1, 170, 40, 38},
                                             {4, {130, 0, 130, 100}, 1, 250, 40, 40},
                                             {5, {0, 0, 130, 100}, 1, 330, 30, 40}};
const std::vector<Sight> kTwoAndStrip = {{0, {0, 100, 180, 200}, 2, 30, 30, 40},
                                         {1, {180, 100, 180, 200}, 2, 200, 40, 40},
                                         {2, {0, 0, 361, 100}, 15}};

const Case kCases[] = {
    {"single", 0, 0, 320, 240, 1, kLens, {{0, {0, 0, 320, 240}, 20}}},
    {"single, zoomed", 0, 0, 321, 241, 1, kLens, {{0, {0, 0, 321, 241}, 5, 30, 50, 60}}},
    {"single, rolled", 0, 0, 320, 240, 1, kLens, {{0, {0, 0, 320, 240}, 4, 200, 45, 30, 20}}},
    {"single, tall", 0, 0, 161, 301, 1, kAside, {{0, {0, 0, 161, 301}, 4, 75, 30, 80}}},
    {"single, dense", 0, 0, 120, 90, 2, kAside, {{0, {0, 0, 240, 180}, 10, 120, 20, 85}}},
    {"dome", 0, 1, 320, 240, 1, kLens, {{0, {0, 0, 320, 240}, 5, 90, 75}}},
    {"bowl", 0, 2, 320, 240, 1, kLens, {{0, {0, 0, 320, 240}, 8, 40, -70}}},
    {"cylinder", 0, 3, 301, 201, 1, kLens, {{0, {0, 0, 301, 201}, 4, 120, 15}}},
    {"cylinder inside", 0, 4, 320, 240, 1, kLens, {{0, {0, 0, 320, 240}, 3, 300, 5}}},
    {"strip over its seam", 0, 5, 400, 201, 1, kLens, {{0, {0, 0, 400, 201}, 10, 40, 0}}},
    {"strip", 0, 5, 300, 200, 1, kAside, {{0, {0, 0, 300, 200}, 5, 400, 0}}},
    {"two strips, dense", 0, 6, 151, 121, 2, kLens, kTwoStrips},
    {"four screens", 0, 7, 321, 241, 1, kLens, kFourScreens},
    {"overview and five", 0, 8, 391, 301, 1, kLens, kOverviewAndFive},
    {"two and the strip", 0, 9, 361, 301, 1, kLens, kTwoAndStrip},
    {"wall", 1, 0, 320, 240, 1, kLens, {{0, {0, 0, 320, 240}, 5, 90, 90}}},
    {"wall, rim", 1, 0, 320, 240, 1, kLens, {{0, {0, 0, 320, 240}, 5, 50, 75, 88, 0, 5}}},
    {"wall, foot", 1, 0, 240, 320, 1, kLens, {{0, {0, 0, 240, 320}, 5, 100, 130, 80, 10}}},
    {"wall, flattened", 1, 5, 320, 240, 1, kLens, {{0, {0, 0, 320, 240}, 15, 12, 34}}},
    {"wall, two strips, dense", 1, 6, 151, 121, 2, kLens, kTwoStrips},
    {"wall, overview and five", 1, 8, 391, 301, 1, kLens, kOverviewAndFive},
    {"wall, upside down", 2, 0, 320, 240, 1, kLens, {{0, {0, 0, 320, 240}, 5, 70, 100, 80}}},
    {"floor", 3, 0, 320, 240, 1, kLens, {{0, {0, 0, 320, 240}, 10, 60, 40, 90}}},
};

/// A view ahead at 90 degrees is what a change of mount or shape leaves by itself.
void setViews(VRHANDLE view, const Case& c) {
    for (const Sight& s : c.sights) {
        if (s.pan == 90 && s.zoom == 90) continue;
        Fovix_SetPTZ_SubScreen(view, s.screen, s.pan, s.tilt, s.zoom, s.roll, s.fifth);
    }
}

TEST(Panorama, LandmarksAppearWhereTheyBelong) {
    for (const Case& c : kCases) {
        SCOPED_TRACE(c.name);
        Stage stage(FOVIX_TYPE_360VR, c.width * c.ppi, c.height * c.ppi);
        const LandmarkPicture picture = c.lens.picture();
        stage.show(picture.image());
        Fovix_SetBackground(stage.view, 0x204060);
        Fovix_SetPPIZoom(c.ppi);
        printedBy([&] {
            Fovix_Init(stage.view, c.width, c.height);
            Fovix_SetFecParams(stage.view, c.lens.xCenter, c.lens.yCenter, static_cast<int>(c.lens.rx),
                               c.lens.width, c.lens.height);
            Fovix_SetCameraMount(stage.view, c.mount);
            Fovix_SetShape(stage.view, c.shape);
            for (int frame = 0; frame < 30; ++frame) Fovix_Drawself(stage.view);
            setViews(stage.view, c);
        });
        const Image shown = stage.draw();
        Fovix_SetPPIZoom(1);
        EXPECT_EQ(stage.lines, "");
        for (const Sight& sight : c.sights) {
            const double tolerance = sight.zoom > 40 ? 1.5 : 2.0;  // rounded texture coordinates, magnified
            EXPECT_TRUE(
                picture.isSeenIn(shown, sight.viewport, projectionOf(c, sight), sight.atLeast, tolerance))
                << "screen " << sight.screen;
        }
    }
}

/// A frame of a new handle that went to the shape at once.
Image settled(const Stage& stage, const Image& picture, int shape, int frames) {
    View view;
    printedBy([&] {
        Fovix_Prepare(view);
        Fovix_Init(view, stage.gl.width(), stage.gl.height());
        Fovix_SetType(view, FOVIX_TYPE_360VR);
        Fovix_SetRGBTexture(view, picture.bytes.data(), picture.size(), picture.width, picture.height);
        Fovix_SetShape(view, shape);
        for (int frame = 0; frame < frames; ++frame) Fovix_Drawself(view);
    });
    return stage.gl.readPixels();
}

TEST(Panorama, BlendsFor29FramesAndLandsOnTheNewShape) {
    const Image picture = kLens.picture().image();
    for (const auto& [from, to] : {std::pair{0, 3}, {3, 4}, {1, 2}, {4, 7}, {3, 0}}) {
        SCOPED_TRACE(testing::Message() << from << " to " << to);
        Stage stage(FOVIX_TYPE_360VR, 160, 120);
        const Image landed = settled(stage, picture, to, 60);
        stage.show(picture);
        printedBy([&] {
            Fovix_SetShape(stage.view, from);
            for (int frame = 0; frame < 40; ++frame) Fovix_Drawself(stage.view);
            Fovix_SetShape(stage.view, to);
        });
        Image before = stage.draw();
        for (int frame = 2; frame <= 30; ++frame) {
            const Image shown = stage.draw();
            EXPECT_FALSE(shown.bytes == before.bytes) << "frame " << frame;
            before = shown;
            EXPECT_FALSE(frame == 29 && shown.bytes == landed.bytes);
        }
        EXPECT_TRUE(looksLike(before, landed, 0));
        EXPECT_TRUE(looksLike(stage.draw(), landed, 0));
    }
}

}  // namespace
}  // namespace fovix_test
