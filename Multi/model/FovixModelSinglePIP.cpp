#include "model/FovixModelSinglePIP.h"

#include "base/Diagnostics.h"
#include "base/Numbers.h"

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixModelSinglePIP";

SinglePIPParams& params(FovixModel& model) {
    return paramsOf<SinglePIPParams>(model);
}

void resetPosition(FovixModel& model) {
    params(model).mZoom = 1.0;
}

void init(FovixModel& model) {
    SinglePIPParams& p = params(model);
    p.mZoom = 1.0;
    p.mOffsetX = p.mOffsetY = 0.0;
    p.mDistance = kSinglePipDistance;
}

void setDrawMode(FovixModel& model, int mode) {
    params(model).mDrawMode = mode;
}

VertexCachePtr createVertices(FovixModel& model) {
    printLine("GridMesh_Create_Original()\n");
    const FishEyeConfig lens = *params(model).mFishEye;
    if (!isTextureUsable(lens)) return nullptr;
    const GridMesh mesh = GridMesh_Create_Original(lens, model.backingWidth, model.backingHeight);
    printLine("FovixModelSinglePIP.createVertices(numTriangles=%d)\n", mesh.triangleCount);
    return VertexCache_FromFlatMesh(mesh);
}

void drawSelf(FovixModel& model, Device& device) {
    const SinglePIPParams& p = params(model);
    const int width = model.backingWidth, height = model.backingHeight;
    const Mat4 mainView = singlePipMainMatrix(p.mZoom, p.mOffsetX, p.mOffsetY, p.mDistance, width, height);
    device.drawMesh(mainView, kSource);
    if (p.mDrawMode == 0 || width != height) return;
    device.drawMesh(singlePipInsetMatrix(width, height), kSource);
}

/// 1 when the outlines of the inset are to be drawn; the model has no overlay mesh.
int getOverlayCount(FovixModel& model) {
    return params(model).mDrawMode != 0 ? 1 : 0;
}

void setRotateZoom(FovixModel& model, int, double offsetX, double offsetY, double distance, double zoom) {
    SinglePIPParams& p = params(model);
    p.mOffsetX = offsetX;
    p.mOffsetY = offsetY;
    p.mDistance = distance;
    p.mZoom = zoom;
}

void getRotateZoom(FovixModel& model, int, double* offsetX, double* offsetY, double* distance, double* zoom) {
    const SinglePIPParams& p = params(model);
    writeIfWanted(offsetX, p.mOffsetX);
    writeIfWanted(offsetY, p.mOffsetY);
    writeIfWanted(distance, p.mDistance);
    writeIfWanted(zoom, p.mZoom);
}

constexpr FovixModelOperations kOperations = {
    .init = init,
    .release = FovixModel_Release,
    .setDrawMode = setDrawMode,
    .setViewSize = FovixModel_SetViewSize,
    .needContinue = FovixModel_NeedContinue,
    .getTextureScale = FovixModel_GetTextureScale,
    .getVerticesCache = FlatMesh_GetVerticesCache<createVertices>,
    .onConfigChanged = FlatMesh_OnConfigChanged,
    .drawSelf = drawSelf,
    .getOverlayCount = getOverlayCount,
    .resetPosition = resetPosition,
    .setRotateZoom = setRotateZoom,
    .getRotateZoom = getRotateZoom,
};
static_assert(hasMandatoryOperations(kOperations));

/// Sizes and places a flat frame.
Mat4 placePicture(double scale, double x, double y, double z) {
    Mat4 m;
    Mat4_Scale(m, scale, scale, -1.0);
    Mat4_Translate(m, x, y, z - 1.0);
    return m;
}

}  // namespace

double singlePipFieldOfView(double zoom) {
    return ZoomCurve{148.0, kNormalFov, 45.0, kInsetLargestZoom}.at(zoom);
}

Mat4 singlePipMainMatrix(double zoom, double offsetX, double offsetY, double distance, int width,
                         int height) {
    // On a wide surface the height sets the size of the frame, elsewhere the width.
    const bool isWide = width > height && width != 0;
    const double scale = isWide ? static_cast<float>(height) / static_cast<float>(width) : 1.0;
    Mat4 m = placePicture(1.0, -offsetX, offsetY, distance);
    Mat4_Perspective(m, singlePipFieldOfView(zoom), kNearPlane, kFarPlane, width, height, scale);
    return m;
}

Mat4 singlePipInsetMatrix(int width, int height) {
    // 0.2 units from the eye, so it reaches from x −0.3 to 0.9 and is centred at y −0.7; single precision.
    Mat4 m = placePicture(0.12, 0.06f, -0.14f, 0.8f);
    Mat4_Perspective(m, kNormalFov, kNearPlane, kFarPlane, width, height, 1.0);
    return m;
}

ModelPtr FovixModelSinglePIP_Create(const FishEyeConfig& lens) {
    return FovixModel_Create(kOperations, std::make_unique<SinglePIPParams>(lens));
}

}  // namespace fovix
