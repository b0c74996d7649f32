#include "SharedLock.h"

namespace fovix {

SharedLock::SharedLock() {
    static const auto processLock = std::make_shared<std::recursive_mutex>();
    mutex_ = processLock;
}

}  // namespace fovix
