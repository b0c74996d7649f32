// The frame with an inset: a main view that zooms and moves across the frame, and on a square surface an
// inset in the lower part that always shows the whole frame. Both draw the same flat mesh.
#pragma once

#include "base/Mat4.h"
#include "model/FovixModelOriginal.h"

namespace fovix {

/// Depth of the main view in single precision: at zoom 1 a square surface shows 28.5 % of the frame's width.
inline constexpr double kSinglePipDistance = 0.715f;

struct SinglePIPParams : FlatMeshParams {
    using FlatMeshParams::FlatMeshParams;

    Cell<double> mZoom = 1.0;
    Cell<double> mOffsetX = 0.0;  ///< moves the frame left, model units
    Cell<double> mOffsetY = 0.0;  ///< moves the frame up
    Cell<double> mDistance = kSinglePipDistance;
    Cell<int> mDrawMode = 3;  ///< 0: no inset
};

/// Field of view of the main view in degrees: 148 at zoom 0.25, 90 at 1, 45 at 5, linear between and beyond.
double singlePipFieldOfView(double zoom);

/// Model-view-projection matrices of the main view and of the inset on a surface of width × height pixels.
Mat4 singlePipMainMatrix(double zoom, double offsetX, double offsetY, double distance, int width, int height);
Mat4 singlePipInsetMatrix(int width, int height);

ModelPtr FovixModelSinglePIP_Create(const FishEyeConfig& lens);

}  // namespace fovix
