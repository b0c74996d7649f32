#include "base/Animators.h"

#include <algorithm>
#include <utility>

namespace fovix {

namespace {

/// Every ten frames make the steps shorter; fewer than ten, or none, leave the whole way as one step.
double stepCount(int frames) {
    return std::max(frames, 0) / 10 + 1;
}

/// Moves the value by speed; true once it stands on target. A speed too small to move it, and what is no
/// number, land at once, so that no animation runs for ever.
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
    mMinSpeed = step / 5.0;
    mMaxSpeed = step * kSpeedFactor;
    if (!(step > 0.0)) std::swap(mMinSpeed, mMaxSpeed);
    mDeceleration = step / 50.0;
    mSpeed = step * 5.0;
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
    mReboundPoint = end - delta / 5.0;
    mBaseSpeed = mSpeed = (delta + delta * kSpeedFactor / 5.0) / stepCount(frames);
    mAcceleration = mBaseSpeed / 10.0;
    mMinSpeed = mBaseSpeed / 10.0;
    mMaxSpeed = mBaseSpeed * 1.5;
    if (!(mBaseSpeed > 0.0)) std::swap(mMinSpeed, mMaxSpeed);
}

void BounceAnimator::step() {
    // Each of the three ways: where it leads, the direction that the speed has on it, the change of speed per
    // step (in accelerations) and the speed that the next way begins with.
    struct Way {
        double from, target, direction, gain, nextSpeed;
    };
    const Way ways[] = {
        {mStart, mEnd, 1.0, 1.0, mBaseSpeed + mAcceleration},
        {mEnd, mReboundPoint, -1.0, -1.2, mBaseSpeed * 0.5},
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
