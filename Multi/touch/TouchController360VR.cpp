#include "touch/TouchController360VR.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "base/Angles.h"
#include "base/Diagnostics.h"
#include "base/Numbers.h"
#include "base/ProcessLock.h"
#include "touch/FrameTarget.h"
#include "touch/Gestures.h"
#include "touch/TouchLimits360VR.h"
#include "touch/TouchMotion360VR.h"
#include "touch/TouchPinch360VR.h"

namespace fovix {

namespace {

/// Pixels: on a surface of this width, a drag of kTurnPixels turns by the field of view.
constexpr double kReferenceWidth = 1024.0, kTurnPixels = 360.0;

/// A fling of this speed, in pixels per second, runs out over kFlingFrames; others in proportion.
constexpr double kFlingSpeed = 3000.0, kFlingFrames = 1000.0;
constexpr int kLongestFling = 2000;   ///< frames
constexpr double kFlingSpin = 3.0;    ///< spin after kFlingFrames, in multiples of the fling's last step
constexpr double kFlingPart = 100.0;  ///< the part of its speed that a fling starts with, per frame

constexpr int kTargetFrames = 1000;         ///< frame count of the glide to a target
constexpr float kSensorFactor = 5.0f;       ///< degrees per unit of the accelerometer
constexpr double kOrientationFactor = 1.2;  ///< degrees of the view per degree of the device
constexpr int kLastShape = FOVIX_SHAPE_LARGE_AND_TWO;

bool isSingleOnCeiling(const VR360TouchParams& p) {
    return isOnCeiling(p) && p.mShape == FOVIX_SHAPE_SINGLE;
}

/// The bowl of a wall camera lies on its side, which exchanges its axes.
bool isWallBowl(const VR360TouchParams& p) {
    return p.mMount == FOVIX_MOUNT_WALL && p.mShape == FOVIX_SHAPE_BOWL;
}

/// Sets the view directly; non-finite values, from touches far off the surface, are ignored.
void setPTZ(TouchController& controller, double pan, double tilt, double zoom, double roll) {
    if (!allFinite(pan, tilt, zoom, roll)) return;
    VR360TouchParams& p = paramsOf360(controller);
    const LockSection section;
    stopMotion(controller);
    p.mPan = pan;
    p.mTilt = tilt;
    p.mZoom = zoom;
    p.mRoll = roll;
}

// Drags and flings

double degreesPerPixel(const TouchController& controller, double zoom) {
    const int width = controller.owner->surfaceSize().width;
    return kReferenceWidth / (width > 0 ? width : kReferenceWidth) * (zoom / kTurnPixels);
}

/// Under a ceiling, and on a wall camera's two strips and overview, a drag to the right turns to the left.
double dragDirection(int mount, int shape) {
    const bool isReversed = mount == FOVIX_MOUNT_CEILING ||
                            (mount == FOVIX_MOUNT_WALL &&
                             (shape == FOVIX_SHAPE_TWO_STRIPS || shape == FOVIX_SHAPE_OVERVIEW_FIVE));
    return isReversed ? -1.0 : 1.0;
}

void onTouchDown(TouchController& controller, float x, float y) {
    VR360TouchParams& p = paramsOf360(controller);
    stopMotion(controller);
    startDrag(p, x, y);
    p.mZoomAtDown = p.mZoom;
    p.mRollAtDown = p.mRoll;
    p.mTouchState = kTouched;
    p.mZoomGesture = 0;
    p.mTwisting = 0;
    p.mTwistFirst = 1;
    p.mTwistStartAngle = 0.0f;
    p.mZooming = 0;
    p.mPinchReference = -1.0;
}

void onTouchUp(TouchController& controller, float x, float y) {
    VR360TouchParams& p = paramsOf360(controller);
    p.mTouchState = kTouched;
    restartDrag(p, x, y);
}

void onTouchMove(TouchController& controller, float x, float y) {
    VR360TouchParams& p = paramsOf360(controller);
    if (isTransitionRunning(controller) || p.mZoomGesture) return;
    const double turn = dragDirection(p.mMount, p.mShape) * degreesPerPixel(controller, p.mZoom);
    const double dx = x - p.mDownX, dy = y - p.mDownY;
    if (isWallBowl(p)) {
        p.mTilt = p.mTiltAtDown - turn * dx;
        p.mPan = p.mPanAtDown - turn * dy;
    } else {
        p.mPan = p.mPanAtDown + turn * dx;
        p.mTilt = p.mTiltAtDown - turn * dy;
    }
}

void onTouchFling(TouchController& controller, float velocityX, float velocityY) {
    VR360TouchParams& p = paramsOf360(controller);
    if (isTransitionRunning(controller) || p.mZoomGesture || isWallBowl(p)) return;
    const LockSection section;
    const float fastest = std::max(std::abs(velocityX), std::abs(velocityY));
    const int reach = truncateToInt(fastest * kFlingFrames / kFlingSpeed);
    const int frames = std::min(reach, kLongestFling);
    p.mFlingFactor = std::max(reach * kFlingSpin / kFlingFrames, 1.0);
    const double perPixel = degreesPerPixel(controller, p.mZoom);
    p.mTiltVelocity = std::make_unique<GlideAnimator>(velocityY / kFlingPart * perPixel, 0.0, frames);
    p.mPanVelocity = std::make_unique<GlideAnimator>(-velocityX / kFlingPart * perPixel, 0.0, frames);
}

/// True if the end of a gesture moves the view of this screen to the rim of the hemisphere or to the close
/// view.
bool settles(const VR360TouchParams& p, int screen) {
    if (p.mMount == FOVIX_MOUNT_WALL) return p.mShape == FOVIX_SHAPE_OVERVIEW_FIVE;
    if (!isOnCeiling(p)) return false;
    if (p.mShape == FOVIX_SHAPE_TWO_AND_STRIP) return screen < 2;
    return p.mShape == FOVIX_SHAPE_SINGLE || p.mShape == FOVIX_SHAPE_FOUR_SCREENS ||
           p.mShape == FOVIX_SHAPE_OVERVIEW_FIVE;
}

void autoAdjust(TouchController& controller) {
    const VR360TouchParams& p = paramsOf360(controller);
    if (isTransitionRunning(controller) || !settles(p, controller.screenIndex)) return;
    if (wantsCloseView(p)) return zoomInTransition(controller);
    tiltBounceBack(controller);
}

// Sensors

/// Ignores non-finite readings.
void turnBy(Cell<double>& angle, double degrees) {
    if (std::isfinite(degrees)) angle.add(degrees);
}

void settleAfterSensor(TouchController& controller) {
    VR360TouchParams& p = paramsOf360(controller);
    if (!isSingleOnCeiling(p)) return;
    if (wantsCloseView(p)) return zoomInTransition(controller);
    p.mTilt.change([most = maxTilt(p)](double tilt) { return std::min(tilt, most); });
}

void onAccelerometer(TouchController& controller, float x, float y) {
    VR360TouchParams& p = paramsOf360(controller);
    turnBy(p.mPan, x * kSensorFactor);
    turnBy(p.mTilt, y * kSensorFactor);
    settleAfterSensor(controller);
}

/// Turns by the turn of the device.
void onOrientation(TouchController& controller, float a, float b, float c) {
    VR360TouchParams& p = paramsOf360(controller);
    const auto turn = turnOfDevice(p, a, b, c);
    if (!turn) return;
    if (turn->pan != 0.0f) turnBy(p.mPan, turn->pan * kOrientationFactor);
    if (turn->tilt != 0.0f) turnBy(p.mTilt, turn->tilt * kOrientationFactor);
    settleAfterSensor(controller);
}

// Mount, shape, cruise

void resetView(VR360TouchParams& p) {
    setView(p, touchStartView(viewOf(p), p.mMount, p.mShape));
}

void setCameraMount(TouchController& controller, int mount) {
    VR360TouchParams& p = paramsOf360(controller);
    if (mount < FOVIX_MOUNT_CEILING || mount > FOVIX_MOUNT_FLOOR || mount == p.mMount) return;
    p.mMount = mount;
    p.mShape = FOVIX_SHAPE_SINGLE;
    resetView(p);
}

void setShape(TouchController& controller, int shape) {
    if (shape < FOVIX_SHAPE_SINGLE || shape > kLastShape) return;
    VR360TouchParams& p = paramsOf360(controller);
    p.mShape = shape;
    resetView(p);
    const std::optional<View360VR> view = touchScreenView(shape, controller.screenIndex);
    if (!view) return;
    const LockSection section;
    setView(p, *view);
}

void startAutoCruise(TouchController& controller, double speed) {
    VR360TouchParams& p = paramsOf360(controller);
    if (!isOnCeiling(p)) return;
    p.mCruising = 1;
    p.mSpinVelocity = 0.0;
    p.mCruiseStep = speed * kCruiseFactor;
    if (isSingleOnCeiling(p)) zoomInTransition(controller);
}

void stopAutoCruise(TouchController& controller) {
    VR360TouchParams& p = paramsOf360(controller);
    p.mCruising = 0;
    p.mCruiseStep = 0.0;
}

// Targets in the frame

double length(double x, double y) {
    return std::sqrt(x * x + y * y);
}

/// Pans and tilts towards a point of the frame: its angle in degrees, counterclockwise from the right, its
/// distance from the centre and that of the corner. The pan does not take the shorter way.
void glideTo(TouchController& controller, double angle, double distance, double halfDiagonal) {
    VR360TouchParams& p = paramsOf360(controller);
    const LockSection section;
    p.mPanVelocity.reset();
    p.mSpinVelocity = 0.0;
    p.mCruising = 0;
    const double needRotate = 360.0 - (angle < 0.0 ? angle + 360.0 : angle);
    printLine("need roate : %f", needRotate);
    const double fromPan = truncateToInt(p.mPan) % 360;
    const double toPan = (truncateToInt(needRotate) % 360 + 180) % 360;
    printLine("fromPan : %f - > %f", fromPan, toPan);
    p.mPanGlide = std::make_unique<GlideAnimator>(fromPan, toPan, kTargetFrames);
    const bool hasSize = halfDiagonal > 0.0;
    const double toTilt = hasSize ? maxTilt(p) * distance / halfDiagonal : 0.0;
    p.mTiltGlide = std::make_unique<GlideAnimator>(p.mTilt, toTilt, kTargetFrames);
    printLine("fromTilt : %f - > %f", p.mTilt.get(), toTilt);
}

void displayTarget(TouchController& controller, int targetX, int targetY, int width, int height) {
    const VR360TouchParams& p = paramsOf360(controller);
    const FrameTarget target = locateTarget(targetX, targetY, width, height);
    // 0 - dy, not -dy: straight left is always 180 degrees, never -180.
    const double angle = toDegrees(std::atan2(0.0 - target.dy, target.dx));
    const double distance = length(target.dx, target.dy), halfDiagonal = length(target.cx, target.cy);
    printLine("pan : %f, tilt : %f -> angle : %f, distance = %f\n", p.mPan.get(), p.mTilt.get(), angle,
              distance);
    glideTo(controller, angle, distance, halfDiagonal);
}

void displayRect(TouchController& controller, int left, int top, int right, int bottom, int width,
                 int height) {
    displayTarget(controller, middleOf(left, right), middleOf(top, bottom), width, height);
}

/// The view is limited and pushed without the lock.
void update(TouchController& controller) {
    VR360TouchParams& p = paramsOf360(controller);
    const double roll = p.mRoll, ptzFifth = p.mPtzFifth;
    advanceMotion(controller);
    clampView(p);
    controller.owner->pushPTZ(controller, p.mPan, p.mTilt, p.mZoom, roll, ptzFifth);
}

constexpr TouchControllerOperations kOperations = {
    .setPTZ = setPTZ,
    .onTouchDown = onTouchDown,
    .onTouchUp = onTouchUp,
    .onTouchMove = onTouchMove,
    .onTouchPinch = TouchPinch360VR_OnTouchPinch,
    .onTouchPinchScale = TouchPinch360VR_OnTouchPinchScale,
    .onTouchFling = onTouchFling,
    .onAccelerometer = onAccelerometer,
    .onOrientation = onOrientation,
    .update = update,
    .autoAdjust = autoAdjust,
    .setDrawMode = TouchController_Ignore,
    .setCameraMount = setCameraMount,
    .setShape = setShape,
    .startAutoCruise = startAutoCruise,
    .stopAutoCruise = stopAutoCruise,
    .displayRect = displayRect,
    .displayTarget = displayTarget,
};
static_assert(hasTouchOperations(kOperations));

}  // namespace

ControllerPtr TouchController360VR_Create(OwnerPtr owner, int screenIndex) {
    auto params = std::make_unique<VR360TouchParams>();
    resetView(*params);
    return TouchController_Create(kOperations, std::move(params), std::move(owner), screenIndex);
}

}  // namespace fovix
