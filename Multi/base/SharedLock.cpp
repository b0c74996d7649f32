#include "base/SharedLock.h"

namespace fovix {

namespace {

std::recursive_mutex processLock;

}  // namespace

SharedLock::SharedLock() : _mutex(&processLock) {}

}  // namespace fovix
