// The touch controller: turns one screen's gestures, sensor input and pan-tilt-zoom commands into a view,
// animates it and pushes it into the model once per rendered frame.
//
// The library reaches every kind through one table of 26 operations; a kind leaves null what it does not
// support. Callers use the members of TouchController, which test the slot; implementations may assume a
// controller of their own kind. The kinds are listed in DisplayTypes.cpp.
#pragma once

#include <memory>

#include "base/Operations.h"
#include "touch/ViewOwner.h"

namespace fovix {

struct TouchController;

/// In the order of the table; every operation takes the controller first. A line names who calls it and for
/// which controllers: an export runs on the host's thread, a rendered frame on the GL thread, both without
/// the lock. "Current" is the controller of the screen under the last touch-down; "all" are called in the
/// order of the screens. Nothing is returned unless the line says so. Positions are surface pixels from the
/// top left; angles are degrees.
struct TouchControllerOperations {
    /// Optional. Touches on an overview, the selected screen: its view; zoom is the field of view.
    void (*setPTZ)(TouchController&, double pan, double tilt, double zoom, double roll) = nullptr;
    /// Mandatory. Fovix_OnTouchDown, current: a gesture begins.
    void (*onTouchDown)(TouchController&, float x, float y) = nullptr;
    /// Mandatory. Fovix_OnTouchUp, current: a finger leaves the surface; another one may stay.
    void (*onTouchUp)(TouchController&, float x, float y) = nullptr;
    /// Mandatory. Fovix_OnTouchMove, current: the finger drags.
    void (*onTouchMove)(TouchController&, float x, float y) = nullptr;
    /// Mandatory. Fovix_OnTouchPinch, current: positions of two fingers.
    void (*onTouchPinch)(TouchController&, float x1, float y1, float x2, float y2) = nullptr;
    /// Mandatory. Fovix_OnTouchPinchScale, current: finger distance over that at the start of the pinch.
    void (*onTouchPinchScale)(TouchController&, float scale) = nullptr;
    /// Mandatory. Fovix_OnTouchFling, current: speed of the finger that left, pixels per second.
    void (*onTouchFling)(TouchController&, float velocityX, float velocityY) = nullptr;
    /// Optional. Fovix_OnAccelerometer, current: sensor readings; the kind sets the degrees per unit.
    void (*onAccelerometer)(TouchController&, float x, float y) = nullptr;
    /// Optional. Fovix_OnOrientation, current: angles of the device.
    void (*onOrientation)(TouchController&, float a, float b, float c) = nullptr;
    /// Mandatory. Rendered frame, visible screens: makes one animation step and pushes the view.
    void (*update)(TouchController&) = nullptr;
    /// Optional. Fovix_AutoAdjust, current (on an overview: the selected screen): the gesture is over.
    void (*autoAdjust)(TouchController&) = nullptr;
    /// Optional. Fovix_SetDrawMode and switchDrawMode, all, before the model: FOVIX_180_...
    void (*setDrawMode)(TouchController&, int mode) = nullptr;
    /// Optional. Fovix_SetCameraMount, all, before the model: FOVIX_MOUNT_...
    void (*setCameraMount)(TouchController&, int mount) = nullptr;
    /// Optional. Fovix_SetShape, all, after the model: FOVIX_SHAPE_...
    void (*setShape)(TouchController&, int shape) = nullptr;
    /// Optional. Fovix_StartAutoCruise, the selected screen or all: moves by 0.2 * speed per frame.
    void (*startAutoCruise)(TouchController&, double speed) = nullptr;
    /// Optional. Fovix_StopAutoCruise, all: the view stays where it is.
    void (*stopAutoCruise)(TouchController&) = nullptr;
    /// Optional. Fovix_DisplayRect, current: a rectangle to show, in pixels of a frame of width x height.
    void (*displayRect)(TouchController&, int left, int top, int right, int bottom, int width,
                        int height) = nullptr;
    /// Optional. Fovix_DisplayTarget, current: a point to show, in pixels of a frame of width x height.
    void (*displayTarget)(TouchController&, int targetX, int targetY, int width, int height) = nullptr;
    /// Optional. Fovix_GetPTZFor180VR, current: stores angles and zoom factor; null is skipped.
    void (*getPTZFor180VR)(TouchController&, double* xAngle, double* yAngle, double* third,
                           double* zoom) = nullptr;
    /// Optional. Fovix_SetPTZFor180VR, current: angles and zoom factor to ease to.
    void (*setPTZFor180VR)(TouchController&, double xAngle, double yAngle, double zAngle,
                           double zoom) = nullptr;
    /// Optional. Rendered frame, screen 0: stores offsets as shares of their range; null is skipped.
    void (*getViewOffset)(TouchController&, double* first, double* second) = nullptr;
    /// Optional. Fovix_SetRotateZoomRecoverMode, all, before the model: the view that it gets.
    void (*setRotateZoom)(TouchController&, double xAngle, double yAngle, double zAngle,
                          double zoom) = nullptr;
    /// Optional. Fovix_GetRelativeXOffset, screen 0: returns the horizontal offset, -1 and 1 at the ends.
    float (*getRelativeXOffset)(TouchController&) = nullptr;
    /// Optional. Fovix_SetLogicZoom, all, after the model: zoom factors.
    void (*setLogicZoom)(TouchController&, double min, double max, double div, double zoom) = nullptr;
    /// Optional. Fovix_SetTwoLensesDrawMode, all, after the model: FOVIX_TWO_LENSES_...
    void (*setTwoLensesDrawMode)(TouchController&, int mode) = nullptr;
    /// Optional. Fovix_SetTwoLensesScreen, all, after the model: FOVIX_TWO_LENSES_SCREEN_...
    void (*setTwoLensesScreen)(TouchController&, int screen) = nullptr;
};

/// Base of every kind's own record.
struct ControllerParams {
    virtual ~ControllerParams() = default;
};

struct TouchController {
    OwnerPtr owner;       ///< the handle that it belongs to
    int screenIndex = 0;  ///< screen of the model that it drives, 0..5
    std::unique_ptr<ControllerParams> params;
    TouchControllerOperations operations;

