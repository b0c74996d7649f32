#include "base/Animators.h"

#include <algorithm>
#include <utility>

namespace fovix {

namespace {

// Speeds of a glide, from the mean step: the way divided by the number of steps. It starts fast, so that the
// view answers at once, and lands softly.
constexpr double kFirstStep = 5.0;     ///< mean steps
constexpr double kSlowestPart = 5.0;   ///< the slowest step is a mean one divided by this
constexpr double kBrakingPart = 50.0;  ///< every step loses a mean one divided by this

/// A bounce falls back by this part of the way.
constexpr double kReboundPart = 5.0;

// Speeds of a bounce, from its base speed: the whole way, rebound included, divided by the number of steps.
constexpr double kGainPart = 10.0;     ///< every step gains the base speed divided by this
constexpr double kLeastPart = 10.0;    ///< the slowest step is the base speed divided by this
constexpr double kFastest = 1.5;       ///< base speeds
constexpr double kReboundGain = -1.2;  ///< what a step of the rebound gains, in gains of the approach
constexpr double kReturnSpeed = 0.5;   ///< base speeds with which the return begins

/// Every ten frames shorten the steps; below ten the whole way is one step.
double stepCount(int frames) {
    return std::max(frames, 0) / 10 + 1;
}

/// Moves the value by speed; returns true once it has reached target. A step too small to change the value,
/// or NaN, ends the animation.
bool advance(double& value, double speed, double target, bool rising) {
    const double before = value;
    value += speed;
    const bool onTheWay = rising ? value < target : value > target;
    if (onTheWay && value != before) return false;
    value = target;
    return true;
}

}  // namespace

GlideAnimator::GlideAnimator(double start, double end, int frames)
    : mStart(start), mEnd(end), mFrames(frames), mCurrent(start) {
    const double step = (end - start) / stepCount(frames);
    mMinSpeed = step / kSlowestPart;
    mMaxSpeed = step * kSpeedFactor;
    if (!(step > 0.0)) std::swap(mMinSpeed, mMaxSpeed);
    mDeceleration = step / kBrakingPart;
    mSpeed = step * kFirstStep;
}

void GlideAnimator::step() {
    if (advance(mCurrent, mSpeed, mEnd, mEnd > mStart)) {
        mDone = 1;
        return;
    }
    mSpeed = std::max(std::min(mSpeed - mDeceleration, mMaxSpeed), mMinSpeed);
}

BounceAnimator::BounceAnimator(double start, double end, int frames)
    : mStart(start), mEnd(end), mFrames(frames), mCurrent(start) {
    const double delta = end - start;
    mReboundPoint = end - delta / kReboundPart;
    // The whole way leads there, back by the rebound and there again.
    mBaseSpeed = mSpeed = (delta + delta * 2.0 / kReboundPart) / stepCount(frames);
    mAcceleration = mBaseSpeed / kGainPart;
    mMinSpeed = mBaseSpeed / kLeastPart;
    mMaxSpeed = mBaseSpeed * kFastest;
    if (!(mBaseSpeed > 0.0)) std::swap(mMinSpeed, mMaxSpeed);
}

void BounceAnimator::step() {
    // The ways of the three phases: where each leads, the direction that the speed has on it, the change of
    // speed per step (in accelerations) and the speed that the next way begins with.
    struct Way {
        double from, target, direction, gain, nextSpeed;
    };
    const Way ways[] = {
        {mStart, mEnd, 1.0, 1.0, mBaseSpeed + mAcceleration},
        {mEnd, mReboundPoint, -1.0, kReboundGain, mBaseSpeed * kReturnSpeed},
        {mReboundPoint, mEnd, 1.0, 1.0, mBaseSpeed + mAcceleration},
    };
    if (mPhase < 0 || mPhase > 2) {
        mCurrent = mEnd;
        mDone = 1;
        return;
    }
    const Way& way = ways[mPhase];
    if (advance(mCurrent, way.direction * mSpeed, way.target, way.target > way.from)) {
        mSpeed = way.nextSpeed;
        ++mPhase;
        return;
    }
    mSpeed = std::min(std::max(mSpeed + way.gain * mAcceleration, mMinSpeed), mMaxSpeed);
}

}  // namespace fovix
