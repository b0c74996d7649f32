#include "touch/TouchControllerOriginal.h"

#include <utility>

namespace fovix {

namespace {

constexpr FlatTouchKind kKind = {
    .pitchGrowth = 4.0, .pitchLimit = 60.0, .yawGrowth = 7.0, .yawLimit = 70.0, .zoomStep = kZoomStep};

/// Waits for a step that is being taken, so that the gesture starts from its result.
void onTouchDown(TouchController& controller, float x, float y) {
    { const LockSection section(controller.lock); }
    FlatTouch_OnTouchDown(controller, x, y);
}

void update(TouchController& controller) {
    {
        const LockSection section(controller.lock);
        easeView(paramsOf<OriginalTouchParams>(controller));
    }
    FlatTouch_PushView(controller);
}

void autoAdjust(TouchController& controller) {
    OriginalTouchParams& p = paramsOf<OriginalTouchParams>(controller);
    if (p.mZoomTarget > kSnapZoom) return;
    p.mZoomTarget = 1.0;
    clearTargets(p);
}

constexpr TouchControllerOperations kOperations = {
    .onTouchDown = onTouchDown,
    .onTouchUp = FlatTouch_OnTouchUp,
    .onTouchMove = FlatTouch_OnTouchMove,
    .onTouchPinch = FlatTouch_OnTouchPinch,
    .onTouchPinchScale = FlatTouch_OnTouchPinchScale,
    .onTouchFling = FlatTouch_OnTouchFling,
    .update = update,
    .autoAdjust = autoAdjust,
    .setDrawMode = TouchController_Ignore,
    .setCameraMount = TouchController_Ignore,
    .setShape = TouchController_Ignore,
};
static_assert(hasTouchOperations(kOperations));

}  // namespace

OriginalTouchParams::OriginalTouchParams() : FlatTouchParams(kKind, 20.0) {}

ControllerPtr TouchControllerOriginal_Create(OwnerPtr owner, int screenIndex) {
    return TouchController_Create(kOperations, std::make_unique<OriginalTouchParams>(), std::move(owner),
                                  screenIndex);
}

}  // namespace fovix
