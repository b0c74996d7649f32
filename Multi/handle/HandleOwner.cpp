#include "handle/HandleOwner.h"

#include <algorithm>

#include "handle/DisplayParameters.h"
#include "handle/FovixContext.h"
#include "handle/FovixHandle.h"

namespace fovix {

namespace {

class HandleOwner : public ViewOwner {
  public:
    explicit HandleOwner(VRHANDLE handle) : _handle(handle) {}

    SurfaceSize surfaceSize() const override {
        const ContextPtr context = contextOf(_handle);
        if (!context) return {};
        return {std::max(0, context->viewWidth.get()), std::max(0, context->viewHeight.get())};
    }

    void pushPTZ(const TouchController& from, double pan, double tilt, double zoom, double roll,
                 double ptzFifth) override {
        const ModelPtr model = modelOf(from);
        if (model) model->setPTZ(from.screenIndex, pan, tilt, zoom, roll, ptzFifth);
    }

    void pushRotateZoom(const TouchController& from, double xAngle, double yAngle, double zAngle,
                        double zoom) override {
        const ModelPtr model = modelOf(from);
        if (model) model->setRotateZoom(from.screenIndex, xAngle, yAngle, zAngle, zoom);
    }

    void switchDrawMode(int mode) override {
        withContext(_handle, [mode](FovixContext& context) { setDrawMode(context, mode); });
    }

  private:
    /// The model that the controller drives; null once the handle shows another display: a frame may still be
    /// stepping the controllers of the previous one.
    ModelPtr modelOf(const TouchController& controller) const {
        const ContextPtr context = contextOf(_handle);
        if (!context) return nullptr;
        const DisplayPtr display = context->display.load();
        const ControllerPtr& shown = display->controllers[static_cast<std::size_t>(controller.screenIndex)];
        return shown.get() == &controller ? display->model : nullptr;
    }

    const VRHANDLE _handle;
};

}  // namespace

OwnerPtr HandleOwner_Create(VRHANDLE handle) {
    return std::make_shared<HandleOwner>(handle);
}

}  // namespace fovix
