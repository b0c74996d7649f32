#include "view/Views360VR.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Fovix.h"

namespace fovix {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Limits of a value; low == high pins it.
struct Range {
    double low, high;

    double clamp(double value) const { return std::clamp(value, low, high); }
};

constexpr Range kFree = {-kInfinity, kInfinity};
constexpr Range kFixedZoom = {kWidestZoom, kWidestZoom};  ///< of the shapes that cannot be zoomed
constexpr Range kZoom = {kNearestZoom, kWidestZoom};
constexpr Range kSmallScreenZoom = {kNearestZoom, kInsideZoom};  ///< of the layouts with several screens
constexpr Range kQuarterTurn = {0.0, 90.0};
constexpr Range kHalfTurn = {0.0, 180.0};
constexpr Range kInsideRim = {15.0, 165.0};  ///< keeps a wall camera's view within the hemisphere
constexpr Range kBowlTilt = {-100.0, -60.0};

constexpr int kAnyShape = -1;

struct Limits {
    int mount, shape;
    Range pan, tilt, zoom;
    Range roll = kFree;
};

/// First match wins; the last row matches everything.
constexpr Limits kLimits[] = {
    {FOVIX_MOUNT_WALL_INVERTED, kAnyShape, kHalfTurn, kHalfTurn, kZoom},
    {FOVIX_MOUNT_FLOOR, kAnyShape, kHalfTurn, kHalfTurn, kZoom},
    {FOVIX_MOUNT_WALL, FOVIX_SHAPE_STRIP, kFree, kHalfTurn, kFixedZoom},
    {FOVIX_MOUNT_WALL, FOVIX_SHAPE_TWO_STRIPS, kFree, kQuarterTurn, kZoom},
    {FOVIX_MOUNT_WALL, FOVIX_SHAPE_BOWL, kFree, kBowlTilt, kFixedZoom, {0.0, 0.0}},
    {FOVIX_MOUNT_WALL, FOVIX_SHAPE_OVERVIEW_FIVE, kFree, kQuarterTurn, kSmallScreenZoom},
    {FOVIX_MOUNT_WALL, kAnyShape, kInsideRim, kInsideRim, kZoom},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_DOME, kFree, {60.0, 100.0}, kFixedZoom, {0.0, 0.0}},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_BOWL, kFree, kBowlTilt, kFixedZoom, {0.0, 0.0}},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_CYLINDER, kFree, {-45.0, 45.0}, kFixedZoom},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_CYLINDER_INSIDE, kFree, {-10.0, 10.0}, kFixedZoom},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_FOUR_SCREENS, kFree, kQuarterTurn, kSmallScreenZoom},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_OVERVIEW_FIVE, kFree, kQuarterTurn, kSmallScreenZoom},
    {FOVIX_MOUNT_CEILING, FOVIX_SHAPE_TWO_AND_STRIP, kFree, kQuarterTurn, kSmallScreenZoom},
    {FOVIX_MOUNT_CEILING, kAnyShape, kFree, kQuarterTurn, kZoom},
};

const Limits& limitsOf(int mount, int shape) {
    return *std::find_if(std::begin(kLimits), std::end(kLimits) - 1, [&](const Limits& row) {
        return row.mount == mount && (row.shape == shape || row.shape == kAnyShape);
    });
}

double defaultTilt(double previous, int mount, int shape) {
    switch (mount) {
        case FOVIX_MOUNT_CEILING:
            if (shape == FOVIX_SHAPE_DOME) return 75.0;
            if (shape == FOVIX_SHAPE_BOWL) return -75.0;
            return shape == FOVIX_SHAPE_STRIP ? previous : 0.0;
        case FOVIX_MOUNT_WALL:
            return shape == FOVIX_SHAPE_BOWL ? -75.0 : 90.0;
        case FOVIX_MOUNT_WALL_INVERTED:
            return 90.0;
        case FOVIX_MOUNT_FLOOR:
            return -90.0;
        default:
            return previous;
    }
}

/// How a screen's mesh is turned towards the eye.
enum class Pose {
    kAsBuilt,
    kHemisphere,
    kDome,
    kBowl,
    kCylinder,
    kCylinderInside,
    kStrip,
    kWall,
    kWallRim,
    kWallBowl,
    kFloor
};

bool isOverviewStrip(const Scene360VR& scene, int screen) {
    return scene.shape == FOVIX_SHAPE_TWO_AND_STRIP && screen >= kStripScreen;
}

Pose ceilingPose(int shape, bool overviewStrip) {
    switch (shape) {
        case FOVIX_SHAPE_DOME:
            return Pose::kDome;
        case FOVIX_SHAPE_BOWL:
            return Pose::kBowl;
        case FOVIX_SHAPE_CYLINDER:
            return Pose::kCylinder;
        case FOVIX_SHAPE_CYLINDER_INSIDE:
            return Pose::kCylinderInside;
        case FOVIX_SHAPE_STRIP:
        case FOVIX_SHAPE_TWO_STRIPS:
            return Pose::kStrip;
        case FOVIX_SHAPE_LARGE_AND_TWO:
            return Pose::kAsBuilt;
        default:
            return overviewStrip ? Pose::kStrip : Pose::kHemisphere;
    }
}