    // The operations, as callers use them. Optional commands return whether the kind has the operation.
    bool setPTZ(double pan, double tilt, double zoom, double roll) {
        return call(operations.setPTZ, pan, tilt, zoom, roll);
    }
    void onTouchDown(float x, float y) { operations.onTouchDown(*this, x, y); }
    void onTouchUp(float x, float y) { operations.onTouchUp(*this, x, y); }
    void onTouchMove(float x, float y) { operations.onTouchMove(*this, x, y); }
    void onTouchPinch(float x1, float y1, float x2, float y2) {
        operations.onTouchPinch(*this, x1, y1, x2, y2);
    }
    void onTouchPinchScale(float scale) { operations.onTouchPinchScale(*this, scale); }
    void onTouchFling(float velocityX, float velocityY) {
        operations.onTouchFling(*this, velocityX, velocityY);
    }
    bool onAccelerometer(float x, float y) { return call(operations.onAccelerometer, x, y); }
    bool onOrientation(float a, float b, float c) { return call(operations.onOrientation, a, b, c); }
    void update() { operations.update(*this); }
    bool autoAdjust() { return call(operations.autoAdjust); }
    bool setDrawMode(int mode) { return call(operations.setDrawMode, mode); }
    bool setCameraMount(int mount) { return call(operations.setCameraMount, mount); }
    bool setShape(int shape) { return call(operations.setShape, shape); }
    bool startAutoCruise(double speed) { return call(operations.startAutoCruise, speed); }
    bool stopAutoCruise() { return call(operations.stopAutoCruise); }
    bool displayRect(int left, int top, int right, int bottom, int width, int height) {
        return call(operations.displayRect, left, top, right, bottom, width, height);
    }
    bool displayTarget(int targetX, int targetY, int width, int height) {
        return call(operations.displayTarget, targetX, targetY, width, height);
    }
    bool getPTZFor180VR(double* xAngle, double* yAngle, double* third, double* zoom) {
        return call(operations.getPTZFor180VR, xAngle, yAngle, third, zoom);
    }
    bool setPTZFor180VR(double xAngle, double yAngle, double zAngle, double zoom) {
        return call(operations.setPTZFor180VR, xAngle, yAngle, zAngle, zoom);
    }
    bool getViewOffset(double* first, double* second) {
        return call(operations.getViewOffset, first, second);
    }
    bool setRotateZoom(double xAngle, double yAngle, double zAngle, double zoom) {
        return call(operations.setRotateZoom, xAngle, yAngle, zAngle, zoom);
    }
    float getRelativeXOffset(float absent) {
        return operations.getRelativeXOffset ? operations.getRelativeXOffset(*this) : absent;
    }
    bool setLogicZoom(double min, double max, double div, double zoom) {
        return call(operations.setLogicZoom, min, max, div, zoom);
    }
    bool setTwoLensesDrawMode(int mode) { return call(operations.setTwoLensesDrawMode, mode); }
    bool setTwoLensesScreen(int screen) { return call(operations.setTwoLensesScreen, screen); }

    /// True if touches on an overview can aim it.
    bool canBeAimed() const { return operations.setPTZ && operations.autoAdjust; }

  private:
    template <class... Parameters, class... Arguments>
    bool call(void (*operation)(TouchController&, Parameters...), Arguments... arguments) {
        if (operation) operation(*this, arguments...);
        return operation != nullptr;
    }
};

using ControllerPtr = std::shared_ptr<TouchController>;
using ControllerCreator = ControllerPtr (*)(OwnerPtr owner, int screenIndex);

inline constexpr int kScreenCount = 6;

/// True if all mandatory operations are filled; each kind asserts it.
constexpr bool hasTouchOperations(const TouchControllerOperations& operations) {
    return isFilled(operations.onTouchDown) && isFilled(operations.onTouchUp) &&
           isFilled(operations.onTouchMove) && isFilled(operations.onTouchPinch) &&
           isFilled(operations.onTouchPinchScale) && isFilled(operations.onTouchFling) &&
           isFilled(operations.update);
}

/// A new controller with its table and its params record; screenIndex is 0..5.
ControllerPtr TouchController_Create(const TouchControllerOperations& operations,
                                     std::unique_ptr<ControllerParams> params, OwnerPtr owner,
                                     int screenIndex);

/// Accepts a call and ignores it.
template <class... Arguments>
void TouchController_Ignore(TouchController&, Arguments...) {}

/// The kind's own record.
template <class Params>
Params& paramsOf(TouchController& controller) {
    return static_cast<Params&>(*controller.params);
}

}  // namespace fovix
