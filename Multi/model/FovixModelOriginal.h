// The plain fisheye picture: one flat rectangle fitted into the surface, zoomed and moved by a
// rotate-and-zoom view.
//
// The Korvel and the multi-lens model are this one with another mesh or another name: each is a flat kind of
// its own.
#pragma once

#include "base/Diagnostics.h"
#include "base/Mat4.h"
#include "mesh/GridMesh.h"
#include "model/FovixModel.h"
#include "view/RotateZoomView.h"

namespace fovix {

/// What makes one kind of flat picture differ from another.
struct FlatPictureKind {
    GridMesh (*createMesh)(const FishEyeConfig& lens, int backingWidth, int backingHeight);
    const char* builderLine;  ///< diagnostics line before the mesh is built
    const char* source;       ///< name of the kind's source in GL error lines
};

/// A kind with one flat mesh.
struct FlatMeshParams : ModelParams {
    using ModelParams::ModelParams;

    VertexCachePtr mVerticesCache;  ///< built on first use
};

struct OriginalParams : FlatMeshParams {
    OriginalParams(const FishEyeConfig& lens, const FlatPictureKind& kind)
        : FlatMeshParams(lens), mKind(&kind) {}

    RotateZoomView mView;  ///< zoom 1.0: the picture fills the surface's width
    const FlatPictureKind* mKind;
};

// Operations of the kinds with one flat mesh, which create builds.
template <VertexCachePtr (*create)(FovixModel& model)>
VertexCachePtr FlatMesh_GetVerticesCache(FovixModel& model) {
    VertexCachePtr& cache = paramsOf<FlatMeshParams>(model).mVerticesCache;
    if (!cache) cache = create(model);
    if (!cache) printLine("error pCtxt = NULL\n");
    return cache;
}
void FlatMesh_OnConfigChanged(FovixModel& model);

/// Model-view-projection matrix of a flat picture on a surface of width × height pixels.
Mat4 flatPictureMatrix(double zoom, double rotateX, double rotateY, int width, int height);

/// A model of a flat kind.
ModelPtr FlatPicture_Create(const FishEyeConfig& lens, const FlatPictureKind& kind);

/// Model of the plain picture, of the multi-image grid's cells and of every code without a type of its own.
ModelPtr FovixModelOriginal_Create(const FishEyeConfig& lens);

}  // namespace fovix
