// Value animators: they move a value to its end over several frames, one step per rendered frame.
//
// A glide starts fast and slows down until it lands; a bounce speeds up, falls back by a fifth of the way and
// returns. Neither knows time: the frame count given at creation only sets the speed. The owner of an
// animator calls stepInto once per frame.
#pragma once

#include <memory>
#include <optional>

namespace fovix {

/// Global speed multiplier of the view animations.
inline constexpr double kSpeedFactor = 2.0;

struct GlideAnimator {
    GlideAnimator(double start, double end, int frames);
    void step();

    double mStart, mEnd;                                 ///< value at creation and value to reach
    int mFrames;                                         ///< as given at creation
    double mCurrent;                                     ///< the animated value
    int mDone = 0;                                       ///< 1 once mCurrent has reached mEnd
    double mDeceleration, mSpeed, mMinSpeed, mMaxSpeed;  ///< per step; mSpeed is signed
};

struct BounceAnimator {
    BounceAnimator(double start, double end, int frames);
    void step();

    double mStart, mEnd;   ///< value at creation and value to reach
    double mReboundPoint;  ///< where the value falls back to after it first reached mEnd
    int mFrames;           ///< as given at creation
    double mCurrent;       ///< the animated value
    int mDone = 0;         ///< 1 one step after the value has come to rest
    double mBaseSpeed, mAcceleration, mSpeed, mMinSpeed, mMaxSpeed;  ///< per step; signed
    int mPhase = 0;  ///< 0 approach, 1 rebound, 2 return, 3 finished
};

/// Steps an animator and drops it when it is done. Returns it as it is after the step; nothing if none is
/// running.
template <class Animator>
std::optional<Animator> stepOnce(std::unique_ptr<Animator>& animator) {
    if (!animator) return std::nullopt;
    animator->step();
    const Animator stepped = *animator;
    if (stepped.mDone) animator.reset();
    return stepped;
}

/// Steps an animator and stores its value. Returns true if one was running.
template <class Animator, class Value>
bool stepInto(std::unique_ptr<Animator>& animator, Value& value) {
    const std::optional<Animator> stepped = stepOnce(animator);
    if (stepped) value = stepped->mCurrent;
    return stepped.has_value();
}

}  // namespace fovix
