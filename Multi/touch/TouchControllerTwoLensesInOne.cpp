#include "touch/TouchControllerTwoLensesInOne.h"

#include <algorithm>
#include <utility>

#include "base/ProcessLock.h"

namespace fovix {

namespace {

constexpr FlatTouchKind kKind = {.pitchGrowth = 5.0,
                                 .pitchBase = 75.0,
                                 .yawGrowth = 12.0,
                                 .yawBase = 120.0,
                                 .zoomStep = 0.18,
                                 .zoomMax = 10.0};

/// Zooming in changes the lens this early, so that the pan has settled when the other half appears.
constexpr double kZoomAhead = 0.5;

TwoLensesTouchParams& params(TouchController& controller) {
    return paramsOf<TwoLensesTouchParams>(controller);
}

/// Centres at once, without easing.
void centrePan(TwoLensesTouchParams& p) {
    clearTargets(p);
    p.mXAngle = p.mYAngle = 0.0;
}

void recentre(TouchController& controller) {
    TwoLensesTouchParams& p = params(controller);
    const LockSection section;
    centrePan(p);
    p.mZoomTarget = std::min<double>(1.0, p.mZoomMax);
}

void recentreForHost(TouchController& controller, int) {
    recentre(controller);
}

void autoAdjust(TouchController& controller) {
    if (params(controller).mZoomTarget <= kFlatSnapZoom) recentre(controller);
}

void setLogicZoom(TouchController& controller, double min, double max, double div, double zoom) {
    TwoLensesTouchParams& p = params(controller);
    p.mZoomDiv = div;
    p.mZoomMin = std::max(min, 1.0);
    p.mZoomTarget = zoom;
    p.mZoomMax = max;
}

void update(TouchController& controller) {
    {
        TwoLensesTouchParams& p = params(controller);
        const LockSection section;
        easeFlatView(p);
        if (crossesLensThreshold(p.mPrevZoom, p.mZoom, p.mZoomDiv)) centrePan(p);
        p.mPrevZoom = p.mZoom;
    }
    EasedView_Push(controller);
}

constexpr TouchControllerOperations kOperations = {
    .onTouchDown = FlatTouch_OnTouchDown,
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
    .setRotateZoom = TouchController_Ignore,
    .setLogicZoom = setLogicZoom,
    .setTwoLensesDrawMode = recentreForHost,
    .setTwoLensesScreen = recentreForHost,
};
static_assert(hasTouchOperations(kOperations));

}  // namespace

TwoLensesTouchParams::TwoLensesTouchParams() : FlatTouchParams(kKind) {}

bool crossesLensThreshold(double previousZoom, double zoom, double zoomDiv) {
    const bool zoomsOut = previousZoom > zoomDiv && zoomDiv >= zoom;
    const bool zoomsIn = previousZoom <= zoomDiv - kZoomAhead && zoomDiv - kZoomAhead < zoom;
    return zoomsOut || zoomsIn;
}

ControllerPtr TouchControllerTwoLensesInOne_Create(OwnerPtr owner, int screenIndex) {
    return TouchController_Create(kOperations, std::make_unique<TwoLensesTouchParams>(), std::move(owner),
                                  screenIndex);
}

}  // namespace fovix
