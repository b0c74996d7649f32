// The plain frame: one flat rectangle fitted to the surface, zoomed and moved by a rotate-and-zoom view.
//
// The Korvel and the multi-lens models are the same model with a different mesh or name.
#pragma once

#include "base/Diagnostics.h"
#include "base/Mat4.h"
#include "mesh/GridMesh.h"
#include "model/FovixModel.h"
#include "view/RotateZoomView.h"

namespace fovix {

/// What differs between the flat kinds.
struct FlatPictureKind {
    GridMesh (*createMesh)(const FishEyeConfig& lens, int backingWidth, int backingHeight);
    const char* builderLine;  ///< printed before the mesh is built
    const char* source;       ///< name of the kind's source in the lines of the GL check
};

/// A kind with one flat mesh.
struct FlatMeshParams : ModelParams {
    using ModelParams::ModelParams;

    VertexCachePtr mVerticesCache;  ///< built on first use
};

struct OriginalParams : FlatMeshParams {
    OriginalParams(const FishEyeConfig& lens, const FlatPictureKind& kind)
        : FlatMeshParams(lens), mKind(&kind) {}

    RotateZoomView mView;  ///< at zoom 1.0 the frame fills the surface's width
    const FlatPictureKind* mKind;
};

// Operations of the kinds with one flat mesh, built by `create`.
template <VertexCachePtr (*create)(FovixModel& model)>
VertexCachePtr FlatMesh_GetVerticesCache(FovixModel& model) {
    VertexCachePtr& cache = paramsOf<FlatMeshParams>(model).mVerticesCache;
    if (!cache) cache = create(model);
    if (!cache) printLine("error pCtxt = NULL\n");
    return cache;
}
void FlatMesh_OnConfigChanged(FovixModel& model);

/// Model-view-projection matrix of a flat frame on a surface of width × height pixels; angles in degrees.
Mat4 flatPictureMatrix(double zoom, double rotateX, double rotateY, int width, int height);

/// Creates a model of a flat kind; the kind must outlive it.
ModelPtr FlatPicture_Create(const FishEyeConfig& lens, const FlatPictureKind& kind);

/// The model of the plain frame, of the grid's cells and of every type code without a kind of its own.
ModelPtr FovixModelOriginal_Create(const FishEyeConfig& lens);

}  // namespace fovix
