// The one recursive lock of the process. It guards values of all handles that must change together.
#pragma once

namespace fovix {

/// Holds the lock while it lives. The thread that holds it may take it again.
class LockSection {
  public:
    LockSection();
    ~LockSection();
    LockSection(const LockSection&) = delete;
    LockSection& operator=(const LockSection&) = delete;
};

}  // namespace fovix
