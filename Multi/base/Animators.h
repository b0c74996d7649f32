// Value animators: they carry a value to its end over several frames, one step per drawn frame.
//
// A glide starts fast and slows down until it lands; a bounce speeds up, falls back by a fifth of the way and
// returns. Neither knows time: the frame count given at creation only sets the speed. The owner steps an
// animator once a frame, writes mCurrent into the animated value and drops the animator when mDone is set.
#pragma once

namespace fovix {

/// The factor by which speeds are doubled all over the view control.
inline constexpr double kSpeedFactor = 2.0;

struct GlideAnimator {
    GlideAnimator(double start, double end, int frames);
    void step();

    double mStart, mEnd;                                 ///< value at creation and value to reach
    int mFrames;                                         ///< as given at creation
    double mCurrent;                                     ///< the animated value
    int mDone = 0;                                       ///< 1 once mCurrent has landed on mEnd
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

}  // namespace fovix
