#include "touch/TouchControllerSinglePIP.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <functional>
#include <utility>

#include "base/Diagnostics.h"
#include "base/Numbers.h"
#include "base/ProcessLock.h"
#include "model/FovixModelSinglePIP.h"
#include "touch/FrameTarget.h"
#include "touch/Gestures.h"
#include "view/RotateZoomView.h"

namespace fovix {

namespace {

constexpr int kViewGlideFrames = 500;

/// Limits of the offsets, model units: at its limit the main view ends at the frame's left or right edge.
constexpr ZoomCurve kLimitX = {0.0, kSinglePipDistance, 0.88f, kInsetLargestZoom};
constexpr ZoomCurve kLimitY = {0.0, 0.0, 0.15f, kInsetLargestZoom};

/// Share of the range that a drag over the whole surface moves. Along the small vertical range it counts
/// three times.
constexpr ZoomCurve kDragSpeed = {1.0, 0.5, 0.2, kInsetLargestZoom};
constexpr double kVerticalSpeed = 3.0;

/// The inset takes touches from these quarters of a square surface to its right and lower edge.
constexpr int kInsetLeft = 1, kInsetTop = 3, kQuarters = 4;

/// Parts of the surface's width: touches in the inset between them reach the whole range.
constexpr float kInsetStart = 0.45f, kInsetEnd = 0.85f;

/// Views that a host sets are clamped to this, so that products with a surface size or a drag stay finite.
constexpr double kHostLimit = 1e30;

SinglePIPTouchParams& params(TouchController& controller) {
    return paramsOf<SinglePIPTouchParams>(controller);
}

/// A limit may be negative, at zooms that only a host can set.
double within(double value, double limit) {
    return clampTo(value, std::abs(limit));
}

/// Half the share of its range that an offset takes; an empty range has only its middle.
double relativeOffset(double offset, double limit) {
    return limit == 0.0 ? 0.0 : offset / (2.0 * limit) * 0.5;
}

/// A position as a share of a size; the middle if there is no size.
double shareOf(double place, double size) {
    return size > 0.0 ? place / size : 0.5;
}

/// The horizontal limit in the proportions of a surface; one without width counts as square.
double limitOnSurface(double limit, int height, int width) {
    return width > 0 ? limit * height / width : limit;
}

void pushView(TouchController& controller) {
    const SinglePIPTouchParams& p = params(controller);
    controller.owner->pushRotateZoom(controller, p.mCurOffsetX, p.mOffsetY, kSinglePipDistance, p.mZoom);
}

std::unique_ptr<GlideAnimator> startGlide(double from, double to) {
    auto animator = std::make_unique<GlideAnimator>(from, to, kViewGlideFrames);
    animator->step();
    return animator;
}

/// Centres the view on a point of an area of across × down pixels.
void locateView(TouchController& controller, float x, float y, int across, int down, bool animate) {
    SinglePIPTouchParams& p = params(controller);
    {
        const LockSection section;
        p.mOffsetAnimator.reset();
        p.mCruising = 0;
        const double limitX = limitOnSurface(offsetLimitX(p.mZoom), down, across);
        p.mOffsetX = -limitX + shareOf(x, across) * (2.0 * limitX);
        p.mRelativeX = relativeOffset(p.mOffsetX, limitX);
        const double limitY = offsetLimitY(p.mZoom);
        p.mOffsetY = shareOf(y, down) * (2.0 * limitY) - limitY;
        p.mRelativeY = relativeOffset(p.mOffsetY, limitY);
        printLine("---> curMinOffsetX = %f , curMaxOffsetX = %f, pParams->mOffsetX = %f, x= %f", -limitX,
                  limitX, p.mOffsetX.get(), static_cast<double>(x));
        if (animate) p.mOffsetAnimator = startGlide(p.mCurOffsetX, p.mOffsetX);
        p.mCurOffsetX = animate ? p.mOffsetAnimator->mCurrent : p.mOffsetX.get();
    }
    pushView(controller);
}

/// Aims the main view at the point that a touch in the inset shows. Only the horizontal position follows the
/// finger.
void pipTouch(TouchController& controller, float x, int surfaceWidth, bool animate) {
    SinglePIPTouchParams& p = params(controller);
    const float place = insetToSurface(x, surfaceWidth);
    p.mLastX = place;
    locateView(controller, place, p.mLastY, surfaceWidth, surfaceWidth, animate);
}

bool isInInset(const SinglePIPTouchParams& p, float x, float y, const SurfaceSize& surface) {
    const int top = static_cast<int>(std::int64_t{kInsetTop} * surface.height / kQuarters);
    const int left = kInsetLeft * surface.width / kQuarters;
    return p.mDrawMode != 0 && surface.width == surface.height && y >= static_cast<float>(top) &&
           x >= static_cast<float>(left);
}

void onTouchDown(TouchController& controller, float x, float y) {
    SinglePIPTouchParams& p = params(controller);
    const SurfaceSize surface = controller.owner->surfaceSize();
    if (isInInset(p, x, y, surface)) {
        p.mTouchTarget = kTouchInset;
        pipTouch(controller, x, surface.width, true);
    } else {
        p.mTouchTarget = kTouchMainView;
    }
    p.mLastX = x;
    p.mLastY = y;
}

void onTouchUp(TouchController& controller, float x, float y) {
    SinglePIPTouchParams& p = params(controller);
    p.mLastX = x;
    p.mLastY = y;
    if (!p.mPinching) return;
    p.mPinching = 0;
    p.mPinchStartDistance = 0.0;
}

double limitOffset(Cell<double>& offset, double limit) {
    return offset.change([=](double value) { return within(value, limit); });
}

double moveOffset(Cell<double>& offset, double moved, double limit) {
    return offset.change([=](double value) { return within(value - moved, limit); });
}

/// Moves the main view by the larger component of a drag; a surface without pixels ignores drags.
void dragMainView(SinglePIPTouchParams& p, double dx, double dy, const SurfaceSize& surface) {
    const double zoom = p.mZoom, speed = dragSpeed(zoom);
    if (std::abs(dx) > std::abs(dy)) {
        const double limit = limitOnSurface(offsetLimitX(zoom), surface.height, surface.width);
        const int shorter = std::min(surface.width, surface.height);
        const double moved = shorter > 0 ? dx * speed / shorter * (2.0 * limit) : 0.0;
        const double offset = moveOffset(p.mOffsetX, moved, limit);
        p.mCurOffsetX = offset;
        p.mRelativeX = relativeOffset(offset, limit);
    } else {
        const double limit = offsetLimitY(zoom);
        const double moved =
            surface.height > 0 ? dy * speed / surface.height * (2.0 * limit) * kVerticalSpeed : 0.0;
        p.mRelativeY = relativeOffset(moveOffset(p.mOffsetY, moved, limit), limit);
    }
}

void onTouchMove(TouchController& controller, float x, float y) {
    SinglePIPTouchParams& p = params(controller);
    if (p.mPinching) return;
    const SurfaceSize surface = controller.owner->surfaceSize();
    switch (p.mTouchTarget) {
        case kTouchMainView:
            dragMainView(p, dragDistance(p.mLastX, x), dragDistance(p.mLastY, y), surface);
            pushView(controller);
            p.mLastX = x;
            p.mLastY = y;
            break;
        case kTouchInset:
            pipTouch(controller, x, surface.width, false);
            break;
        default:
            printLine("__onTouchMove_singlePIP Error!\n");
    }
}

/// Zoom of a pinch. From a common start point any distance is infinitely larger.
double pinchZoom(double distance, double startZoom, double startDistance) {
    if (startDistance > 0.0) return distance * startZoom / startDistance;
    return distance > 0.0 ? kInsetLargestZoom : startZoom;
}

void onTouchPinch(TouchController& controller, float x1, float y1, float x2, float y2) {
    SinglePIPTouchParams& p = params(controller);
    const auto distance = static_cast<float>(fingerDistance(x1, y1, x2, y2));
    if (!p.mPinching) {
        p.mPinching = 1;
        p.mPinchStartZoom = p.mZoom;
        p.mPinchStartDistance = distance;
        return;
    }
    controller.owner->surfaceSize();  // prints a released owner's line; the pinch goes on
    const double zoom = pinchZoom(distance, p.mPinchStartZoom, p.mPinchStartDistance);
    p.mZoom = std::clamp(zoom, kSmallestZoom, kInsetLargestZoom);
    const double limitX = offsetLimitX(p.mZoom), limitY = offsetLimitY(p.mZoom);
    const double offset = limitOffset(p.mCurOffsetX, limitX);
    p.mOffsetX = offset;
    p.mRelativeX = relativeOffset(offset, limitX);
    p.mRelativeY = relativeOffset(limitOffset(p.mOffsetY, limitY), limitY);
    pushView(controller);
}

/// One step of a cruise from an offset; it turns back at the ends of the range.
double cruiseOn(SinglePIPTouchParams& p, double offset) {
    const double moved = offset + p.mCruiseStep, reached = within(moved, offsetLimitX(p.mZoom));
    if (reached != moved) p.mCruiseStep.change(std::negate<>());
    return reached;
}

void update(TouchController& controller) {
    SinglePIPTouchParams& p = params(controller);
    double offset = 0.0;
    bool hasOffset = false;
    {
        const LockSection section;
        hasOffset = stepInto(p.mOffsetAnimator, offset);
        stepInto(p.mZoomAnimator, p.mZoom);
        if (p.mCruising) {
            offset = cruiseOn(p, hasOffset ? offset : p.mCurOffsetX.get());
            hasOffset = true;
        }
    }
    if (!hasOffset || offset == p.mCurOffsetX) return;
    p.mCurOffsetX = offset;
    pushView(controller);
}

void setDrawMode(TouchController& controller, int mode) {
    params(controller).mDrawMode = mode;
}

void startAutoCruise(TouchController& controller, double speed) {
    SinglePIPTouchParams& p = params(controller);
    const LockSection section;
    p.mCruising = 1;
    p.mOffsetX = p.mCurOffsetX = 0.0;
    p.mCruiseStep = speed * kCruiseFactor;
}

void stopAutoCruise(TouchController& controller) {
    SinglePIPTouchParams& p = params(controller);
    p.mCruising = 0;
    p.mCruiseStep = 0.0;
}

/// Scales a position from a frame to the surface; pixels, truncated toward zero.
int onSurface(int surfaceSize, int place, int frameSize) {
    return saturateToInt(std::int64_t{surfaceSize} * place / frameSize);
}

void displayRect(TouchController& controller, int left, int top, int right, int bottom, int width,
                 int height) {
    SinglePIPTouchParams& p = params(controller);
    const SurfaceSize surface = controller.owner->surfaceSize();
    if (width == 0 || height == 0) return;
    const int x1 = onSurface(surface.width, left, width), x2 = onSurface(surface.width, right, width);
    const int y1 = onSurface(surface.height, top, height), y2 = onSurface(surface.height, bottom, height);
    const int centreX = std::clamp(middleOf(x1, x2), 0, surface.width), centreY = middleOf(y1, y2);
    const double rectHeight = std::abs(static_cast<double>(y2) - y1);
    p.mZoomTarget = zoomForRect(rectHeight, surface.height);
    {
        const LockSection section;
        p.mZoomAnimator = startGlide(p.mZoom, p.mZoomTarget);
        p.mZoom = p.mZoomAnimator->mCurrent;
    }
    locateView(controller, static_cast<float>(centreX), static_cast<float>(centreY), surface.width,
               surface.height, true);
}

void getViewOffset(TouchController& controller, double* first, double* second) {
    const SinglePIPTouchParams& p = params(controller);
    writeIfWanted(first, p.mRelativeX);
    writeIfWanted(second, p.mRelativeY);
}

void setRotateZoom(TouchController& controller, double xOffset, double yOffset, double, double zoom) {
    SinglePIPTouchParams& p = params(controller);
    p.mOffsetX = p.mCurOffsetX = within(xOffset, kHostLimit);
    p.mOffsetY = within(yOffset, kHostLimit);
    p.mZoom = within(zoom, kHostLimit);
}

float getRelativeXOffset(TouchController& controller) {
    const SinglePIPTouchParams& p = params(controller);
    const double limit = std::abs(offsetLimitX(p.mZoom));
    if (limit == 0.0) return 0.0f;
    return toFloat(p.mCurOffsetX / limit);
}

constexpr TouchControllerOperations kOperations = {
    .onTouchDown = onTouchDown,
    .onTouchUp = onTouchUp,
    .onTouchMove = onTouchMove,
    .onTouchPinch = onTouchPinch,
    .onTouchPinchScale = TouchController_Ignore,
    .onTouchFling = TouchController_Ignore,
    .update = update,
    .setDrawMode = setDrawMode,
    .startAutoCruise = startAutoCruise,
    .stopAutoCruise = stopAutoCruise,
    .displayRect = displayRect,
    .displayTarget = TouchController_Ignore,
    .getViewOffset = getViewOffset,
    .setRotateZoom = setRotateZoom,
    .getRelativeXOffset = getRelativeXOffset,
};
static_assert(hasTouchOperations(kOperations));

}  // namespace

double offsetLimitX(double zoom) {
    return kLimitX.at(zoom);
}

double offsetLimitY(double zoom) {
    return kLimitY.at(zoom);
}

double dragSpeed(double zoom) {
    return kDragSpeed.at(zoom);
}

float insetToSurface(float x, int surfaceWidth) {
    if (surfaceWidth <= 0) return 0.0f;
    const auto across = static_cast<float>(surfaceWidth);
    const float left = across * kInsetStart;
    if (x < left) return 0.0f;
    return std::min((x - left) * across / (across * kInsetEnd - left), across);
}

double zoomForRect(double rectHeight, double surfaceHeight) {
    constexpr double kHalfZoom = 3.0;  // for half of the surface
    const double quarter = surfaceHeight * 0.25, half = surfaceHeight * 0.5, most = surfaceHeight * 4.0 / 5.0;
    const auto between = [=](double from, double fromZoom, double to, double toZoom) {
        return fromZoom - (rectHeight - from) * (fromZoom - toZoom) / (to - from);
    };
    if (rectHeight < quarter) return kInsetLargestZoom;
    if (rectHeight < half) return between(quarter, kInsetLargestZoom, half, kHalfZoom);
    if (rectHeight < most) return between(half, kHalfZoom, most, 1.0);
    return 1.0;
}

ControllerPtr TouchControllerSinglePIP_Create(OwnerPtr owner, int screenIndex) {
    return TouchController_Create(kOperations, std::make_unique<SinglePIPTouchParams>(), std::move(owner),
                                  screenIndex);
}

}  // namespace fovix
