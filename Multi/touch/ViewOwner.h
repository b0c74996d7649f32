// The handle as its touch controllers see it: the size of the surface, the model that takes their views, and
// the draw mode.
#pragma once

#include <memory>

namespace fovix {

struct TouchController;

/// Pixels; 0 x 0 without a surface.
struct SurfaceSize {
    int width = 0, height = 0;
};

/// Any thread. On a released handle every call prints the handle's error line and does nothing else.
class ViewOwner {
  public:
    virtual ~ViewOwner() = default;

    /// The surface that the host draws into, never negative; 0 x 0 for a released handle.
    virtual SurfaceSize surfaceSize() const = 0;

    /// Stores pan, tilt, zoom (field of view) and roll, in degrees, in the controller's screen of the model.
    /// Views of a controller that the handle no longer shows are ignored, and so are views of a kind that the
    /// model does not have.
    virtual void pushPTZ(const TouchController& from, double pan, double tilt, double zoom, double roll,
                         double ptzFifth) = 0;

    /// The same for a view of three angles in degrees, or offsets, and a zoom factor.
    virtual void pushRotateZoom(const TouchController& from, double xAngle, double yAngle, double zAngle,
                                double zoom) = 0;

    /// Changes the draw mode of the model and of all controllers of the handle, the calling one included.
    virtual void switchDrawMode(int mode) = 0;
};

using OwnerPtr = std::shared_ptr<ViewOwner>;

}  // namespace fovix
