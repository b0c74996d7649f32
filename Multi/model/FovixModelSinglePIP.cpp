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

/// Whether the outlines of the inset are wanted; this model has no overlay mesh of its own.
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

/// Places a flat picture in the view.
Mat4 placePicture(double scale, double x, double y, double z) {
    Mat4 m;
    Mat4_Scale(m, scale, scale, -1.0);
    Mat4_Translate(m, x, y, z - 1.0);
    return m;
}

}  // namespace

double singlePipFieldOfView(double zoom) {
    if (zoom == 1.0) return 90.0;
    if (zoom < 1.0) return 148.0 - (zoom - 0.25) * 58.0 / 0.75;
    return 90.0 - (zoom - 1.0) * 45.0 * 0.25;
}

Mat4 singlePipMainMatrix(double zoom, double offsetX, double offsetY, double distance, int width,
                         int height) {
    // On a wide surface the height sets the size of the picture, elsewhere the width.
    const bool isWide = width > height && width != 0;
    const double scale = isWide ? static_cast<float>(height) / static_cast<float>(width) : 1.0;
    Mat4 m = placePicture(1.0, -offsetX, offsetY, distance);
    Mat4_Perspective(m, singlePipFieldOfView(zoom), kNearPlane, kFarPlane, width, height, scale);
    return m;
}

Mat4 singlePipInsetMatrix(int width, int height) {
    // From x −0.3 to 0.9 on the surface, around y −0.7; the offsets are held in single precision.
    Mat4 m = placePicture(0.12, 0.06f, -0.14f, 0.8f);
    Mat4_Perspective(m, 90.0, kNearPlane, kFarPlane, width, height, 1.0);
    return m;
}

ModelPtr FovixModelSinglePIP_Create(const FishEyeConfig& lens) {
    return FovixModel_Create(kOperations, std::make_unique<SinglePIPParams>(lens));
}

}  // namespace fovix
