#include "base/ProcessLock.h"

#include <mutex>

namespace fovix {

namespace {

std::recursive_mutex processLock;

}  // namespace

LockSection::LockSection() {
    processLock.lock();
}

LockSection::~LockSection() {
    processLock.unlock();
}

}  // namespace fovix
