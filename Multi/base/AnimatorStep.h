// How a controller steps the animators that it owns, under its lock.
#pragma once

#include <memory>

namespace fovix {

/// One frame of an animation: hands its value on and drops it when it has landed. Gives whether one was
/// running.
template <class Animator, class Value>
bool stepInto(std::unique_ptr<Animator>& animator, Value& value) {
    if (!animator) return false;
    animator->step();
    value = animator->mCurrent;
    if (animator->mDone) animator.reset();
    return true;
}

}  // namespace fovix
