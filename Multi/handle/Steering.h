// How gestures and commands reach the controllers of a handle. Any thread, without the lock.
#pragma once

#include "handle/FovixContext.h"

namespace fovix {

/// The controller of a screen; null where there is none.
TouchController* controllerAt(const Display& display, int screen);

/// Calls a member of the controller that the last touch-down chose.
template <class Operation, class... Arguments>
void callCurrent(FovixContext& context, Operation TouchController::*operation, Arguments... arguments) {
    const DisplayPtr display = context.display.load();
    TouchController* controller = controllerAt(*display, context.currentScreen);
    if (controller) (controller->*operation)(arguments...);
}

/// Selects the screen under the finger, then does what touchMove does. Pixels from the top left.
void touchDown(FovixContext& context, float x, float y);

/// Aims the selected view if the touch began on an overview or a strip, else calls the controller of the
/// screen that touchDown selected.
void touchMove(FovixContext& context, float x, float y);

/// The gesture is over: the view that it moved settles.
void autoAdjust(FovixContext& context);

/// Starts the cruise of the selected screen, or of all where the type has no selected one.
void startAutoCruise(FovixContext& context, double speed);

/// Shows a rectangle or a point of the frame, width x height pixels, in one screen; prints a line for types
/// that cannot.
void displayRect(FovixContext& context, int left, int top, int right, int bottom, int width, int height);
void displayTarget(FovixContext& context, int targetX, int targetY, int width, int height);

}  // namespace fovix
