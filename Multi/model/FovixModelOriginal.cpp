#include "model/FovixModelOriginal.h"

#include "base/Diagnostics.h"

namespace fovix {

namespace {

OriginalParams& params(FovixModel& model) {
    return paramsOf<OriginalParams>(model);
}

void reset(FovixModel& model) {
    params(model).mView.reset();
}

VertexCachePtr createVertices(FovixModel& model) {
    const OriginalParams& p = params(model);
    printLine("createVertices()\n");
    printLine("%s", p.mKind->builderLine);
    const FishEyeConfig lens = *p.mFishEye;
    if (!isTextureUsable(lens)) return nullptr;
    return VertexCache_FromFlatMesh(p.mKind->createMesh(lens, model.backingWidth, model.backingHeight));
}

void drawSelf(FovixModel& model, Device& device) {
    const OriginalParams& p = params(model);
    const RotateZoomView view = p.mView;
    const Mat4 matrix =
        flatPictureMatrix(view.mZoom, view.mRotateX, view.mRotateY, model.backingWidth, model.backingHeight);
    device.drawMesh(matrix, p.mKind->source);
}

void setRotateZoom(FovixModel& model, int, double xAngle, double yAngle, double zAngle, double zoom) {
    params(model).mView.set(xAngle, yAngle, zAngle, zoom);
}

void getRotateZoom(FovixModel& model, int, double* xAngle, double* yAngle, double* zAngle, double* zoom) {
    params(model).mView.get(xAngle, yAngle, zAngle, zoom);
}

constexpr FovixModelOperations kOperations = {
    .init = reset,
    .release = FovixModel_Release,
    .setViewSize = FovixModel_SetViewSize,
    .needContinue = FovixModel_NeedContinue,
    .getTextureScale = FovixModel_GetTextureScale,
    .getVerticesCache = FlatMesh_GetVerticesCache<createVertices>,
    .onConfigChanged = FlatMesh_OnConfigChanged,
    .drawSelf = drawSelf,
    .resetPosition = reset,
    .setRotateZoom = setRotateZoom,
    .getRotateZoom = getRotateZoom,
};
static_assert(hasMandatoryOperations(kOperations));

}  // namespace

Mat4 flatPictureMatrix(double zoom, double rotateX, double rotateY, int width, int height) {
    Mat4 m;
    Mat4_Scale(m, 1.0, 1.0, -1.0);
    Mat4_Translate(m, -rotateY / kDegreesPerUnit, rotateX / kDegreesPerUnit, 0.0);
    Mat4_Translate(m, 0.0, 0.0, -1.0);
    Mat4_Perspective(m, fieldOfViewForZoom(zoom), kNearPlane, kFarPlane, width, height, 1.0);
    return m;
}

void FlatMesh_OnConfigChanged(FovixModel& model) {
    paramsOf<FlatMeshParams>(model).mVerticesCache = nullptr;
}

ModelPtr FlatPicture_Create(const FishEyeConfig& lens, const FlatPictureKind& kind) {
    return FovixModel_Create(kOperations, std::make_unique<OriginalParams>(lens, kind));
}

ModelPtr FovixModelOriginal_Create(const FishEyeConfig& lens) {
    static constexpr FlatPictureKind kKind = {GridMesh_Create_Original, "GridMesh_Create_Original()\n",
                                              "Multi/FovixModelOriginal"};
    return FlatPicture_Create(lens, kKind);
}

}  // namespace fovix
