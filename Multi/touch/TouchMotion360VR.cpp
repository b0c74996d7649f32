#include "touch/TouchMotion360VR.h"

#include <cmath>
#include <optional>

#include "base/ProcessLock.h"
#include "touch/TouchLimits360VR.h"

namespace fovix {

namespace {

// Frame counts of the animators.
constexpr int kTransitionFrames = 2000, kTiltBounceFrames = 800;

void startTransition(TouchController& controller, double zoom, double tilt) {
    VR360TouchParams& p = paramsOf360(controller);
    const LockSection section;
    p.mZoomGlide = std::make_unique<GlideAnimator>(p.mZoom, zoom, kTransitionFrames);
    p.mTiltGlide = std::make_unique<GlideAnimator>(p.mTilt, tilt, kTransitionFrames);
    p.mZooming = 1;
}

/// The strips and the layouts of several screens do not spin.
bool canSpin(const VR360TouchParams& p) {
    return isOnCeiling(p) && (p.mShape < FOVIX_SHAPE_STRIP || p.mShape > FOVIX_SHAPE_TWO_AND_STRIP);
}

/// Degrees that the pan turns by in this frame, if it turns by itself. A fling turns it by what is left of
/// the fling or by the spin that it will leave, whichever is faster.
std::optional<double> panStep(VR360TouchParams& p) {
    if (const auto fling = stepOnce(p.mPanVelocity)) {
        const double left = fling->mCurrent, spin = -(fling->mSpeed * p.mFlingFactor);
        if (fling->mDone) p.mSpinVelocity = spin;
        return std::abs(spin) > std::abs(left) ? spin : left;
    }
    if (p.mSpinVelocity != 0.0 && canSpin(p)) return p.mSpinVelocity.get();
    if (p.mCruising && isOnCeiling(p)) return p.mCruiseStep.get();
    return std::nullopt;
}

}  // namespace

bool isTransitionRunning(TouchController& controller) {
    const VR360TouchParams& p = paramsOf360(controller);
    const LockSection section;
    return p.mZoomGlide || p.mTiltGlide || p.mZooming;
}

void stopMotion(TouchController& controller) {
    VR360TouchParams& p = paramsOf360(controller);
    const LockSection section;
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
    const LockSection section;
    p.mTiltVelocity.reset();
    p.mTiltBounce = std::make_unique<BounceAnimator>(p.mTilt, limit, kTiltBounceFrames);
}

void advanceMotion(TouchController& controller) {
    VR360TouchParams& p = paramsOf360(controller);
    const LockSection section;
    stepInto(p.mPanGlide, p.mPan);
    if (!stepInto(p.mTiltGlide, p.mTilt)) stepInto(p.mTiltBounce, p.mTilt);
    if (stepInto(p.mZoomGlide, p.mZoom) && !p.mZoomGlide) p.mZooming = 0;
    double tiltStep = 0.0;
    if (stepInto(p.mTiltVelocity, tiltStep)) p.mTilt.add(tiltStep);
    if (const auto step = panStep(p)) p.mPan.add(*step);
}

}  // namespace fovix
