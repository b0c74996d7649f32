#include "touch/TouchController.h"

#include <utility>

namespace fovix {

ControllerPtr TouchController_Create(const TouchControllerOperations& operations,
                                     std::unique_ptr<ControllerParams> params, OwnerPtr owner,
                                     int screenIndex) {
    auto controller = std::make_shared<TouchController>();
    controller->owner = std::move(owner);
    controller->screenIndex = screenIndex;
    controller->params = std::move(params);
    controller->operations = operations;
    return controller;
}

}  // namespace fovix
