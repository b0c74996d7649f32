#include "touch/TouchController.h"

#include <utility>

#include "handle/FovixContext.h"

namespace fovix {

ControllerPtr TouchController_Create(const TouchControllerOperations& operations,
                                     std::unique_ptr<ControllerParams> params, VRHANDLE owner,
                                     int screenIndex) {
    auto controller = std::make_shared<TouchController>();
    controller->owner = owner;
    controller->screenIndex = screenIndex;
    controller->params = std::move(params);
    controller->operations = operations;
    return controller;
}

ModelPtr TouchController_Model(const TouchController& controller) {
    const ContextPtr context = contextOf(controller.owner);
    if (!context) return nullptr;
    const DisplayPtr display = context->display.load();
    const bool isShown =
        display->controllers[static_cast<std::size_t>(controller.screenIndex)].get() == &controller;
    return isShown ? display->model : nullptr;
}

void TouchController_PushRotateZoom(const TouchController& controller, double xAngle, double yAngle,
                                    double zAngle, double zoom) {
    const ModelPtr model = TouchController_Model(controller);
    if (!model || !model->operations.setRotateZoom) return;
    model->operations.setRotateZoom(*model, controller.screenIndex, xAngle, yAngle, zAngle, zoom);
}

}  // namespace fovix
