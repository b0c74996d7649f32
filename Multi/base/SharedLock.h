// The one recursive lock of the process.
//
// Every context, every touch controller and every model that changes several fields at once open it and keep
// a handle of their own, so that whoever holds it excludes all the others. The thread that holds it may take
// it again and releases it as often. lock() and unlock() make a SharedLock usable with std::lock_guard.
#pragma once

#include <mutex>

namespace fovix {

class SharedLock {
  public:
    /// Opens the process's lock.
    SharedLock();

    void lock() { mutex_->lock(); }
    void unlock() { mutex_->unlock(); }

  private:
    std::recursive_mutex* mutex_;
};

using LockSection = std::lock_guard<SharedLock>;

}  // namespace fovix
