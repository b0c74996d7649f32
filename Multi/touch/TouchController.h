// The touch controller: turns one screen's gestures, sensor input and pan-tilt-zoom commands into a view,
// animates it and pushes it into the model once per frame.
//
// The library reaches every kind through one table of 26 operations; a kind leaves null what it does not
// support. Input operations run on the host's threads, update on the GL thread inside a frame.
#pragma once

#include <memory>

#include "base/SharedLock.h"
#include "handle/FovixHandle.h"
#include "model/FovixModel.h"

namespace fovix {

struct TouchController;

/// In the order of the table; every operation takes the controller first.
struct TouchControllerOperations {
    void (*setPTZ)(TouchController&, double pan, double tilt, double zoom, double roll) = nullptr;
    // The six touch operations and update are filled by every kind.
    void (*onTouchDown)(TouchController&, float x, float y) = nullptr;
    void (*onTouchUp)(TouchController&, float x, float y) = nullptr;
    void (*onTouchMove)(TouchController&, float x, float y) = nullptr;
    void (*onTouchPinch)(TouchController&, float x1, float y1, float x2, float y2) = nullptr;
    void (*onTouchPinchScale)(TouchController&, float scale) = nullptr;
    void (*onTouchFling)(TouchController&, float velocityX, float velocityY) = nullptr;
    void (*onAccelerometer)(TouchController&, float x, float y) = nullptr;
    void (*onOrientation)(TouchController&, float a, float b, float c) = nullptr;
    void (*update)(TouchController&) = nullptr;
    void (*autoAdjust)(TouchController&) = nullptr;
    void (*setDrawMode)(TouchController&, int mode) = nullptr;
    void (*setCameraMount)(TouchController&, int mount) = nullptr;
    void (*setShape)(TouchController&, int shape) = nullptr;
    void (*startAutoCruise)(TouchController&, double speed) = nullptr;
    void (*stopAutoCruise)(TouchController&) = nullptr;
    void (*displayRect)(TouchController&, int left, int top, int right, int bottom, int width,
                        int height) = nullptr;
    void (*displayTarget)(TouchController&, int targetX, int targetY, int width, int height) = nullptr;
    void (*getPTZFor180VR)(TouchController&, double* xAngle, double* yAngle, double* third,
                           double* zoom) = nullptr;
    void (*setPTZFor180VR)(TouchController&, double xAngle, double yAngle, double zAngle,
                           double zoom) = nullptr;
    void (*getViewOffset)(TouchController&, double* first, double* second) = nullptr;
    void (*setRotateZoom)(TouchController&, double xAngle, double yAngle, double zAngle,
                          double zoom) = nullptr;
    float (*getRelativeXOffset)(TouchController&) = nullptr;
    void (*setLogicZoom)(TouchController&, double min, double max, double div, double zoom) = nullptr;
    void (*setTwoLensesDrawMode)(TouchController&, int mode) = nullptr;
    void (*setTwoLensesScreen)(TouchController&, int screen) = nullptr;
};

/// Base of every kind's own record.
struct ControllerParams {
    virtual ~ControllerParams() = default;
};

struct TouchController {
    VRHANDLE owner = nullptr;  ///< the handle that it belongs to
    SharedLock lock;           ///< its own handle of the process's lock
    int screenIndex = 0;       ///< screen of the model that it drives, 0..5
    std::unique_ptr<ControllerParams> params;
    TouchControllerOperations operations;
};

using ControllerPtr = std::shared_ptr<TouchController>;
using ControllerCreator = ControllerPtr (*)(VRHANDLE owner, int screenIndex);

inline constexpr int kScreenCount = 6;

/// True when the operations that callers do not test are there.
constexpr bool hasTouchOperations(const TouchControllerOperations& operations) {
    return isFilled(operations.onTouchDown) && isFilled(operations.onTouchUp) &&
           isFilled(operations.onTouchMove) && isFilled(operations.onTouchPinch) &&
           isFilled(operations.onTouchPinchScale) && isFilled(operations.onTouchFling) &&
           isFilled(operations.update);
}

/// A new controller with its table and its params record; screenIndex is 0..5.
ControllerPtr TouchController_Create(const TouchControllerOperations& operations,
                                     std::unique_ptr<ControllerParams> params, VRHANDLE owner,
                                     int screenIndex);

/// For an operation that a kind takes and does nothing with.
template <class... Arguments>
void TouchController_Ignore(TouchController&, Arguments...) {}

/// The model that the controller drives. Null when the owner is no live handle, which is reported, and when
/// the handle shows another type by now: a frame may still be stepping the controllers of the last one.
ModelPtr TouchController_Model(const TouchController& controller);

/// Hands a view to the controller's screen of the model; without the lock.
void TouchController_PushRotateZoom(const TouchController& controller, double xAngle, double yAngle,
                                    double zAngle, double zoom);

/// The kind's own record.
template <class Params>
Params& paramsOf(TouchController& controller) {
    return static_cast<Params&>(*controller.params);
}

}  // namespace fovix
