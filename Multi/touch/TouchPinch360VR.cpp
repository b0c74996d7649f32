#include "touch/TouchPinch360VR.h"

#include <algorithm>
#include <cmath>

#include "base/Angles.h"
#include "touch/Gestures.h"
#include "touch/TouchMotion360VR.h"

namespace fovix {

namespace {

constexpr double kNearFingers = 250.0;  ///< pixels; fingers that start closer only zoom
constexpr double kSpread = 1.2;         ///< fingers that spread more than this zoom

// A twist: the finger distance stays within this part of the first one while the line turns by more degrees.
constexpr double kTwistSpread = 0.1;
constexpr float kTwistAngle = 10.0f;

// Under a ceiling: where a pinch changes to the wide or to the close view.
constexpr double kFastClosing = 0.8,
                 kFastOpening = 1.2;  ///< finger distance over that of the previous sample
constexpr double kTowardsWide = 70.0, kNearerThanClose = 15.0;  ///< degrees of field of view

/// Finger distance over an earlier one; 1 if the fingers had met.
double fingerRatio(double distance, double before) {
    return before > 0.0 ? distance / before : 1.0;
}

/// Field of view after a pinch; positive and finite for any ratio, until the next frame limits it.
double pinchedZoom(double zoomAtDown, double ratio) {
    constexpr double kNarrowest = 1e-6, kWidest = 1e6;
    return ratio > 0.0 ? std::clamp(zoomAtDown / ratio, kNarrowest, kWidest) : kWidest;
}

/// Direction of the line from the first finger to the second, degrees.
float fingerAngle(float x1, float y1, float x2, float y2) {
    const double radians = std::atan2(dragDistance(y1, y2), dragDistance(x1, x2));
    return static_cast<float>(toDegrees(radians));
}

void startSample(VR360TouchParams& p, float x2, float y2) {
    if (p.mTouchState == kTouched) {
        p.mPinchReference = -1.0;
        p.mZoomAtDown = p.mZoom;
    } else {
        restartDrag(p, x2, y2);
    }
    p.mTouchState = kPinched;
}

/// Later distances are compared with the first one above 0.
void takeReference(VR360TouchParams& p, double distance) {
    if (p.mPinchReference > 0.0) return;
    p.mPinchReference = distance;
    p.mPinchLastDistance = distance;
    if (distance < kNearFingers) p.mZoomGesture = 1;
}

/// Recognises a twist: the line between the fingers turns while their distance stays about the same.
void followTwist(VR360TouchParams& p, float angle, double ratio) {
    if (p.mZoomGesture) {
        p.mTwistAngle = 0.0f;
    } else if (p.mTwistFirst) {
        p.mTwistFirst = 0;
        p.mTwistStartAngle = angle;
    } else {
        p.mTwistAngle = angle;
        const bool isSameDistance = ratio > 1.0 - kTwistSpread && ratio < 1.0 + kTwistSpread;
        if (isSameDistance && std::abs(angle - p.mTwistStartAngle) > kTwistAngle) p.mTwisting = 1;
    }
}

/// The zoom follows the fingers; under a ceiling a pinch past a threshold glides to the wide or to the close
/// view instead. step is the finger distance over that of the previous sample.
void zoomTo(TouchController& controller, double zoom, double step) {
    VR360TouchParams& p = paramsOf360(controller);
    if (!isOnCeiling(p)) {
        p.mZoom = zoom;
        return;
    }
    p.mZoomGesture = 1;
    const bool isWidening = zoom > p.mZoomAtDown && zoom > kTowardsWide;
    const bool isOpening = step > kFastOpening;
    if (isWidening || step < kFastClosing) return zoomOutTransition(controller);
    if (isOpening && zoom > kNearerThanClose) return zoomInTransition(controller);
    p.mZoom = zoom;
    if (isOpening) tiltBounceBack(controller);
}

/// The layout of an overview and five screens keeps its zooms.
bool takesPinches(TouchController& controller) {
    return !isTransitionRunning(controller) && paramsOf360(controller).mShape != FOVIX_SHAPE_OVERVIEW_FIVE;
}

}  // namespace

void TouchPinch360VR_OnTouchPinch(TouchController& controller, float x1, float y1, float x2, float y2) {
    if (!takesPinches(controller)) return;
    VR360TouchParams& p = paramsOf360(controller);
    startSample(p, x2, y2);
    const double distance = fingerDistance(x1, y1, x2, y2);
    takeReference(p, distance);
    const double ratio = fingerRatio(distance, p.mPinchReference);
    const double step = fingerRatio(distance, p.mPinchLastDistance);
    p.mPinchLastDistance = distance;
    if (!p.mTwisting && ratio > kSpread) p.mZoomGesture = 1;
    followTwist(p, fingerAngle(x1, y1, x2, y2), ratio);
    if (p.mTwisting) p.mRoll = (p.mTwistAngle - p.mTwistStartAngle) + p.mRollAtDown;
    zoomTo(controller, p.mTwisting ? p.mZoomAtDown.get() : pinchedZoom(p.mZoomAtDown, ratio), step);
}

void TouchPinch360VR_OnTouchPinchScale(TouchController& controller, float scale) {
    if (!(scale > 0.0f) || !takesPinches(controller)) return;
    VR360TouchParams& p = paramsOf360(controller);
    if (!p.mZoomGesture) {
        p.mZoomGesture = 1;
        p.mZoomAtDown = p.mZoom;
        p.mPinchReference = -1.0;
    }
    if (p.mPinchReference < 0.0) p.mPinchReference = scale;
    const double step = fingerRatio(scale, p.mPinchReference);
    p.mPinchReference = scale;
    zoomTo(controller, pinchedZoom(p.mZoomAtDown, scale), step);
}

}  // namespace fovix
