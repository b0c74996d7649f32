// The 180-degree view: the lens circle on a disc, stretched flat, around a cylinder or on a curved screen,
// seen through one, three or four screens.
//
// A change of shape blends the mesh that was shown into the next one; every fetch is a step of the blend.
#pragma once

#include <array>

#include "mesh/MeshBlend.h"
#include "model/FovixModel.h"
#include "view/RotateZoomView.h"

namespace fovix {

inline constexpr int kVR180Screens = 6;
inline constexpr int kVR180Modes = 4;

struct VR180Params : ModelParams {
    using ModelParams::ModelParams;

    std::array<RotateZoomView, kVR180Screens> mViews;
    Cell<int> mSelectedScreen = 0;
    Cell<int> mDrawMode = 0;  ///< mesh in use; a host may set one that does not exist
    Cell<int> mShape = 0;

    MeshBlend mBlend;  ///< between the meshes of two modes

    // The mesh fetched last; GL thread.
    std::array<VertexCachePtr, kVR180Modes> mVertexCaches;  ///< by mode, built on first use
    double mMeshExtent = 0.0;
    double mLensOffsetX = 0.0, mLensOffsetY = 0.0;  ///< fractions of the camera's image
};

ModelPtr FovixModel180VR_Create(const FishEyeConfig& lens);

}  // namespace fovix
