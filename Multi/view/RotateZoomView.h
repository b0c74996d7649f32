// The rotate-and-zoom view of the flat, the 180-degree and the two-lens kinds.
#pragma once

#include "base/Cell.h"

namespace fovix {

/// The smallest zoom factor that gestures reach; 1 is the normal view.
inline constexpr double kSmallestZoom = 0.25;

/// The largest zoom factor of the view with an inset.
inline constexpr double kInsetLargestZoom = 5.0;

/// The normal field of view, degrees: a flat frame of two units fills the surface's width.
inline constexpr double kNormalFov = 90.0;

/// A flat frame moves by a model unit for this angle, so that half a turn moves it by half its width.
inline constexpr double kDegreesPerUnit = 180.0;

/// A value that follows the zoom: linear from the smallest zoom to 1, and from 1 to the largest zoom.
struct ZoomCurve {
    double atSmallest, atOne, atLargest, largestZoom;

    constexpr double at(double zoom) const {
        if (zoom == 1.0) return atOne;
        if (zoom < 1.0)
            return atSmallest - (zoom - kSmallestZoom) * (atSmallest - atOne) / (1.0 - kSmallestZoom);
        return atOne - (zoom - 1.0) * (atOne - atLargest) / (largestZoom - 1.0);
    }
};

/// Three angles in degrees and a zoom factor.
struct RotateZoomView {
    Cell<double> mZoom = 1.0;     ///< 1.0: the normal view
    Cell<double> mRotateX = 0.0;  ///< pitch; moves a flat frame up
    Cell<double> mRotateY = 0.0;  ///< yaw; moves a flat frame left
    Cell<double> mRotateZ = 0.0;  ///< roll; stored by the flat kinds but not drawn

    void reset() { set(0.0, 0.0, 0.0, 1.0); }
    void set(double xAngle, double yAngle, double zAngle, double zoom);
    /// Null pointers are skipped.
    void get(double* xAngle, double* yAngle, double* zAngle, double* zoom) const;
};

/// Field of view in degrees for a zoom: 100 at 0.25, 90 at 1, 20 at 20, linear between and beyond.
double fieldOfViewForZoom(double zoom);

}  // namespace fovix
