// The rotate-and-zoom view of the flat, the 180-degree and the two-lens pictures.
#pragma once

#include "base/Cell.h"

namespace fovix {

/// Three angles in degrees and a zoom factor; a flat picture moves by 1/180 model unit per degree.
struct RotateZoomView {
    Cell<double> mZoom = 1.0;     ///< 1.0: the normal view
    Cell<double> mRotateX = 0.0;  ///< pitch; moves a flat picture up
    Cell<double> mRotateY = 0.0;  ///< yaw; moves a flat picture left
    Cell<double> mRotateZ = 0.0;  ///< roll; flat pictures keep it and do not draw it

    void reset() { set(0.0, 0.0, 0.0, 1.0); }
    void set(double xAngle, double yAngle, double zAngle, double zoom);
    /// Null pointers are skipped.
    void get(double* xAngle, double* yAngle, double* zAngle, double* zoom) const;
};

/// Field of view in degrees for a zoom: 100 at 0.25, 90 at 1, 20 at 20, linear between.
double fieldOfViewForZoom(double zoom);

}  // namespace fovix
