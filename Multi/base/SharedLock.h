// The one recursive lock of the process.
//
// Contexts, touch controllers and models that change several fields at once each keep a SharedLock; all of
// them are the same lock. The thread that holds it may take it again and must release it as often.
// std::lock_guard works on it.
#pragma once

#include <mutex>

namespace fovix {

class SharedLock {
  public:
    SharedLock();

    void lock() { _mutex->lock(); }
    void unlock() { _mutex->unlock(); }

  private:
    std::recursive_mutex* _mutex;
};

using LockSection = std::lock_guard<SharedLock>;

}  // namespace fovix