Pose wallPose(int shape) {
    switch (shape) {
        case FOVIX_SHAPE_SINGLE:
            return Pose::kWallRim;
        case FOVIX_SHAPE_BOWL:
            return Pose::kWallBowl;
        case FOVIX_SHAPE_STRIP:
            return Pose::kAsBuilt;
        case FOVIX_SHAPE_TWO_STRIPS:
            return Pose::kStrip;
        case FOVIX_SHAPE_OVERVIEW_FIVE:
            return Pose::kHemisphere;
        default:
            return Pose::kWall;
    }
}

Pose poseOf(const Scene360VR& scene, int screen) {
    switch (scene.mount) {
        case FOVIX_MOUNT_CEILING:
            return ceilingPose(scene.shape, isOverviewStrip(scene, screen));
        case FOVIX_MOUNT_WALL:
            return wallPose(scene.shape);
        case FOVIX_MOUNT_WALL_INVERTED:
            return Pose::kWall;
        case FOVIX_MOUNT_FLOOR:
            return Pose::kFloor;
        default:
            return Pose::kAsBuilt;
    }
}

/// The overview shows a degree more than a view may, so that the whole rim is in sight.
constexpr double kOverviewZoom = kWidestZoom + 1.0;

/// Stretches the overview strip, whose mesh reaches 0.82, to the full height of its screen.
constexpr double kStripStretch = 1.21;

// Place of the mesh's centre along the eye's axis, model units.
constexpr double kEyeOutside = -1.0;
constexpr double kEyeInside = 0.12;

/// Effective view of a screen, after shape-specific adjustments.
struct EffectiveView {
    double pan, roll, tilt, ptzFifth, zoom;
    double fov;  ///< of the projection; the zoom unless the pose changes it
    double zOffset = kEyeOutside;
    double xScale = 1.0, yScale = 1.0;
};

EffectiveView effectiveView(const Scene360VR& scene, int screen, double extraPan) {
    View360VR own = scene.views[static_cast<std::size_t>(screen)];
    own.mPan += extraPan;
    EffectiveView view{};
    if (scene.shape == FOVIX_SHAPE_OVERVIEW_FIVE) {
        if (screen == 0) {
            own = {.mPan = 90.0, .mZoom = kOverviewZoom};
        } else {
            own.mPan += 90.0;
        }
    } else if (isOverviewStrip(scene, screen)) {
        // The whole turn fills the surface's width.
        own = {.mPan = kStripTurn / 2.0, .mZoom = kWidestZoom};
        view.xScale = stripWidthSeen(scene.width, scene.height) / kStripTurn;
        view.yScale = kStripStretch;
    }
    if (scene.blendView) {
        own = *scene.blendView;
        own.mPan += scene.shape == FOVIX_SHAPE_FOUR_SCREENS ? screen * 90.0 : extraPan;
    }
    view.pan = own.mPan;
    view.roll = own.mRoll;
    view.tilt = own.mTilt;
    view.ptzFifth = own.mPtzFifth;
    view.zoom = view.fov = own.mZoom;
    return view;
}

/// Above kInsideZoom zooming moves the eye towards the hemisphere, below it narrows the field of view.
/// Returns the tilt that keeps the rim out of sight from there.
double zoomIntoHemisphere(EffectiveView& view) {
    // A tilt is raised by a lift, and its 90 degrees are scaled to a span. Both are linear in the zoom.
    constexpr double kLiftInside = 17.0, kLiftNearest = -13.0;
    constexpr double kSpanWidest = 90.0, kSpanInside = 59.5, kSpanNearest = 75.5;

    const double zoom = view.zoom, tilt = view.tilt;
    if (zoom > kInsideZoom) {
        constexpr double kRange = kWidestZoom - kInsideZoom;
        const double closer = (zoom - kWidestZoom) / kRange;
        view.zOffset = kEyeOutside - (zoom - kWidestZoom) * (kEyeInside - kEyeOutside) / kRange;
        view.fov = kWidestZoom;
        return (tilt - kLiftInside * closer) * (kSpanWidest + (kSpanWidest - kSpanInside) * closer) /
               kSpanWidest;
    }
    const double narrower = (zoom - kInsideZoom) / (kInsideZoom - kNearestZoom);
    view.zOffset = kEyeInside;
    view.fov = kWidestZoom - kInsideZoom + zoom;
    return (kLiftInside + (kLiftInside - kLiftNearest) * narrower + tilt) *
           (kSpanInside - (kSpanNearest - kSpanInside) * narrower) / kSpanWidest;
}

