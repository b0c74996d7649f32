#include "touch/TouchControllerSinglePIP.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

#include "base/AnimatorStep.h"
#include "base/Diagnostics.h"
#include "base/Numbers.h"
#include "model/FovixModelSinglePIP.h"
#include "touch/Gestures.h"
#include "touch/PictureTarget.h"

namespace fovix {

namespace {

constexpr double kOffsetAtOne = 0.715f;                ///< horizontal limit at zoom 1
constexpr double kOffsetGrowth = 0.16500002145767212;  ///< and what it gains up to zoom 5
constexpr double kOffsetYGrowth = 0.15f;
constexpr double kLargestZoom = 5.0;
constexpr int kGlideFrames = 500;
constexpr double kCruisePerSpeed = 0.2;

/// A view that a host sets is kept within this, so that no product with a surface size or a drag overflows.
constexpr double kHostLimit = 1e30;

SinglePIPTouchParams& params(TouchController& controller) {
    return paramsOf<SinglePIPTouchParams>(controller);
}

double within(double value, double limit) {
    const double bound = std::abs(limit);
    return std::clamp(value, -bound, bound);
}

/// Offset as a share of its range; an empty range has its middle only.
double relativeOffset(double offset, double limit) {
    return limit == 0.0 ? 0.0 : offset / (2.0 * limit) * 0.5;
}

/// Place within a size as a share of it; the middle of what has no size.
double shareOf(double place, double size) {
    return size > 0.0 ? place / size : 0.5;
}

/// The horizontal range on a surface of this shape; one without width counts as square.
double limitOnSurface(double limit, int height, int width) {
    return width > 0 ? limit * height / width : limit;
}

void pushView(TouchController& controller) {
    const SinglePIPTouchParams& p = params(controller);
    controller.owner->pushRotateZoom(controller, p.mCurOffsetX, p.mOffsetY, kSinglePipDistance, p.mZoom);
}

std::unique_ptr<GlideAnimator> startGlide(double from, double to) {
    auto animator = std::make_unique<GlideAnimator>(from, to, kGlideFrames);
    animator->step();
    return animator;
}

/// Centres the view on a point of a frame of across × down pixels.
void locateView(TouchController& controller, float x, float y, int across, int down, bool animate) {
    SinglePIPTouchParams& p = params(controller);
    {
        const LockSection section(controller.lock);
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

/// Aims the main view at the place that a touch in the inset shows. Only the horizontal place follows the
/// finger.
void pipTouch(TouchController& controller, float x, int surfaceWidth, bool animate) {
    SinglePIPTouchParams& p = params(controller);
    const float place = insetToSurface(x, surfaceWidth);
    p.mLastX = place;
    locateView(controller, place, p.mLastY, surfaceWidth, surfaceWidth, animate);
}

bool isInInset(const SinglePIPTouchParams& p, float x, float y, const SurfaceSize& surface) {
    const int top = static_cast<int>(std::int64_t{3} * surface.height / 4), left = surface.width / 4;
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

/// Moves the main view by the larger part of a drag; a surface without pixels measures no drag.
void dragMainView(SinglePIPTouchParams& p, double dx, double dy, const SurfaceSize& surface) {
    const double zoom = p.mZoom, speed = dragSpeed(zoom);
    if (std::abs(dx) > std::abs(dy)) {
        const double limit = limitOnSurface(offsetLimitX(zoom), surface.height, surface.width);
        const int shorter = std::min(surface.width, surface.height);
        const double moved = shorter > 0 ? dx * speed / shorter * (2.0 * limit) : 0.0;
        p.mOffsetX = within(p.mOffsetX - moved, limit);
        p.mCurOffsetX = p.mOffsetX;
        p.mRelativeX = relativeOffset(p.mOffsetX, limit);
    } else {
        const double limit = offsetLimitY(zoom);
        const double moved = surface.height > 0 ? dy * speed / surface.height * (2.0 * limit) * 3.0 : 0.0;
        p.mOffsetY = within(p.mOffsetY - moved, limit);
        p.mRelativeY = relativeOffset(p.mOffsetY, limit);
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

/// Zoom of a pinch. Fingers that began on one point have not moved apart or are infinitely farther apart.
double pinchZoom(double distance, double startZoom, double startDistance) {
    if (startDistance > 0.0) return distance * startZoom / startDistance;
    return distance > 0.0 ? kLargestZoom : startZoom;
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
    p.mZoom = std::clamp(zoom, kSmallestZoom, kLargestZoom);
    const double limitX = offsetLimitX(p.mZoom), limitY = offsetLimitY(p.mZoom);
    p.mCurOffsetX = within(p.mCurOffsetX, limitX);
    p.mOffsetX = p.mCurOffsetX;
    p.mRelativeX = relativeOffset(p.mOffsetX, limitX);
    p.mOffsetY = within(p.mOffsetY, limitY);
    p.mRelativeY = relativeOffset(p.mOffsetY, limitY);
    pushView(controller);
}

/// One step of a cruise from an offset; turns round at the ends of the range.
double cruiseOn(SinglePIPTouchParams& p, double offset) {
    const double moved = offset + p.mCruiseStep, reached = within(moved, offsetLimitX(p.mZoom));
    if (reached != moved) p.mCruiseStep = -p.mCruiseStep;
    return reached;
}

void update(TouchController& controller) {
    SinglePIPTouchParams& p = params(controller);
    double offset = 0.0;
    bool hasOffset = false;
    {
        const LockSection section(controller.lock);
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
    const LockSection section(controller.lock);
    p.mCruising = 1;
    p.mOffsetX = p.mCurOffsetX = 0.0;
    p.mCruiseStep = speed * kCruisePerSpeed;
}

void stopAutoCruise(TouchController& controller) {
    SinglePIPTouchParams& p = params(controller);
    p.mCruising = 0;
    p.mCruiseStep = 0.0;
}

/// A place in a picture of so many pixels, on a surface; truncated toward zero.
int onSurface(int surfaceSize, int place, int pictureSize) {
    return saturateToInt(std::int64_t{surfaceSize} * place / pictureSize);
}

void displayRect(TouchController& controller, int left, int top, int right, int bottom, int width,
                 int height) {
    SinglePIPTouchParams& p = params(controller);
    const SurfaceSize surface = controller.owner->surfaceSize();
    if (width == 0 || height == 0) return;  // no picture, no rectangle in it
    const int x1 = onSurface(surface.width, left, width), x2 = onSurface(surface.width, right, width);
    const int y1 = onSurface(surface.height, top, height), y2 = onSurface(surface.height, bottom, height);
    const int centreX = std::clamp(middleOf(x1, x2), 0, surface.width), centreY = middleOf(y1, y2);
    const double rectHeight = std::abs(static_cast<double>(y2) - y1);
    p.mZoomTarget = zoomForRect(rectHeight, surface.height);
    {
        const LockSection section(controller.lock);
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
    constexpr double kLargest = std::numeric_limits<float>::max();
    const SinglePIPTouchParams& p = params(controller);
    const double limit = std::abs(offsetLimitX(p.mZoom));
    if (limit == 0.0) return 0.0f;
    return static_cast<float>(within(p.mCurOffsetX / limit, kLargest));
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
    if (zoom == 1.0) return kOffsetAtOne;
    if (zoom < 1.0) return (zoom - 0.25) * kOffsetAtOne / 0.75;
    return kOffsetAtOne + (zoom - 1.0) * kOffsetGrowth * 0.25;
}

double offsetLimitY(double zoom) {
    return zoom > 1.0 ? (zoom - 1.0) * kOffsetYGrowth * 0.25 : 0.0;
}

double dragSpeed(double zoom) {
    if (zoom == 1.0) return 0.5;
    if (zoom < 1.0) return 1.0 - (zoom - 0.25) * 0.5 / 0.75;
    return 0.5 - (zoom - 1.0) * 0.3 * 0.25;
}

float insetToSurface(float x, int surfaceWidth) {
    if (surfaceWidth <= 0) return 0.0f;
    const auto across = static_cast<float>(surfaceWidth);
    const float left = across * 0.45f;
    if (x < left) return 0.0f;
    return std::min((x - left) * across / (across * 0.85f - left), across);
}

double zoomForRect(double rectHeight, double surfaceHeight) {
    const double quarter = surfaceHeight * 0.25, half = surfaceHeight * 0.5, most = surfaceHeight * 4.0 / 5.0;
    if (rectHeight < quarter) return 5.0;
    if (rectHeight < half) return 5.0 - (rectHeight - quarter) * 2.0 / (half - quarter);
    if (rectHeight < most) return 3.0 - (rectHeight - half) * 2.0 / (most - half);
    return 1.0;
}

ControllerPtr TouchControllerSinglePIP_Create(OwnerPtr owner, int screenIndex) {
    return TouchController_Create(kOperations, std::make_unique<SinglePIPTouchParams>(), std::move(owner),
                                  screenIndex);
}

}  // namespace fovix
