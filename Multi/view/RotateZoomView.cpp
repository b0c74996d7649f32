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
    if (zoom == 1.0) return 90.0;
    if (zoom < 1.0) return 100.0 - (zoom - 0.25) * 10.0 / 0.75;
    return 90.0 - (zoom - 1.0) * 70.0 / 19.0;
}

}  // namespace fovix