/// Narrows a wall camera's wide view that looks aside and moves it, so that the hemisphere's rim stays out of
/// sight.
void shiftFromRim(Mat4& m, EffectiveView& view) {
    constexpr double kRimInSight = 64.0;  // field of view, degrees
    constexpr double kShare = 0.5;        // model units for a view at a right angle to the camera's axis
    if (view.zoom <= kRimInSight) return;
    const double a = (90.0 - view.pan) / 90.0 * kShare;
    const double b = (90.0 - view.tilt) / 90.0 * kShare;
    const bool sideways = std::abs(a) > std::abs(b);
    const double aside = sideways ? a : b;
    view.fov = std::max(view.zoom / (std::abs(aside) + 1.0), kRimInSight);
    const double distance = std::max(view.zoom / view.fov - 1.0, 0.0);
    const double shift = aside < 0.0 ? -distance : distance;
    Mat4_Translate(m, sideways ? shift : a, sideways ? b : shift, 0.0);
}

void turnOnWall(Mat4& m, const EffectiveView& view, double uprightRoll) {
    Mat4_RotateZ(m, view.roll - uprightRoll);
    Mat4_RotateX(m, view.ptzFifth - 90.0);
    Mat4_RotateZ(m, 90.0 - view.pan);
    Mat4_RotateX(m, view.tilt);
}

/// The dome (panSign −1) turns against the bowl (1). Both move to the middle of the screen and farther away.
void turnInPlane(Mat4& m, const EffectiveView& view, double panSign) {
    constexpr double kUp = 0.2, kAway = 0.55;
    Mat4_RotateZ(m, view.roll);
    Mat4_RotateZ(m, panSign * view.pan);
    Mat4_RotateX(m, view.tilt);
    Mat4_Translate(m, 0.0, panSign * kUp, kAway);
}

void turnToPole(Mat4& m, const EffectiveView& view, double tilt) {
    Mat4_RotateZ(m, view.roll);
    Mat4_RotateZ(m, 90.0 - view.pan);
    Mat4_RotateX(m, tilt);
}

/// From outside the cylinder moves away, from inside the eye moves to its far side.
constexpr double kCylinderDistance = 1.2;

void turnAboutAxis(Mat4& m, double pan, double tilt, double z) {
    Mat4_RotateY(m, pan);
    Mat4_RotateX(m, tilt);
    Mat4_Translate(m, 0.0, 0.0, z);
}

void turnMesh(Mat4& m, EffectiveView& view, Pose pose, int mount) {
    switch (pose) {
        case Pose::kAsBuilt:
            return;
        case Pose::kHemisphere:
            return turnToPole(m, view, -zoomIntoHemisphere(view));
        case Pose::kDome:
            return turnInPlane(m, view, -1.0);
        case Pose::kBowl:
            return turnInPlane(m, view, 1.0);
        case Pose::kCylinder:
            return turnAboutAxis(m, view.pan, view.tilt, kCylinderDistance);
        case Pose::kCylinderInside:
            return turnAboutAxis(m, -view.pan, -view.tilt, -kCylinderDistance);
        case Pose::kStrip:
            return Mat4_Translate(m, view.pan / -kPansPerRadian, 0.0, 0.0);
        case Pose::kWall:
            return turnOnWall(m, view, mount == FOVIX_MOUNT_WALL_INVERTED ? 180.0 : 0.0);
        case Pose::kWallRim:
            turnOnWall(m, view, 0.0);
            return shiftFromRim(m, view);
        case Pose::kWallBowl:
            turnInPlane(m, view, 1.0);
            return Mat4_RotateZ(m, 90.0);
        case Pose::kFloor:
            return turnToPole(m, view, view.tilt);
    }
}

}  // namespace

View360VR limitedView(const View360VR& view, int mount, int shape) {
    const Limits& limits = limitsOf(mount, shape);
    View360VR limited = view;
    limited.mPan = limits.pan.clamp(view.mPan);
    limited.mTilt = limits.tilt.clamp(view.mTilt);
    limited.mZoom = limits.zoom.clamp(view.mZoom);
    limited.mRoll = limits.roll.clamp(view.mRoll);
    return limited;
}

View360VR defaultView(const View360VR& previous, int mount, int shape) {
    const bool isStrip = mount == FOVIX_MOUNT_CEILING && shape == FOVIX_SHAPE_STRIP;
    const View360VR view = {.mPan = isStrip ? 0.0 : 90.0,
                            .mTilt = defaultTilt(previous.mTilt, mount, shape),
                            .mZoom = kWidestZoom};
    return limitedView(view, mount, shape);
}

Mat4 screenMatrix360VR(const Scene360VR& scene, int screen, double extraPan) {
    EffectiveView view = effectiveView(scene, screen, extraPan);
    Mat4 m;
    turnMesh(m, view, poseOf(scene, screen), scene.mount);
    Mat4_Scale(m, view.xScale, view.yScale, -1.0);
    Mat4_Translate(m, 0.0, 0.0, view.zOffset);
    const auto [smaller, larger] = std::minmax(scene.width, scene.height);
    Mat4_Perspective(m, view.fov, kNearPlane, kFarPlane, scene.width, scene.height,
                     static_cast<double>(smaller) / larger);
    return m;
}

}  // namespace fovix
