#include "view/RotateZoomView.h"

#include "base/Numbers.h"

namespace fovix {

void RotateZoomView::set(double xAngle, double yAngle, double zAngle, double zoom) {
    mRotateX = xAngle;
    mRotateY = yAngle;
    mRotateZ = zAngle;
    mZoom = zoom;
}

void RotateZoomView::get(double* xAngle, double* yAngle, double* zAngle, double* zoom) const {
    writeIfWanted(xAngle, mRotateX);
    writeIfWanted(yAngle, mRotateY);
    writeIfWanted(zAngle, mRotateZ);
    writeIfWanted(zoom, mZoom);
}

double fieldOfViewForZoom(double zoom) {
    return ZoomCurve{100.0, kNormalFov, 20.0, 20.0}.at(zoom);
}

}  // namespace fovix
