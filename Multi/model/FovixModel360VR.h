// The 360-degree panorama: the lens circle on a hemisphere, a cylinder or an unrolled strip, seen through one
// to six pan-tilt-zoom screens. For a camera on the ceiling or on a wall, a change of shape blends one mesh
// into the other while screen 0's view glides to its new place.
#pragma once

#include <array>

#include "mesh/MeshBlend.h"
#include "model/FovixModel.h"
#include "view/Views360VR.h"

namespace fovix {

inline constexpr int kPanoramaMounts = 4;
inline constexpr int kPanoramaShapes = 11;

/// A screen's view in the model; other threads may read its fields at any time.
struct ViewCells360VR {
    Cell<double> mPan, mRoll, mTilt, mPtzFifth;
    Cell<double> mZoom = View360VR{}.mZoom;

    View360VR load() const;
    void store(const View360VR& view);
};

/// Changes of several fields hold the lock; a rendered frame copies what it draws under it.
struct VR360Params : ModelParams {
    using ModelParams::ModelParams;

    Cell<int> mMount = 0;  ///< 0..3
    Cell<int> mShape = 0;  ///< 0..10
    std::array<ViewCells360VR, kPanoramaScreens> mViews;
    Cell<int> mSelectedScreen = 0;  ///< chosen by the last selectScreen

    MeshBlend mBlend;       ///< between the meshes of two shapes
    View360VR mBlendStart;  ///< screen 0's view when the blend began
    View360VR mBlendView;   ///< the view that is drawn meanwhile, on its way to screen 0's

    // GL thread.
    std::array<std::array<VertexCachePtr, kPanoramaShapes>, kPanoramaMounts>
        mMeshCaches;  ///< built on first use
};

ModelPtr FovixModel360VR_Create(const FishEyeConfig& lens);

}  // namespace fovix
