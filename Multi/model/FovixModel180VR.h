// The 180-degree view: the lens circle on a disc, stretched flat, round a cylinder or on a curved screen,
// seen through one, three or four screens.
//
// A change of shape morphs the mesh that was shown into the next one (the cartoon): for some frames the model
// hands out a blend of both, and every fetch carries it on by one frame.
#pragma once

#include <array>

#include "base/SharedLock.h"
#include "model/FovixModel.h"
#include "view/RotateZoomView.h"

namespace fovix {

inline constexpr int k180VRScreens = 6;
inline constexpr int k180VRModes = 4;

struct Model180VRParams : ModelParams {
    using ModelParams::ModelParams;

    std::array<RotateZoomView, k180VRScreens> mViews;
    Cell<int> mSelectedScreen = 0;
    Cell<int> mDrawMode = 0;  ///< mesh in use; a host may ask for one that does not exist
    Cell<int> mShape = 0;

    // The cartoon; changed under the lock, as every fetch changes it too.
    Cell<int> mCartoonActive = 0;
    Cell<int> mCartoonFrom = 0, mCartoonTo = 0;  ///< meshes at both ends
    int mCartoonFrame = 0;                       ///< frames shown so far
    Cell<int> mCartoonFrames = 0;                ///< length in frames
    int mCartoonDirty = 0;                       ///< the next fetch has to blend anew
    std::shared_ptr<VertexCache> mCartoonCache;  ///< the blend; kept for the next cartoon
    SharedLock mLock;

    // The mesh handed out last; GL thread.
    std::array<VertexCachePtr, k180VRModes> mVertexCaches;  ///< by mode, built on first use
    double mMeshExtent = 0.0;
    int mNumTriangles = 0;
    double mLensOffsetX = 0.0, mLensOffsetY = 0.0;  ///< fractions of the camera's image
};

ModelPtr FovixModel180VR_Create(const FishEyeConfig& lens);

}  // namespace fovix
