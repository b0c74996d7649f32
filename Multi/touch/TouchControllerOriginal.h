// Touch for the single views: the plain frame and the Korvel lens.
#pragma once

#include "touch/FlatTouch.h"

namespace fovix {

struct OriginalTouchParams : FlatTouchParams {
    OriginalTouchParams();
};

ControllerPtr TouchControllerOriginal_Create(OwnerPtr owner, int screenIndex);

}  // namespace fovix
