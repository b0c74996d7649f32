#include "touch/TouchControllerOriginal.h"

#include <utility>

#include "base/Easing.h"
#include "base/ProcessLock.h"

namespace fovix {

namespace {

constexpr FlatTouchKind kKind = {.pitchGrowth = 4.0,
                                 .pitchBase = 60.0,
                                 .yawGrowth = 7.0,
                                 .yawBase = 70.0,
                                 .zoomStep = kZoomStep,
                                 .zoomMax = 20.0};

/// Waits for a running update to finish.
void onTouchDown(TouchController& controller, float x, float y) {
    { const LockSection section; }
    FlatTouch_OnTouchDown(controller, x, y);
}

void update(TouchController& controller) {
    {
        const LockSection section;
        easeFlatView(paramsOf<OriginalTouchParams>(controller));
    }
    EasedView_Push(controller);
}

void autoAdjust(TouchController& controller) {
    OriginalTouchParams& p = paramsOf<OriginalTouchParams>(controller);
    if (p.mZoomTarget > kFlatSnapZoom) return;
    p.mZoomTarget = 1.0;
    clearTargets(p);
}

constexpr TouchControllerOperations kOperations = {
    .onTouchDown = onTouchDown,
    .onTouchUp = EasedView_OnTouchUp,
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

OriginalTouchParams::OriginalTouchParams() : FlatTouchParams(kKind) {}

ControllerPtr TouchControllerOriginal_Create(OwnerPtr owner, int screenIndex) {
    return TouchController_Create(kOperations, std::make_unique<OriginalTouchParams>(), std::move(owner),
                                  screenIndex);
}

}  // namespace fovix
