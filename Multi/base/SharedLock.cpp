#include "base/SharedLock.h"

namespace fovix {

namespace {

std::recursive_mutex processLock;

}  // namespace

SharedLock::SharedLock() : mutex_(&processLock) {}

}  // namespace fovix
