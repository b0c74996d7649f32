#include "touch/TouchController180VR.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

#include "Fovix.h"
#include "base/AnimatorStep.h"
#include "base/Diagnostics.h"
#include "base/Easing.h"
#include "touch/Gestures.h"
#include "touch/PictureTarget.h"

namespace fovix {

namespace {

constexpr int kDisc = FOVIX_180_DISC, kStretch = FOVIX_180_STRETCH, kCylinder = FOVIX_180_CYLINDER,
              kCurved = FOVIX_180_CURVED;
constexpr double kPitchLimit = 14.0, kYawLimit = 30.0;  ///< degrees at zoom 1
constexpr double kPitchGrowth = 1.4, kYawGrowth = 3.0;  ///< more per zoom of the stretched picture
constexpr double kLargestZoom = 20.0;
constexpr double kCurvedZoom = 10.0;  ///< the curved screen's normal zoom, and its smallest
constexpr double kSnapZoom = 2.0;     ///< up to here the stretched picture returns to the whole

// Where disc and curved screen give way to each other: zooms of a pinch, and degrees that the disc is turned.
constexpr double kEnterCurved = 1.05, kLeaveCurved = 9.0;
constexpr double kDiscPitch = 30.0, kDiscYaw = 35.0;

constexpr float kAccelerometerFactor = 12.0f;               ///< degrees per unit
constexpr double kSmallestTurn = 0.6, kLargestTurn = 20.0;  ///< degrees between two orientation events
constexpr double kCruiseFactor = 0.2;                       ///< degrees per frame at speed 1
constexpr double kCruiseYaw = 40.0;
constexpr int kBounceFrames = 700;
constexpr double kMostYaw = 1e9;

VR180TouchParams& params(TouchController& controller) {
    return paramsOf<VR180TouchParams>(controller);
}

double clampTo(double value, double limit) {
    return std::clamp(value, -limit, limit);
}

float toFloat(double value) {
    return static_cast<float>(clampTo(value, std::numeric_limits<float>::max()));
}

// Targets

/// A limit of the stretched picture, which can be moved further the more it is enlarged.
double grownLimit(const VR180TouchParams& p, double limit, double growth) {
    return p.mDrawMode == kStretch && p.mZoomTarget > 1.0 ? limit + growth * p.mZoomTarget : limit;
}

void addPitch(VR180TouchParams& p, double degrees) {
    const double limit = grownLimit(p, kPitchLimit, kPitchGrowth);
    p.mXAngleTarget = draggedTarget(p.mXAngleTarget, degrees, p.mZoom, limit);
    p.mGliding = 0;
}

/// The cylinder turns round and round.
void addYaw(VR180TouchParams& p, double degrees) {
    const double limit = p.mDrawMode == kCylinder ? kNoLimit : grownLimit(p, kYawLimit, kYawGrowth);
    p.mYAngleTarget = draggedTarget(p.mYAngleTarget, degrees, p.mZoom, limit);
    p.mGliding = 0;
}

void setTargets(VR180TouchParams& p, double xAngle, double yAngle, double zAngle, double zoom) {
    p.mXAngleTarget = xAngle;
    p.mYAngleTarget = yAngle;
    p.mZAngleTarget = zAngle;
    p.mZoomTarget = zoom;
}

/// Level and in the middle, at the draw mode's normal zoom.
void resetTargets(VR180TouchParams& p) {
    setTargets(p, 0.0, 0.0, 0.0, p.mDrawMode == kCurved ? kCurvedZoom : 1.0);
}

/// Changes the draw mode of the handle: of its model and of all its controllers, this one included.
void switchDrawMode(TouchController& controller, int mode) {
    controller.owner->switchDrawMode(mode);
    resetTargets(params(controller));
}

bool isBeyondDisc(const VR180TouchParams& p) {
    return std::abs(p.mYAngleTarget) > kDiscYaw || std::abs(p.mXAngleTarget) > kDiscPitch;
}

/// How far the curved screen may be turned either way, degrees; within what a float holds.
double curvedLimit(double zoom) {
    return clampTo((zoom - kCurvedZoom) * 20.0 / 10.0 + 40.0, std::numeric_limits<float>::max());
}

// Touch

void onTouchUp(TouchController& controller, float x, float y) {
    VR180TouchParams& p = params(controller);
    p.mLastX = x;
    p.mLastY = y;
}

void onTouchDown(TouchController& controller, float x, float y) {
    VR180TouchParams& p = params(controller);
    {
        const LockSection section(controller.lock);
        p.mXAngleBounce.reset();
        p.mYAngleBounce.reset();
        p.mCruising = 0;
    }
    p.mPinchStartZoom = p.mZoomTarget;
    p.mPinching = 0;
    onTouchUp(controller, x, y);
}

void onTouchMove(TouchController& controller, float x, float y) {
    VR180TouchParams& p = params(controller);
    if (p.mPinching) return;
    addYaw(p, -dragDistance(p.mLastX, x) * kDegreesPerPixel);
    addPitch(p, -dragDistance(p.mLastY, y) * kDegreesPerPixel);
    onTouchUp(controller, x, y);
}

void onTouchPinchScale(TouchController& controller, float scale) {
    VR180TouchParams& p = params(controller);
    p.mPinching = 1;
    if (scale == 0.0f) return;
    const double zoom = p.mPinchStartZoom * scale;
    switch (p.mDrawMode) {
        case kCurved:
            p.mZoomTarget = std::clamp(zoom, kCurvedZoom, kLargestZoom);
            if (scale < 1.0f && p.mPinchStartZoom <= kCurvedZoom && zoom < kLeaveCurved) {
                switchDrawMode(controller, kDisc);
            }
            break;
        case kDisc:
            if (scale > 1.0f && zoom > kEnterCurved) switchDrawMode(controller, kCurved);
            break;
        case kStretch:
            p.mZoomTarget = std::clamp(zoom, kSmallestZoom, kLargestZoom);
            break;
        default:
            break;
    }
}

/// Pushes the targets on; the slow ease towards them is the inertia.
void onTouchFling(TouchController& controller, float velocityX, float velocityY) {
    VR180TouchParams& p = params(controller);
    addYaw(p, -(velocityX / 100.0f) * kDegreesPerPixel);
    addPitch(p, -(velocityY / 20.0f) * kDegreesPerPixel);
    p.mGliding = 1;
}

/// A view dragged past the edge of the curved screen springs back to it.
void bounceToEdge(std::unique_ptr<BounceAnimator>& bounce, double angle, double target, double limit) {
    if (std::abs(angle) <= std::abs(target) || std::abs(target) < limit) return;
    bounce = std::make_unique<BounceAnimator>(angle, target, kBounceFrames);
}

void settleOnCurved(TouchController& controller) {
    VR180TouchParams& p = params(controller);
    if (p.mZoomTarget < kCurvedZoom) return;
    const LockSection section(controller.lock);
    const double limit = curvedLimit(p.mZoomTarget);
    p.mYAngleTarget = clampTo(p.mYAngleTarget, toFloat(limit));
    p.mXAngleTarget = clampTo(p.mXAngleTarget, toFloat(limit));
    bounceToEdge(p.mXAngleBounce, p.mXAngle, p.mXAngleTarget, limit);
    bounceToEdge(p.mYAngleBounce, p.mYAngle, p.mYAngleTarget, limit);
    p.mGliding = 1;
}

void autoAdjust(TouchController& controller) {
    VR180TouchParams& p = params(controller);
    switch (p.mDrawMode) {
        case kCurved:
            return settleOnCurved(controller);
        case kDisc:
            if (isBeyondDisc(p)) return switchDrawMode(controller, kCurved);
            return resetTargets(p);
        case kStretch:
            if (p.mZoomTarget <= kSnapZoom) resetTargets(p);
            return;
        default:
            return;
    }
}

// Sensors

void onAccelerometer(TouchController& controller, float x, float y) {
    VR180TouchParams& p = params(controller);
    p.mXAngleTarget = clampTo(y * kAccelerometerFactor, kPitchLimit);
    p.mYAngleTarget = clampTo(x * kAccelerometerFactor, kYawLimit);
    p.mGliding = 1;
}

/// Follows the turn of the device since the last event; small steps are noise, large ones a change of its
/// frame.
void onOrientation(TouchController& controller, float a, float b, float c) {
    VR180TouchParams& p = params(controller);
    const float da = a - p.mLastOrientationA, db = b - p.mLastOrientationB, dc = c - p.mLastOrientationC;
    p.mLastOrientationA = a;
    p.mLastOrientationB = b;
    p.mLastOrientationC = c;
    if (std::max({std::abs(da), std::abs(db), std::abs(dc)}) > kLargestTurn) return;
    const double zoom = std::max(p.mZoom.get(), 2.0);  // an enlarged view turns as far as the normal one
    if (std::abs(dc) > kSmallestTurn) {
        addYaw(p, toFloat(dc * zoom));
        p.mGliding = 1;
    }
    if (std::abs(da) > kSmallestTurn) {
        addPitch(p, toFloat(da * zoom));
        p.mGliding = 1;
    }
    if (p.mDrawMode == kDisc && isBeyondDisc(p)) switchDrawMode(controller, kCurved);
}

// Frames

void easeView(VR180TouchParams& p) {
    const bool gliding = p.mGliding != 0;
    p.mZoom = easeZoom(p.mZoom, p.mZoomTarget);
    p.mXAngle = easeStep(p.mXAngle, p.mXAngleTarget, gliding);
    p.mYAngle = easeStep(p.mYAngle, p.mYAngleTarget, gliding);
    p.mZAngle = easeStep(p.mZAngle, p.mZAngleTarget, gliding);
}

/// Swings the yaw from edge to edge.
void cruise(VR180TouchParams& p) {
    const double wanted = p.mYAngle + p.mCruiseStep;
    const double yaw = clampTo(wanted, kCruiseYaw);
    if (yaw != wanted) p.mCruiseStep = -p.mCruiseStep;
    p.mYAngleTarget = p.mYAngle = yaw;
}

/// So far round the cylinder that another degree would not count any more, whole turns are taken off.
void unwindYaw(VR180TouchParams& p) {
    if (std::abs(p.mYAngleTarget) <= kMostYaw) return;
    p.mYAngleTarget = std::fmod(p.mYAngleTarget, 360.0);
    p.mYAngle = std::fmod(p.mYAngle, 360.0);
}

void update(TouchController& controller) {
    VR180TouchParams& p = params(controller);
    {
        const LockSection section(controller.lock);
        unwindYaw(p);
        easeView(p);
        stepInto(p.mXAngleBounce, p.mXAngle);
        stepInto(p.mYAngleBounce, p.mYAngle);
        if (p.mCruising) cruise(p);
    }
    controller.owner->pushRotateZoom(controller, p.mXAngle, p.mYAngle, p.mZAngle, p.mZoom);
}

void startAutoCruise(TouchController& controller, double speed) {
    VR180TouchParams& p = params(controller);
    if (p.mDrawMode != kDisc && p.mDrawMode != kStretch && p.mDrawMode != kCurved) return;
    {
        const LockSection section(controller.lock);
        p.mCruising = 1;
        p.mXAngleTarget = p.mXAngle = 0.0;
        p.mYAngleTarget = p.mYAngle = 0.0;
        p.mCruiseStep = speed * kCruiseFactor;
    }
    switchDrawMode(controller, kCurved);
}

void stopAutoCruise(TouchController& controller) {
    VR180TouchParams& p = params(controller);
    p.mCruising = 0;
    p.mCruiseStep = 0.0;
}

// Draw mode and shape

void setDrawMode(TouchController& controller, int mode) {
    params(controller).mDrawMode = mode;
}

/// A shape's draw mode and zoom, and the targets of those screens that it turns aside.
struct ShapeView {
    int shape, drawMode;
    double zoom;
};

struct ScreenView {
    int shape, screen;
    double xAngle, yAngle, zoom;
};

constexpr ShapeView kShapeViews[] = {
    {FOVIX_SHAPE_SINGLE, kDisc, 1.0},
    {FOVIX_SHAPE_STRIP, kStretch, 1.0},
    {FOVIX_SHAPE_CYLINDER, kCylinder, 1.0},
    {FOVIX_SHAPE_FOUR_SCREENS, kCurved, kCurvedZoom},
    {FOVIX_SHAPE_LARGE_AND_TWO, kCurved, kCurvedZoom},
};

constexpr ScreenView kScreenViews[] = {
    {FOVIX_SHAPE_FOUR_SCREENS, 0, -20.0, -35.0, 15.0},
    {FOVIX_SHAPE_FOUR_SCREENS, 1, -20.0, 35.0, 15.0},
    {FOVIX_SHAPE_FOUR_SCREENS, 2, 35.0, -35.0, 15.0},
    {FOVIX_SHAPE_FOUR_SCREENS, 3, 35.0, 35.0, 15.0},
    {FOVIX_SHAPE_LARGE_AND_TWO, 0, 0.0, 0.0, kCurvedZoom},
    {FOVIX_SHAPE_LARGE_AND_TWO, 1, 0.0, -35.0, kCurvedZoom},
    {FOVIX_SHAPE_LARGE_AND_TWO, 2, 0.0, 35.0, kCurvedZoom},
};

void levelNow(VR180TouchParams& p) {
    p.mXAngle = p.mYAngle = p.mZAngle = 0.0;
}

void setShape(TouchController& controller, int shape) {
    VR180TouchParams& p = params(controller);
    const auto hasShape = [=](const ShapeView& view) { return view.shape == shape; };
    const auto* view = std::find_if(std::begin(kShapeViews), std::end(kShapeViews), hasShape);
    if (view == std::end(kShapeViews)) return;
    // The cylinder may have been turned round several times.
    const bool isUnrolled =
        p.mDrawMode == kCylinder && (view->drawMode == kDisc || view->drawMode == kStretch);
    p.mDrawMode = view->drawMode;
    setTargets(p, 0.0, 0.0, 0.0, view->zoom);
    if (isUnrolled) levelNow(p);
    for (const ScreenView& screen : kScreenViews) {
        if (screen.shape != shape || screen.screen != controller.screenIndex) continue;
        setTargets(p, screen.xAngle, screen.yAngle, 0.0, screen.zoom);
        p.mZoom = 1.0;  // every screen zooms in from the whole picture
        levelNow(p);
    }
}

// Targets in the picture and views from outside

/// A limit's share of a distance from the middle of the picture; none in a picture without size.
double shareOf(double limit, double distance, double half) {
    return half != 0.0 ? limit * distance / half : 0.0;
}

void displayTarget(TouchController& controller, int targetX, int targetY, int width, int height) {
    VR180TouchParams& p = params(controller);
    const PictureTarget target = locateTarget(targetX, targetY, width, height);
    if (p.mDrawMode != kCurved) return;
    const double limit = curvedLimit(p.mZoomTarget);
    printLine("xMax : %f, yMax : %f \n", limit, limit);
    const double newX = shareOf(limit, target.dx, target.cx), newY = shareOf(limit, target.dy, target.cy);
    printLine("xAngle : %f, yAngle : %f -> %f, %f\n", p.mXAngle.get(), p.mYAngle.get(), newX, newY);
    const LockSection section(controller.lock);
    p.mXAngleTarget = clampTo(newX, kPitchLimit);
    p.mYAngleTarget = clampTo(newY, kYawLimit);
}

void displayRect(TouchController& controller, int left, int top, int right, int bottom, int width,
                 int height) {
    displayTarget(controller, middleOf(left, right), middleOf(top, bottom), width, height);
}

/// What is read also moves one step on; without the lock.
void getPTZFor180VR(TouchController& controller, double* xAngle, double* yAngle, double* third,
                    double* zoom) {
    VR180TouchParams& p = params(controller);
    const bool gliding = p.mGliding != 0;
    if (xAngle) *xAngle = p.mXAngle = easeStep(p.mXAngle, p.mXAngleTarget, gliding);
    if (yAngle) *yAngle = p.mYAngle = easeStep(p.mYAngle, p.mYAngleTarget, gliding);
    if (third) *third = 3.0;
    if (zoom) *zoom = p.mZoom = easeZoom(p.mZoom, p.mZoomTarget);
}

void setPTZFor180VR(TouchController& controller, double xAngle, double yAngle, double zAngle, double zoom) {
    const LockSection section(controller.lock);
    switchDrawMode(controller, kCurved);
    setTargets(params(controller), clampTo(xAngle, kPitchLimit), clampTo(yAngle, kYawLimit), zAngle, zoom);
}

constexpr TouchControllerOperations kOperations = {
    .onTouchDown = onTouchDown,
    .onTouchUp = onTouchUp,
    .onTouchMove = onTouchMove,
    .onTouchPinch = TouchController_Ignore,
    .onTouchPinchScale = onTouchPinchScale,
    .onTouchFling = onTouchFling,
    .onAccelerometer = onAccelerometer,
    .onOrientation = onOrientation,
    .update = update,
    .autoAdjust = autoAdjust,
    .setDrawMode = setDrawMode,
    .setCameraMount = TouchController_Ignore,
    .setShape = setShape,
    .startAutoCruise = startAutoCruise,
    .stopAutoCruise = stopAutoCruise,
    .displayRect = displayRect,
    .displayTarget = displayTarget,
    .getPTZFor180VR = getPTZFor180VR,
    .setPTZFor180VR = setPTZFor180VR,
};
static_assert(hasTouchOperations(kOperations));

}  // namespace

ControllerPtr TouchController180VR_Create(OwnerPtr owner, int screenIndex) {
    return TouchController_Create(kOperations, std::make_unique<VR180TouchParams>(), std::move(owner),
                                  screenIndex);
}

}  // namespace fovix
