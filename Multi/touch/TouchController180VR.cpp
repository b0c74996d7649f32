#include "touch/TouchController180VR.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <utility>

#include "Fovix.h"
#include "base/Diagnostics.h"
#include "base/Easing.h"
#include "base/ProcessLock.h"
#include "touch/FrameTarget.h"
#include "touch/Gestures.h"
#include "view/RotateZoomView.h"

namespace fovix {

namespace {

constexpr int kDisc = FOVIX_180_DISC, kStretch = FOVIX_180_STRETCH, kCylinder = FOVIX_180_CYLINDER,
              kCurved = FOVIX_180_CURVED;
constexpr double kPitchLimit = 14.0, kYawLimit = 30.0;  ///< degrees at zoom 1
constexpr double kPitchGrowth = 1.4, kYawGrowth = 3.0;  ///< more per zoom while stretched
constexpr double kClosestZoom = 20.0;                   ///< the largest zoom of a pinch
constexpr double kCurvedZoom = 10.0;                    ///< the curved screen's normal zoom, and its smallest
constexpr double kStretchedSnapZoom = 2.0;  ///< up to here the stretched view returns to the whole frame

// How far the curved screen may be turned either way, degrees: at its normal zoom, and more at the closest.
constexpr double kCurvedReach = 40.0, kCurvedReachGrowth = 20.0;

// Where disc and curved screen change into each other: zooms of a pinch, and degrees that the disc is turned.
constexpr double kEnterCurved = 1.05, kLeaveCurved = 9.0;
constexpr double kDiscPitch = 30.0, kDiscYaw = 35.0;

constexpr float kAccelerometerFactor = 12.0f;  ///< degrees per unit
constexpr double kCruiseYaw = 40.0;            ///< degrees; a cruise turns back here
constexpr int kEdgeBounceFrames = 700;
constexpr double kThirdValue = 3.0;  ///< what getPTZFor180VR always stores between angles and zoom

VR180TouchParams& params(TouchController& controller) {
    return paramsOf<VR180TouchParams>(controller);
}

// Targets

/// The more the stretched frame is enlarged, the further it can be moved.
double grownLimit(const VR180TouchParams& p, double limit, double growth) {
    return p.mDrawMode == kStretch && p.mZoomTarget > 1.0 ? limit + growth * p.mZoomTarget : limit;
}

void addPitch(VR180TouchParams& p, double degrees) {
    turnTarget(p, p.mXAngleTarget, degrees, grownLimit(p, kPitchLimit, kPitchGrowth));
}

/// The cylinder turns around freely.
void addYaw(VR180TouchParams& p, double degrees) {
    const bool isFree = p.mDrawMode == kCylinder;
    turnTarget(p, p.mYAngleTarget, degrees, isFree ? kNoLimit : grownLimit(p, kYawLimit, kYawGrowth));
}

void turnView(VR180TouchParams& p, const DragTurn& turn) {
    addYaw(p, turn.yaw);
    addPitch(p, turn.pitch);
}

void setTargets(VR180TouchParams& p, double xAngle, double yAngle, double zAngle, double zoom) {
    p.mXAngleTarget = xAngle;
    p.mYAngleTarget = yAngle;
    p.mZAngleTarget = zAngle;
    p.mZoomTarget = zoom;
}

/// Level and centred, at the draw mode's normal zoom.
void resetTargets(VR180TouchParams& p) {
    setTargets(p, 0.0, 0.0, 0.0, p.mDrawMode == kCurved ? kCurvedZoom : 1.0);
}

/// Changes the draw mode of the handle and starts over in it.
void switchDrawMode(TouchController& controller, int mode) {
    controller.owner->switchDrawMode(mode);
    resetTargets(params(controller));
}

bool isBeyondDisc(const VR180TouchParams& p) {
    return std::abs(p.mYAngleTarget) > kDiscYaw || std::abs(p.mXAngleTarget) > kDiscPitch;
}

/// Degrees either way, within what a float holds.
double curvedLimit(double zoom) {
    const double growth = (zoom - kCurvedZoom) * kCurvedReachGrowth / (kClosestZoom - kCurvedZoom);
    return clampTo(growth + kCurvedReach, kLargestFloat);
}

// Touch

void onTouchDown(TouchController& controller, float x, float y) {
    VR180TouchParams& p = params(controller);
    {
        const LockSection section;
        p.mXAngleBounce.reset();
        p.mYAngleBounce.reset();
        p.mCruising = 0;
    }
    EasedView_OnTouchDown(controller, x, y);
}

void onTouchMove(TouchController& controller, float x, float y) {
    VR180TouchParams& p = params(controller);
    if (p.mPinching) return;
    turnView(p, dragTurn(p, x, y));
    EasedView_OnTouchUp(controller, x, y);
}

void onTouchPinchScale(TouchController& controller, float scale) {
    VR180TouchParams& p = params(controller);
    p.mPinching = 1;
    if (scale == 0.0f) return;
    const double zoom = p.mPinchStartZoom * scale;
    switch (p.mDrawMode) {
        case kCurved:
            p.mZoomTarget = std::clamp(zoom, kCurvedZoom, kClosestZoom);
            if (scale < 1.0f && p.mPinchStartZoom <= kCurvedZoom && zoom < kLeaveCurved) {
                switchDrawMode(controller, kDisc);
            }
            break;
        case kDisc:
            if (scale > 1.0f && zoom > kEnterCurved) switchDrawMode(controller, kCurved);
            break;
        case kStretch:
            p.mZoomTarget = std::clamp(zoom, kSmallestZoom, kClosestZoom);
            break;
        default:
            break;
    }
}

void onTouchFling(TouchController& controller, float velocityX, float velocityY) {
    VR180TouchParams& p = params(controller);
    turnView(p, flingTurn(velocityX, velocityY));
    p.mGliding = 1;
}

/// A view beyond the edge of the curved screen springs back to it.
void bounceToEdge(std::unique_ptr<BounceAnimator>& bounce, double angle, double target, double limit) {
    if (std::abs(angle) <= std::abs(target) || std::abs(target) < limit) return;
    bounce = std::make_unique<BounceAnimator>(angle, target, kEdgeBounceFrames);
}

void settleOnCurved(TouchController& controller) {
    VR180TouchParams& p = params(controller);
    if (p.mZoomTarget < kCurvedZoom) return;
    const LockSection section;
    const double limit = curvedLimit(p.mZoomTarget);
    const auto clampToEdge = [edge = toFloat(limit)](double angle) { return clampTo(angle, edge); };
    p.mYAngleTarget.change(clampToEdge);
    p.mXAngleTarget.change(clampToEdge);
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
            if (p.mZoomTarget <= kStretchedSnapZoom) resetTargets(p);
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

/// Turns by the turn of the device, and further above the zoom that would slow the view down.
void onOrientation(TouchController& controller, float a, float b, float c) {
    VR180TouchParams& p = params(controller);
    const auto turn = turnOfDevice(p, a, b, c);
    if (!turn) return;
    const double zoom = std::max(p.mZoom.get(), kFullSpeedZoom);
    if (turn->pan != 0.0f) addYaw(p, toFloat(turn->pan * zoom));
    if (turn->tilt != 0.0f) addPitch(p, toFloat(turn->tilt * zoom));
    if (turn->pan != 0.0f || turn->tilt != 0.0f) p.mGliding = 1;
    if (p.mDrawMode == kDisc && isBeyondDisc(p)) switchDrawMode(controller, kCurved);
}

// Frames

/// Swings the yaw from edge to edge.
void cruise(VR180TouchParams& p) {
    const double wanted = p.mYAngle + p.mCruiseStep;
    const double yaw = clampTo(wanted, kCruiseYaw);
    if (yaw != wanted) p.mCruiseStep.change(std::negate<>());
    p.mYAngleTarget = p.mYAngle = yaw;
}

/// Removes whole turns around the cylinder before the yaw loses precision.
void unwindYaw(VR180TouchParams& p) {
    if (std::abs(p.mYAngleTarget) <= kMostTurn) return;
    p.mYAngleTarget.change(withoutTurns);
    p.mYAngle.change(withoutTurns);
}

void update(TouchController& controller) {
    VR180TouchParams& p = params(controller);
    {
        const LockSection section;
        unwindYaw(p);
        easeView(p, kZoomStep);
        stepInto(p.mXAngleBounce, p.mXAngle);
        stepInto(p.mYAngleBounce, p.mYAngle);
        if (p.mCruising) cruise(p);
    }
    EasedView_Push(controller);
}

void startAutoCruise(TouchController& controller, double speed) {
    VR180TouchParams& p = params(controller);
    if (p.mDrawMode != kDisc && p.mDrawMode != kStretch && p.mDrawMode != kCurved) return;
    {
        const LockSection section;
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

/// The draw mode and the zoom that a shape starts with.
struct ShapeView {
    int shape, drawMode;
    double zoom;
};

/// Where one screen of a layout looks; degrees and factor.
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
    // The cylinder may have several turns, which must not unwind on the disc or the stretched frame.
    const bool isUnrolled =
        p.mDrawMode == kCylinder && (view->drawMode == kDisc || view->drawMode == kStretch);
    p.mDrawMode = view->drawMode;
    setTargets(p, 0.0, 0.0, 0.0, view->zoom);
    if (isUnrolled) levelNow(p);
    for (const ScreenView& screen : kScreenViews) {
        if (screen.shape != shape || screen.screen != controller.screenIndex) continue;
        setTargets(p, screen.xAngle, screen.yAngle, 0.0, screen.zoom);
        p.mZoom = 1.0;  // every screen zooms in from the whole frame
        levelNow(p);
    }
}

// Targets in the frame and views from the host

/// A limit in proportion to a distance from the centre of the frame; 0 in a frame without size.
double shareOf(double limit, double distance, double half) {
    return half != 0.0 ? limit * distance / half : 0.0;
}

void displayTarget(TouchController& controller, int targetX, int targetY, int width, int height) {
    VR180TouchParams& p = params(controller);
    const FrameTarget target = locateTarget(targetX, targetY, width, height);
    if (p.mDrawMode != kCurved) return;
    const double limit = curvedLimit(p.mZoomTarget);
    printLine("xMax : %f, yMax : %f \n", limit, limit);
    const double newX = shareOf(limit, target.dx, target.cx), newY = shareOf(limit, target.dy, target.cy);
    printLine("xAngle : %f, yAngle : %f -> %f, %f\n", p.mXAngle.get(), p.mYAngle.get(), newX, newY);
    const LockSection section;
    p.mXAngleTarget = clampTo(newX, kPitchLimit);
    p.mYAngleTarget = clampTo(newY, kYawLimit);
}

void displayRect(TouchController& controller, int left, int top, int right, int bottom, int width,
                 int height) {
    displayTarget(controller, middleOf(left, right), middleOf(top, bottom), width, height);
}

/// Reading moves the value by one step; without the lock.
void getPTZFor180VR(TouchController& controller, double* xAngle, double* yAngle, double* third,
                    double* zoom) {
    VR180TouchParams& p = params(controller);
    if (xAngle) *xAngle = easeAngle(p, p.mXAngle, p.mXAngleTarget);
    if (yAngle) *yAngle = easeAngle(p, p.mYAngle, p.mYAngleTarget);
    if (third) *third = kThirdValue;
    if (zoom) *zoom = easeZoomOf(p, kZoomStep);
}

void setPTZFor180VR(TouchController& controller, double xAngle, double yAngle, double zAngle, double zoom) {
    const LockSection section;
    switchDrawMode(controller, kCurved);
    setTargets(params(controller), clampTo(xAngle, kPitchLimit), clampTo(yAngle, kYawLimit), zAngle, zoom);
}

constexpr TouchControllerOperations kOperations = {
    .onTouchDown = onTouchDown,
    .onTouchUp = EasedView_OnTouchUp,
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
