#include "handle/Steering.h"

#include "base/Diagnostics.h"
#include "base/Numbers.h"
#include "handle/DisplayParameters.h"
#include "view/OverviewAim.h"

namespace fovix {

namespace {

/// Returns whether the touch began on the part of a multi-view layout that aims the selected view.
bool isOnOverview(int shape, int currentScreen) {
    if (shape == FOVIX_SHAPE_OVERVIEW_FIVE) return currentScreen == 0;
    return shape == FOVIX_SHAPE_TWO_AND_STRIP && currentScreen >= 2;
}

/// A touch on the overview screen or the strip of a multi-view layout aims the selected view; returns whether
/// it did.
bool aimAtTouch(FovixContext& context, float x, float y, bool adjust) {
    const DisplayPtr display = context.display.load();
    FovixModel& model = *display->model;
    const int shape = model.getShape(kNone), selected = model.getSelectedScreen(kNone);
    double zoom = 0.0, roll = 0.0;
    if (!isOnOverview(shape, context.currentScreen)) return false;
    if (!model.getPTZ(selected, nullptr, nullptr, &zoom, &roll)) return false;
    TouchController* target = controllerAt(*display, selected);
    if (!target || !target->canBeAimed()) return false;
    if (adjust) return target->autoAdjust();
    const int width = context.backingWidth, height = context.backingHeight;
    const AimedView aim = shape == FOVIX_SHAPE_OVERVIEW_FIVE ? aimOnOverview(x, y, width, height)
                                                             : aimOnStrip(x, y, zoom, width, height);
    return target->setPTZ(aim.pan, aim.tilt, zoom, roll);
}

/// The panorama looks at a point or a rectangle through its one large screen.
void showSingleScreen(FovixContext& context) {
    const int shape = context.display.load()->model->getShape(kNone);
    if (shape != FOVIX_SHAPE_SINGLE) setShape(context, FOVIX_SHAPE_SINGLE);
}

}  // namespace

TouchController* controllerAt(const Display& display, int screen) {
    if (screen < 0 || screen >= kScreenCount) return nullptr;
    return display.controllers[static_cast<std::size_t>(screen)].get();
}

void touchDown(FovixContext& context, float x, float y) {
    const DisplayPtr display = context.display.load();
    context.currentScreen = display->model->selectScreen(truncateToInt(x), truncateToInt(y), 0);
    if (!aimAtTouch(context, x, y, false)) callCurrent(context, &TouchController::onTouchDown, x, y);
}

void touchMove(FovixContext& context, float x, float y) {
    if (!aimAtTouch(context, x, y, false)) callCurrent(context, &TouchController::onTouchMove, x, y);
}

void autoAdjust(FovixContext& context) {
    if (!aimAtTouch(context, 0.0f, 0.0f, true)) callCurrent(context, &TouchController::autoAdjust);
}

void startAutoCruise(FovixContext& context, double speed) {
    const DisplayPtr display = context.display.load();
    TouchController* selected = controllerAt(*display, display->model->getSelectedScreen(kNone));
    if (selected && selected->startAutoCruise(speed)) return;
    forEachController(*display, &TouchController::startAutoCruise, speed);
}

void displayRect(FovixContext& context, int left, int top, int right, int bottom, int width, int height) {
    if (left >= right || top >= bottom) return printLine("Fovix_DisplayRect, point info error!");
    const int type = context.display.load()->type;
    if (type != FOVIX_TYPE_360VR && type != FOVIX_TYPE_180VR && type != FOVIX_TYPE_SINGLE_PIP) {
        return printLine("current type is not support -> [%d]!\n", type);
    }
    if (type == FOVIX_TYPE_360VR) showSingleScreen(context);
    const DisplayPtr display = context.display.load();
    const int screen = type == FOVIX_TYPE_SINGLE_PIP ? 0 : context.currentScreen.get();
    TouchController* controller = controllerAt(*display, screen);
    if (controller) controller->displayRect(left, top, right, bottom, width, height);
}

void displayTarget(FovixContext& context, int targetX, int targetY, int width, int height) {
    printLine("Fovix_DisplayTarget(targetX: %d, targetY: %d, w: %d, h:%d)\n", targetX, targetY, width,
              height);
    const int type = context.display.load()->type;
    if (type != FOVIX_TYPE_360VR && type != FOVIX_TYPE_180VR) {
        return printLine("current type is not support -> [%d]!\n", type);
    }
    if (type == FOVIX_TYPE_360VR) showSingleScreen(context);
    callCurrent(context, &TouchController::displayTarget, targetX, targetY, width, height);
}

}  // namespace fovix
