#include "touch/TouchMotion360VR.h"

#include <cmath>

#include "base/AnimatorStep.h"
#include "touch/TouchLimits360VR.h"

namespace fovix {

namespace {

constexpr int kTransitionFrames = 2000, kBounceFrames = 800;

void startTransition(TouchController& controller, double zoom, double tilt) {
    VR360TouchParams& p = paramsOf360(controller);
    const LockSection section(controller.lock);
    p.mZoomGlide = std::make_unique<GlideAnimator>(p.mZoom, zoom, kTransitionFrames);
    p.mTiltGlide = std::make_unique<GlideAnimator>(p.mTilt, tilt, kTransitionFrames);
    p.mZooming = 1;
}

/// The strips and the layouts of several screens do not spin.
bool canSpin(const VR360TouchParams& p) {
    return isOnCeiling(p) && (p.mShape < FOVIX_SHAPE_STRIP || p.mShape > FOVIX_SHAPE_TWO_AND_STRIP);
}

/// A fling turns the pan by what is left of it or by the spin that it will leave, whichever is faster.
void advanceFling(VR360TouchParams& p) {
    p.mPanVelocity->step();
    const double left = p.mPanVelocity->mCurrent;
    const double spin = -(p.mPanVelocity->mSpeed * p.mFlingFactor);
    if (p.mPanVelocity->mDone) {
        p.mSpinVelocity = spin;
        p.mPanVelocity = nullptr;
    }
    p.mPan = p.mPan + (std::abs(spin) > std::abs(left) ? spin : left);
}

void advancePan(VR360TouchParams& p) {
    if (p.mPanVelocity) {
        advanceFling(p);
    } else if (p.mSpinVelocity != 0.0 && canSpin(p)) {
        p.mPan = p.mPan + p.mSpinVelocity;
    } else if (p.mCruising && isOnCeiling(p)) {
        p.mPan = p.mPan + p.mCruiseStep;
    }
}

}  // namespace

bool isTransitionRunning(TouchController& controller) {
    const VR360TouchParams& p = paramsOf360(controller);
    const LockSection section(controller.lock);
    return p.mZoomGlide || p.mTiltGlide || p.mZooming;
}

void stopMotion(TouchController& controller) {
    VR360TouchParams& p = paramsOf360(controller);
    const LockSection section(controller.lock);
    for (auto* glide : {&p.mPanGlide, &p.mTiltGlide, &p.mZoomGlide, &p.mTiltVelocity, &p.mPanVelocity}) {
        glide->reset();
    }
    p.mTiltBounce.reset();
    p.mSpinVelocity = 0.0;
    p.mCruising = 0;
}

void zoomInTransition(TouchController& controller) {
    startTransition(controller, kCloseZoom, kCloseTilt);
}

void zoomOutTransition(TouchController& controller) {
    startTransition(controller, kWideZoom, 0.0);
}

void tiltBounceBack(TouchController& controller) {
    VR360TouchParams& p = paramsOf360(controller);
    const double limit = maxTilt(p);
    if (p.mTilt <= limit) return;
    const LockSection section(controller.lock);
    p.mTiltVelocity.reset();
    p.mTiltBounce = std::make_unique<BounceAnimator>(p.mTilt, limit, kBounceFrames);
}

void advanceMotion(TouchController& controller) {
    VR360TouchParams& p = paramsOf360(controller);
    const LockSection section(controller.lock);
    stepInto(p.mPanGlide, p.mPan);
    if (!stepInto(p.mTiltGlide, p.mTilt)) stepInto(p.mTiltBounce, p.mTilt);
    if (stepInto(p.mZoomGlide, p.mZoom) && !p.mZoomGlide) p.mZooming = 0;
    double tiltStep = 0.0;
    if (stepInto(p.mTiltVelocity, tiltStep)) p.mTilt = p.mTilt + tiltStep;
    advancePan(p);
}

}  // namespace fovix
